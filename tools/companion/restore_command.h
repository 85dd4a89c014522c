#pragma once

#include "tools/companion/command.h"
#include "tools/companion/surroundings.h"

namespace veyra {

/// "restore-backup FILE [FOLDER]": puts a copy of the backup FILE in the place of the calendar. The
/// backup is checked first; nobody may have the calendar open. The replaced file stays beside it as
/// "Calendar-before-YYYY-MM-DD.mdb", and with it every log that belongs to it, so that none is ever
/// replayed onto the restored one. When it fails the calendar is what it was.
Command RestoreBackupCommand(Surroundings surroundings);

}  // namespace veyra
