#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "tools/command.h"

namespace veyra {

/// The exit statuses of veyra-data.
enum ExitStatus {
  kDone = 0,
  kFailed = 1,         ///< It was tried and failed; the report is on the error stream.
  kNotUnderstood = 2,  ///< Nothing was done; the error stream says what was not understood.
};

/// Runs the subcommand that the arguments name, or answers "--help" and "--version". What was asked
/// for goes to `out`, reports go to `err`. Throws nothing.
ExitStatus RunCommandLine(const std::vector<Command>& commands, const Arguments& arguments,
                          std::ostream& out, std::ostream& err);

/// Takes an option and the argument after it, its value, out of `arguments`; nothing when the
/// option is not there. Throws UsageError when it is the last argument.
std::optional<std::string> TakeOptionValue(Arguments& arguments, const std::string& option);

/// The arguments that are no options, in their order. Each option among them must be one of `known`
/// and is appended to `given`. After "--" nothing is an option any more.
/// Throws UsageError when an option is unknown.
Arguments WithoutOptions(const Arguments& arguments, const Arguments& known, Arguments& given);

}  // namespace veyra
