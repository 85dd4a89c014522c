#pragma once

#include "tools/companion/command.h"

namespace veyra {

/// "show FILE": prints what kind of database file it is, and its tables with their columns,
/// indexes and numbers of rows. The file is only read, and nothing is left beside it.
Command ShowCommand();

}  // namespace veyra
