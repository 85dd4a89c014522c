#pragma once

#include <sqlite3.h>

#include <functional>
#include <string>

namespace veyra {

/// A disk between SQLite and the files, on which anything may go wrong: it is asked before each
/// read, write, flush, cut and removal of a file, and answers SQLITE_OK, or the failure that SQLite
/// is to meet; or it kills the program. In place for all files that are opened while it lives;
/// there may be one at a time.
class FaultyDisk {
 public:
  enum class Call { Read, Write, Flush, Cut, Remove };
  using Answer = std::function<int(const std::string& file, Call call)>;

  explicit FaultyDisk(Answer answer);
  ~FaultyDisk();
  FaultyDisk(const FaultyDisk&) = delete;
  FaultyDisk& operator=(const FaultyDisk&) = delete;

 private:
  sqlite3_vfs disk_{};
};

}  // namespace veyra
