#pragma once

#include <unistd.h>

#include <cstdio>
#include <stdexcept>
#include <string>

#include "data/calendar_link.h"

namespace veyra {

/// What a command printed, without its last line break. Throws when it fails.
inline std::string OutputOf(const std::string& command) {
  FILE* const pipe = ::popen(command.c_str(), "r");
  std::string output;
  for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) {
    output += static_cast<char>(c);
  }
  if (::pclose(pipe) != 0) {
    throw std::runtime_error("failed: " + command);
  }
  output.erase(output.find_last_not_of('\n') + 1);
  return output;
}

/// A database of this program of tests alone, on the server that a run of CTest shares or on one of
/// its own. It goes when the program ends.
class TestDatabase {
 public:
  static TestDatabase& Get() {
    static TestDatabase database;
    return database;
  }

  /// The folder of the server's socket.
  const std::string& Folder() const { return folder_; }

  /// The database as a link names it.
  std::string Server() const { return "postgresql://veyra@/" + name_ + "?host=" + folder_; }

  /// A link to a schema that no other test has.
  CalendarLink NewLink() {
    return {.Server = Server(), .Schema = "calendar " + std::to_string(++schemas_)};
  }

  /// Runs SQL as another program does, and returns what it gives, a line a row.
  std::string Run(const std::string& sql) const {
    std::string quoted;
    for (const char c : sql) {
      quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    }
    return OutputOf("psql -X -q -A -t -v ON_ERROR_STOP=1 -h " + folder_ + " -U veyra -d " + name_ +
                    " -c '" + quoted + "' 2>&1");
  }

 private:
  TestDatabase() {
    const std::string found = OutputOf(VEYRA_TEST_SERVER " database " VEYRA_SHARED_SERVER " " +
                                       std::to_string(::getpid()));
    const std::size_t blank = found.find(' ');
    folder_ = found.substr(0, blank);
    name_ = found.substr(blank + 1);
  }
  ~TestDatabase() {
    try {
      OutputOf(VEYRA_TEST_SERVER " drop " + folder_ + " " + name_);
    } catch (const std::exception&) {
      // It goes with the server.
    }
  }

  std::string folder_;
  std::string name_;
  int schemas_ = 0;
};

}  // namespace veyra
