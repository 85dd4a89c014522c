#pragma once

#include "data/date.h"
#include "tools/companion/command.h"
#include "tools/copy_plan.h"

namespace veyra {

/// "convert FOLDER [--to sqlite|access]": makes FOLDER/Calendar.mdb a file of the other kind with
/// the same tables, columns and rows; every row is read again from the new file and compared.
/// The old file stays beside it as "Calendar-before-YYYY-MM-DD.mdb", the date being `today`.
///
/// Broken off at any moment, it leaves the old or the new file whole under its name. When it fails
/// it leaves the folder as it was: when a row differs or cannot be held, and when somebody has the
/// calendar open. A file that is of the wanted kind already, and can be written to, is left alone;
/// one of Access 97, or encoded, may be converted to Access.
Command ConvertCommand(Date today, CopyObserver observer);

}  // namespace veyra
