#pragma once

#include "data/date.h"
#include "tools/companion/command.h"
#include "tools/copy_plan.h"

namespace veyra {

/// "share": puts the calendar of a data folder on a server, and a link in its place; with --sql it
/// prints what an administrator may run there before.
Command ShareCommand(Date today, CopyObserver observer);

}  // namespace veyra
