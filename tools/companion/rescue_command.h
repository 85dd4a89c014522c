#pragma once

#include "tools/companion/command.h"
#include "tools/copy_plan.h"

namespace veyra {

/// "rescue FILE NEW-FOLDER" reads what is still to be had of a damaged database file into a new
/// one. `observer` is told of each row.
Command RescueCommand(CopyObserver observer);

}  // namespace veyra
