#pragma once

#include <sqlite3.h>

#include <stdexcept>
#include <string>

namespace veyra {

/// Another program that uses a SQLite file by SQLite's own means: makes it when it is not there,
/// and holds it until it is dropped.
class ForeignProgram {
 public:
  explicit ForeignProgram(const std::string& file) {
    const int code = sqlite3_open(file.c_str(), &handle_);
    if (code != SQLITE_OK) {
      throw std::runtime_error(sqlite3_errstr(code));
    }
  }
  ~ForeignProgram() { sqlite3_close(handle_); }
  ForeignProgram(const ForeignProgram&) = delete;
  ForeignProgram& operator=(const ForeignProgram&) = delete;

  void Run(const std::string& sql) { Rows(sql); }

  /// The rows of a query, a line each, columns set off by "|".
  std::string Rows(const std::string& sql) {
    std::string text;
    const auto add_row = [](void* lines, int count, char** values, char**) {
      auto& all = *static_cast<std::string*>(lines);
      for (int i = 0; i < count; ++i) {
        all += (i == 0 ? "" : "|") + std::string(values[i] == nullptr ? "NULL" : values[i]);
      }
      all += "\n";
      return 0;
    };
    if (sqlite3_exec(handle_, sql.c_str(), add_row, &text, nullptr) != SQLITE_OK) {
      throw std::runtime_error(sqlite3_errmsg(handle_));
    }
    return text;
  }

 private:
  sqlite3* handle_ = nullptr;
};

}  // namespace veyra
