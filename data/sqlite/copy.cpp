#include "data/sqlite/copy.h"

#include <sqlite3.h>
#include <unistd.h>

#include <chrono>

#include "data/errors.h"
#include "data/new_file.h"

namespace veyra::sqlite {

namespace {

constexpr std::chrono::milliseconds kNoWait{0};
constexpr int kAllPages = -1;

void CopyPages(Database& source, Database& target) {
  target.Execute("PRAGMA synchronous = OFF");
  sqlite3_backup* backup = sqlite3_backup_init(target.handle(), "main", source.handle(), "main");
  if (backup == nullptr) {
    target.Check(sqlite3_errcode(target.handle()));
  }
  const int code = sqlite3_backup_step(backup, kAllPages);
  sqlite3_backup_finish(backup);
  if (code == SQLITE_BUSY || code == SQLITE_LOCKED) {
    source.Check(code);
  }
  target.Check(code == SQLITE_DONE ? SQLITE_OK : code);
}

}  // namespace

void CopyDatabase(Database& source, const std::string& new_file) {
  MakeEmptyFile(new_file);
  try {
    Database target(new_file, new_file, OpenMode::ReadWrite, kNoWait);
    CopyPages(source, target);
  } catch (const Error&) {
    unlink(new_file.c_str());
    unlink((new_file + "-journal").c_str());
    throw;
  }
}

}  // namespace veyra::sqlite
