#pragma once

#include <vector>

#include "tools/companion/command.h"

namespace veyra {

/// Runs the subcommand that the arguments name, or answers "--help" and "--version", the help of a
/// subcommand included. Failures are reported to streams.Err. Throws nothing.
ExitStatus RunCommandLine(const std::vector<Command>& commands, const Arguments& arguments,
                          Streams& streams);

}  // namespace veyra
