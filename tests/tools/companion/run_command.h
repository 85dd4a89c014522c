#pragma once

#include <sstream>

#include "tools/companion/command.h"

namespace veyra {

/// Runs a command whose output goes to `out`, and whose input is empty.
inline ExitStatus RunWith(const Command& command, const Arguments& arguments,
                          std::ostringstream& out) {
  std::istringstream nothing;
  std::ostringstream reports;
  Streams streams{nothing, out, reports};
  return RunCommand(command, arguments, streams);
}

}  // namespace veyra
