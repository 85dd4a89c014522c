#include "data/sqlite/trouble.h"

#include <sqlite3.h>
#include <sys/statvfs.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <vector>

#include "data/sqlite/sqlite_errors.h"

namespace veyra::sqlite {
namespace {

constexpr int kPieceBytes = 65536;

/// The result code of reading the whole file; SQLITE_OK when every byte can be read.
int ReadWhole(sqlite3_file* file) {
  sqlite3_int64 size = 0;
  if (const int code = file->pMethods->xFileSize(file, &size); code != SQLITE_OK) {
    return code;
  }
  std::vector<char> piece(kPieceBytes);
  for (sqlite3_int64 at = 0; at < size; at += kPieceBytes) {
    const int count = static_cast<int>(std::min<sqlite3_int64>(kPieceBytes, size - at));
    const int code = file->pMethods->xRead(file, piece.data(), count, at);
    if (code != SQLITE_OK && code != SQLITE_IOERR_SHORT_READ) {
      return code;
    }
  }
  return SQLITE_OK;
}

enum class Finding { Whole, Damaged, Unknown };

int TakeAnswer(void* is_whole, int, char** columns, char**) {
  *static_cast<bool*>(is_whole) = columns[0] != nullptr && std::string(columns[0]) == "ok";
  return 0;
}

Finding CheckStructure(const std::string& location) {
  sqlite3* handle = nullptr;
  constexpr int kFlags =
      SQLITE_OPEN_READONLY | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_PRIVATECACHE;
  int code = sqlite3_open_v2(location.c_str(), &handle, kFlags, nullptr);
  bool is_whole = false;
  if (code == SQLITE_OK) {
    code = sqlite3_exec(handle, "PRAGMA integrity_check(1)", TakeAnswer, &is_whole, nullptr);
  }
  sqlite3_close(handle);
  if (code == SQLITE_OK) {
    return is_whole ? Finding::Whole : Finding::Damaged;
  }
  return LooksDamaged(code) ? Finding::Damaged : Finding::Unknown;
}

bool MayWrite(int code) {
  switch (code) {
    case SQLITE_IOERR_SHMSIZE:
    case SQLITE_IOERR_SHMMAP:
    case SQLITE_IOERR_SHMOPEN:
    case SQLITE_IOERR_WRITE:
    case SQLITE_IOERR_FSYNC:
    case SQLITE_IOERR_DIR_FSYNC:
    case SQLITE_IOERR_TRUNCATE:
      return true;
    default:
      return (code & 0xFF) == SQLITE_CANTOPEN;
  }
}

bool HasNoRoom(const std::string& file) {
  struct statvfs status {};
  const std::filesystem::path folder = std::filesystem::path(file).parent_path();
  constexpr fsblkcnt_t kNextToNothing = 8;
  return statvfs(folder.c_str(), &status) == 0 && status.f_blocks > 0 &&
         status.f_bavail < kNextToNothing;
}

}  // namespace

void ThrowForDamage(const std::string& location, const std::string& file, int code,
                    sqlite3_file* open_file) {
  if (open_file == nullptr || open_file->pMethods == nullptr) {
    ThrowError(file, code, {});
  }
  if (ReadWhole(open_file) != SQLITE_OK) {
    ThrowError(file, SQLITE_IOERR_READ, {});
  }
  switch (CheckStructure(location)) {
    case Finding::Damaged:
      ThrowError(file, code, {});
    case Finding::Whole:
      throw PassingTrouble(
          {file,
           Phrase::Tr("The disk gave wrong data for a moment. The file was checked and is whole."),
           Phrase::Tr(
               "Try again. If it happens again, have the disk or the network folder looked at.")});
    case Finding::Unknown:
      break;
  }
  throw DatabaseError(
      {file,
       Phrase::Tr("What was read of the file makes no sense, and the file could not be checked."),
       Phrase::Tr("Close other programs that use the file, and try again. Have the disk looked at "
                  "if it happens again.")});
}

bool IsForFullDisk(sqlite3* handle, const std::string& file, int code) {
  if (!MayWrite(code)) {
    return false;
  }
  const int system_error = sqlite3_system_errno(handle);
  return system_error == ENOSPC || system_error == EDQUOT || HasNoRoom(file);
}

}  // namespace veyra::sqlite
