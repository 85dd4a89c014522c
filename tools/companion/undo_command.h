#pragma once

#include "tools/companion/command.h"
#include "tools/companion/surroundings.h"

namespace veyra {

/// veyra-data undo [FOLDER] [--yes]
Command UndoCommand(Surroundings surroundings);

/// veyra-data restore NUMBER [FOLDER] [--yes]
Command RestoreCommand(Surroundings surroundings);

}  // namespace veyra
