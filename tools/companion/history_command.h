#pragma once

#include "tools/companion/command.h"
#include "tools/companion/surroundings.h"

namespace veyra {

/// veyra-data history [FOLDER] [--facility NAME] [--on DATE] [--from DATE] [--to DATE]
/// [--guest TEXT] [--since DATE] [--until DATE] [--last N] [--full] [--json]
Command HistoryCommand(Surroundings surroundings);

}  // namespace veyra
