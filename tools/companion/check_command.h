#pragma once

#include "tools/companion/command.h"

namespace veyra {

/// "check FILE": goes through an Access database file and prints what is wrong with it, a line
/// each; ends with Found when there is anything. The file is only read.
Command CheckCommand();

}  // namespace veyra
