#pragma once

#include <sys/wait.h>

#include <cstdlib>
#include <string>

#include "tests/temp_folder.h"
#include "tools/companion/command.h"

namespace veyra {

/// What a run of a program left: 0 to 2 of veyra-data itself, more when it was killed.
struct Ended {
  int Status = -1;
  std::string Out;
  std::string Err;
};

inline std::string ShellQuoted(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) {
    quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  }
  return quoted + "'";
}

/// Runs a line of the shell, `input` being what it reads.
inline Ended RunShell(const std::string& script, const std::string& input = {}) {
  const TempFolder streams;
  streams.Write("in", input);
  const auto name = [&](const char* stream) { return ShellQuoted(streams.File(stream).string()); };
  const std::string line =
      "{ " + script + "\n} <" + name("in") + " >" + name("out") + " 2>" + name("err");
  const int status = std::system(line.c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), streams.Read("out"),
          streams.Read("err")};
}

/// The built veyra-data with these arguments, as the shell understands it, in English.
inline std::string ProgramLine(const Arguments& arguments,
                               const std::string& program = VEYRA_DATA_PROGRAM) {
  std::string line = "LC_ALL=C " + ShellQuoted(program);
  for (const std::string& argument : arguments) {
    line += " " + ShellQuoted(argument);
  }
  return line;
}

/// The same in the language that these variables ask for: "LANG=de_DE.UTF-8".
inline Ended RunProgramIn(const std::string& variables, const Arguments& arguments,
                          const std::string& input = {}) {
  std::string line = "unset LANGUAGE LC_ALL LC_MESSAGES LANG; " + variables;
  line += " " + ShellQuoted(VEYRA_DATA_PROGRAM);
  for (const std::string& argument : arguments) {
    line += " " + ShellQuoted(argument);
  }
  return RunShell(line, input);
}

/// Runs the built veyra-data as a process of its own.
inline Ended RunProgram(const Arguments& arguments, const std::string& input = {}) {
  return RunShell(ProgramLine(arguments), input);
}

}  // namespace veyra
