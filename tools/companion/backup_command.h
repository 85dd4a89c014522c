#pragma once

#include "tools/companion/command.h"
#include "tools/companion/surroundings.h"

namespace veyra {

/// "backup FILE [FOLDER]" and "backup --rolling [FOLDER]": makes a consistent copy of the calendar,
/// which may be open, checks it and puts it in place when it is whole. Rolling copies lie in the
/// data folder's "backups", by their days; those that are no longer needed go.
Command BackupCommand(Surroundings surroundings);

}  // namespace veyra
