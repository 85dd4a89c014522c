#pragma once

#include "tools/companion/command.h"

namespace veyra {

/// Asks, on the stream of reports, and returns whether the answer was "y" or "yes", or the same in
/// the language of the question. No answer at all is none.
bool IsConsented(const Phrase& question, Streams& streams);

}  // namespace veyra
