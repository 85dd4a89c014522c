#pragma once

#include "tools/companion/command.h"
#include "tools/companion/surroundings.h"

namespace veyra {

/// "check [FOLDER|FILE] [--mend]": prints a line for everything that is wrong with a calendar, or
/// with one database file whatever it holds, and what to do about it. With --mend it does, all at
/// once or not at all, what loses nothing: it asks first and keeps a copy. Without, the calendar is
/// only read.
Command CheckCommand(Surroundings surroundings);

}  // namespace veyra
