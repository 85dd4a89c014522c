#pragma once

#include "tools/companion/command.h"
#include "tools/companion/surroundings.h"

namespace veyra {

/// "list [FOLDER]": prints the bookings of a day, a week, a month or any range, in the lines of the
/// month cells, or the times that are free. The calendar is only read, and may be open.
Command ListCommand(Surroundings surroundings);

}  // namespace veyra
