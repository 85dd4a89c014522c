#pragma once

#include "data/date.h"
#include "tools/companion/command.h"

namespace veyra {

/// "new FOLDER [--access] [--sample]": makes a data folder with Calendar.mdb (Rooms and Reserv; the
/// calendar adds Settings at its first start) and Veyra.mdb (Guest): SQLite files or, with
/// --access, Access 2000 files; both empty or, with --sample, filled with what MakeSampleData gives
/// for `today`.
///
/// Makes FOLDER and the folders above it when they are not there. Writes over nothing: when either
/// file is there, or a journal left by one, it throws Error and makes neither. When it fails it
/// leaves no file behind.
Command NewCommand(Date today);

}  // namespace veyra
