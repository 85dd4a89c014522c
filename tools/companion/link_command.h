#pragma once

#include "tools/companion/command.h"

namespace veyra {

/// "link": makes the link to a calendar that is on a server already, where no Calendar.mdb is.
Command LinkCommand();

}  // namespace veyra
