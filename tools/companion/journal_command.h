#pragma once

#include "tools/companion/command.h"
#include "tools/companion/surroundings.h"

namespace veyra {

/// veyra-data journal on|off|status [FOLDER] [--keep LENGTH]
Command JournalCommand(Surroundings surroundings);

}  // namespace veyra
