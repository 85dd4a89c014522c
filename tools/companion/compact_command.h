#pragma once

#include "data/date.h"
#include "tools/companion/command.h"
#include "tools/copy_plan.h"

namespace veyra {

/// "compact FOLDER": makes FOLDER/Calendar.mdb anew, as RewriteFile does, as an Access file
/// without the room that deleted rows left, and says what it gained. The old file is kept until the
/// new one is in its place. A SQLite file needs no compacting; a file with queries, forms or
/// reports is left alone, for they would be lost.
Command CompactCommand(Date today, CopyObserver observer);

}  // namespace veyra
