#include "tools/companion/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <ostream>

#include "data/errors.h"
#include "tools/companion/parser_words.h"
#include "tools/plain_text.h"

namespace veyra {
namespace {

constexpr const char* kName = "veyra-data: ";
constexpr std::size_t kWidth = 88;
constexpr const char* kVersion = "veyra-data " VEYRA_VERSION;

/// The parser takes its arguments from the back.
Arguments Reversed(Arguments arguments) {
  std::reverse(arguments.begin(), arguments.end());
  return arguments;
}

bool IsFirst(const std::string& word, const Arguments& arguments) {
  return !arguments.empty() && arguments.front() == word;
}

/// Adds a command to a program; `action` is what is to be done when it has been named.
void AddCommand(CLI::App& program, const Command& command, const Streams& streams,
                Command::Action& action) {
  CLI::App* const app = program.add_subcommand(command.Name, streams.InWords(command.Summary));
  app->footer(Wrapped(streams.InWords(command.Details), kWidth));
  app->set_version_flag("--version", kVersion);
  app->callback([&action, declared = command.Declare(*app)]() { action = declared; });
  TranslateHelp(*app, streams.Language);
}

ExitStatus Answer(const CLI::App& program, const CLI::ParseError& error, Streams& streams) {
  if (error.get_exit_code() == 0) {
    program.exit(error, streams.Out, streams.Err);
    return ExitStatus::Fine;
  }
  streams.Err << kName << PlainLines(streams.InWords(WordsOf(error.what()))) << '\n';
  streams.Report(Phrase::Tr("Try \"veyra-data --help\"."));
  return ExitStatus::Failed;
}

ExitStatus Fail(const Phrase& failure, Streams& streams) {
  streams.Err << kName << PlainLines(streams.InWords(failure)) << '\n';
  return ExitStatus::Failed;
}

}  // namespace

ExitStatus RunCommand(const Command& command, const Arguments& arguments, Streams& streams) {
  CLI::App app;
  const Command::Action action = command.Declare(app);
  app.parse(Reversed(arguments));
  return action(streams);
}

ExitStatus RunCommandLine(const std::vector<Command>& commands, const Arguments& arguments,
                          Streams& streams) {
  CLI::App program(streams.InWords(Phrase::Tr("Makes and looks after the data of Veyra Calendar.")),
                   "veyra-data");
  program.require_subcommand(1);
  program.set_version_flag("--version", kVersion);
  program.footer(streams.InWords(
      Phrase::Tr("Exit status: 0 fine, 1 something found or nothing done, 2 failed.")));
  TranslateHelp(program, streams.Language);
  Command::Action action;
  // To declare the options of all takes longer than a short command.
  const bool names_one = std::any_of(commands.begin(), commands.end(), [&](const Command& command) {
    return IsFirst(command.Name, arguments);
  });
  for (const Command& command : commands) {
    if (!names_one || IsFirst(command.Name, arguments)) {
      AddCommand(program, command, streams, action);
    }
  }
  try {
    program.parse(Reversed(arguments));
    return action(streams);
  } catch (const CLI::ParseError& error) {
    return Answer(program, error, streams);
  } catch (const Error& error) {
    return Fail(ReportText(error.report(), "\n"), streams);
  } catch (const std::exception& error) {
    return Fail(error.what(), streams);
  }
}

}  // namespace veyra
