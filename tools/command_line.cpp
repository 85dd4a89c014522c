#include "tools/command_line.h"

#include <algorithm>
#include <exception>

namespace veyra {
namespace {

constexpr const char* kHint = "Try \"veyra-data --help\".\n";

void PrintHelp(const std::vector<Command>& commands, std::ostream& out) {
  out << "veyra-data: makes and looks after the data of Veyra Calendar.\n";
  for (const Command& command : commands) {
    out << "\n  veyra-data " << command.Name << ' ' << command.Synopsis << '\n' << command.Help;
  }
  out << "\n  veyra-data --help\n  veyra-data --version\n"
         "\nExit status: 0 done, 1 failed, 2 command line not understood.\n";
}

bool Contains(const Arguments& arguments, const std::string& wanted) {
  return std::find(arguments.begin(), arguments.end(), wanted) != arguments.end();
}

bool AnswerQuestion(const std::vector<Command>& commands, const Arguments& arguments,
                    std::ostream& out) {
  const auto end_of_options = std::find(arguments.begin(), arguments.end(), "--");
  const Arguments options(arguments.begin(), end_of_options);
  if (Contains(options, "--help") || Contains(options, "-h")) {
    PrintHelp(commands, out);
    return true;
  }
  if (!options.empty() && options.front() == "--version") {
    out << "veyra-data " VEYRA_VERSION "\n";
    return true;
  }
  return false;
}

const Command& FindCommand(const std::vector<Command>& commands, const Arguments& arguments) {
  if (arguments.empty()) {
    throw UsageError("It was not said what to do.");
  }
  const auto found = std::find_if(commands.begin(), commands.end(), [&](const Command& command) {
    return command.Name == arguments.front();
  });
  if (found == commands.end()) {
    throw UsageError("There is no command \"" + arguments.front() + "\".");
  }
  return *found;
}

}  // namespace

ExitStatus RunCommandLine(const std::vector<Command>& commands, const Arguments& arguments,
                          std::ostream& out, std::ostream& err) {
  try {
    if (AnswerQuestion(commands, arguments, out)) {
      return kDone;
    }
    const Command& command = FindCommand(commands, arguments);
    command.Run({arguments.begin() + 1, arguments.end()}, out);
    return kDone;
  } catch (const UsageError& error) {
    err << "veyra-data: " << error.what() << '\n' << kHint;
    return kNotUnderstood;
  } catch (const std::exception& error) {
    err << "veyra-data: " << error.what() << '\n';
    return kFailed;
  }
}

std::optional<std::string> TakeOptionValue(Arguments& arguments, const std::string& option) {
  const auto end_of_options = std::find(arguments.begin(), arguments.end(), "--");
  const auto found = std::find(arguments.begin(), end_of_options, option);
  if (found == end_of_options) return std::nullopt;
  if (found + 1 == end_of_options) {
    throw UsageError("\"" + option + "\" needs a value after it.");
  }
  std::string value = *(found + 1);
  arguments.erase(found, found + 2);
  return value;
}

Arguments WithoutOptions(const Arguments& arguments, const Arguments& known, Arguments& given) {
  Arguments rest;
  bool options_ended = false;
  for (const std::string& argument : arguments) {
    if (options_ended || argument.size() < 2 || argument.front() != '-') {
      rest.push_back(argument);
    } else if (argument == "--") {
      options_ended = true;
    } else if (Contains(known, argument)) {
      given.push_back(argument);
    } else {
      throw UsageError("There is no option \"" + argument + "\" here.");
    }
  }
  return rest;
}

}  // namespace veyra
