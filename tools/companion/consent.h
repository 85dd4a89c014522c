#pragma once

#include <string>

#include "tools/companion/command.h"

namespace veyra {

/// Asks, on the stream of reports, and returns whether the answer was "y" or "yes". No answer at
/// all is none.
bool IsConsented(const std::string& question, Streams& streams);

}  // namespace veyra
