#pragma once

#include <functional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace veyra {

/// What stands on a command line after the name of the program, or of the subcommand.
using Arguments = std::vector<std::string>;

/// A command line that cannot be understood; what() says why.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A subcommand of veyra-data, each in a file of its own.
struct Command {
  std::string Name;      ///< "new"
  std::string Synopsis;  ///< What follows the name: "FOLDER [--sample]".
  std::string Help;      ///< What it does, in whole lines.

  /// Does it, telling `out` in a line what was done. Throws UsageError before anything is done, and
  /// Error or std::filesystem::filesystem_error when it fails.
  std::function<void(const Arguments& arguments, std::ostream& out)> Run;
};

}  // namespace veyra
