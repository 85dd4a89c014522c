#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace veyra {

/// How a command ended: the exit status of veyra-data.
enum class ExitStatus {
  Fine = 0,    ///< It was done, and there is nothing to say.
  Found = 1,   ///< Something was found that somebody should see to, or there was nothing to do.
  Failed = 2,  ///< It could not be done, or was not understood; nothing was changed.
};

/// What a command reads from and writes to.
struct Streams {
  std::istream& In;
  std::ostream& Out;  ///< What was asked for.
  std::ostream& Err;  ///< Reports, and the progress of long work.
};

/// A subcommand of veyra-data, each in a file of its own.
struct Command {
  /// Does it. Throws Error or std::filesystem::filesystem_error when that fails.
  using Action = std::function<ExitStatus(Streams& streams)>;

  std::string Name;     ///< "new"
  std::string Summary;  ///< What it does, in one line.
  std::string Details;  ///< What else there is to know, with an example, in whole lines.

  /// Declares the command's arguments, and returns what is to be done once they have been parsed.
  std::function<Action(CLI::App& app)> Declare;
};

/// What stands on a command line after the name of the program, or of the subcommand.
using Arguments = std::vector<std::string>;

/// Parses the arguments of one command and runs it. Throws CLI::ParseError before anything is done,
/// else what its Action throws.
ExitStatus RunCommand(const Command& command, const Arguments& arguments, Streams& streams);

}  // namespace veyra
