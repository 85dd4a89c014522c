#pragma once

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "data/errors.h"
#include "data/phrase.h"
#include "tools/translation.h"

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

/// What a command reads from and writes to, and in which language it speaks to people. What other
/// programs read is written to the streams themselves, and is the same in every language.
struct Streams {
  std::istream& In;
  std::ostream& Out;  ///< What was asked for.
  std::ostream& Err;  ///< Reports, and the progress of long work.
  Phrase::Translator Language = Untranslated;

  /// The text as people read it.
  std::string InWords(const Phrase& text) const { return text.TranslatedBy(Language); }

  /// Writes a line of what was asked for.
  void Tell(const Phrase& line) const;

  /// Writes a report, where there is one, to what was asked for.
  void TellNotice(const std::optional<veyra::Report>& notice) const;

  /// Writes a line to the stream of reports.
  void Report(const Phrase& line) const;
};

/// A subcommand of veyra-data, each in a file of its own.
struct Command {
  /// Does it. Throws Error or std::filesystem::filesystem_error when that fails.
  using Action = std::function<ExitStatus(Streams& streams)>;

  std::string Name;  ///< "new"
  Phrase Summary;    ///< What it does, in one line.
  Phrase Details;    ///< What else there is to know, with an example, in whole lines.

  /// Declares the command's arguments, and returns what is to be done once they have been parsed.
  std::function<Action(CLI::App& app)> Declare;
};

/// What stands on a command line after the name of the program, or of the subcommand.
using Arguments = std::vector<std::string>;

/// Parses the arguments of one command and runs it. Throws CLI::ParseError before anything is done,
/// else what its Action throws.
ExitStatus RunCommand(const Command& command, const Arguments& arguments, Streams& streams);

}  // namespace veyra
