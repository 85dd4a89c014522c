#include "data/sqlite/database.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

#include "data/errors.h"
#include "data/sqlite/sqlite_errors.h"
#include "data/sqlite/trouble.h"
#include "data/sqlite/wal_file.h"
#include "data/store_errors.h"

namespace veyra::sqlite {

namespace {

/// Guards against files made to do harm; none of it costs anything.
void SetDefences(sqlite3* handle) {
  sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0, nullptr);
  // A quoted name that is not a column must be an error, not a text.
  sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  sqlite3_exec(handle, "PRAGMA cell_size_check = ON", nullptr, nullptr, nullptr);
}

int TakeNumber(void* number, int, char** columns, char**) {
  *static_cast<std::int64_t*>(number) = std::strtoll(columns[0], nullptr, 10);
  return 0;
}

/// SQLite calls it whenever another program holds what it needs.
int GoesOnWaiting(void* wait, int) {
  return static_cast<Wait*>(wait)->GoOn() ? 1 : 0;
}

constexpr std::size_t kLogIndexBytes = 20;

struct LogSize {
  std::uint32_t Frames = 0;
  sqlite3_int64 Bytes = 0;
};

/// How long the log is as its index begins.
LogSize SizeOfLog(const std::string& index) {
  constexpr std::size_t kPageSizeAt = 14;
  constexpr std::size_t kFramesAt = 16;
  constexpr sqlite3_int64 kHeadBytes = 32;
  constexpr sqlite3_int64 kFrameHeadBytes = 24;
  std::uint16_t page_size = 0;
  LogSize size;
  std::memcpy(&page_size, index.data() + kPageSizeAt, sizeof page_size);
  std::memcpy(&size.Frames, index.data() + kFramesAt, sizeof size.Frames);
  // The largest size, which does not fit there, stands as 1.
  const sqlite3_int64 frame = kFrameHeadBytes + (page_size == 1 ? 65536 : page_size);
  size.Bytes = size.Frames == 0 ? 0 : kHeadBytes + size.Frames * frame;
  return size;
}

}  // namespace

Database::Database(const std::string& location, std::string file, OpenMode mode,
                   const WaitPolicy& policy)
    : location_(location), file_(std::move(file)) {
  const int access = mode == OpenMode::ReadOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
  const int flags = access | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_PRIVATECACHE;
  const int code = sqlite3_open_v2(location.c_str(), &handle_, flags, nullptr);
  if (code != SQLITE_OK) {
    const std::string detail = handle_ != nullptr ? sqlite3_errmsg(handle_) : sqlite3_errstr(code);
    sqlite3_close(std::exchange(handle_, nullptr));
    ThrowError(file_, code, detail);
  }
  sqlite3_extended_result_codes(handle_, 1);
  SetDefences(handle_);
  SetWaitPolicy(policy);
}

Database::~Database() {
  sqlite3_close(handle_);
}

void Database::SetWaitPolicy(const WaitPolicy& policy) {
  wait_ = std::make_unique<Wait>(policy);
  sqlite3_busy_handler(handle_, GoesOnWaiting, wait_.get());
}

void Database::Execute(const std::string& sql) {
  Check(sqlite3_exec(handle_, sql.c_str(), nullptr, nullptr, nullptr));
}

std::string Database::FirstBytes(std::size_t count) {
  return ReadBytes(0, count);
}

std::string Database::ReadBytes(std::int64_t from, std::size_t count) {
  sqlite3_file* file = MainFile();
  std::string bytes(count, '\0');
  const int code = file->pMethods->xRead(file, bytes.data(), static_cast<int>(count), from);
  if (code != SQLITE_IOERR_SHORT_READ) {
    Check(code);
  }
  return bytes;
}

std::string Database::LogIndexHead(std::size_t count) {
  constexpr int kRegionBytes = 32768;
  sqlite3_file* file = MainFile();
  void volatile* region = nullptr;
  Check(file->pMethods->xShmMap(file, 0, kRegionBytes, 0, &region));
  std::string bytes(count, '\0');
  const auto* from = static_cast<const char volatile*>(region);
  if (from != nullptr) {
    std::copy_n(from, count, bytes.begin());
  }
  return bytes;
}

void Database::HoldShared() {
  sqlite3_file* file = MainFile();
  Check(file->pMethods->xLock(file, SQLITE_LOCK_SHARED));
}

bool Database::IsBeingChanged() {
  sqlite3_file* file = MainFile();
  int is_reserved = 0;
  Check(file->pMethods->xCheckReservedLock(file, &is_reserved));
  return is_reserved != 0;
}

bool Database::DropLogOfFailedChange() {
  if (sqlite3_exec(handle_, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr) != SQLITE_OK) {
    return false;
  }
  const bool is_dropped = CutLog();
  sqlite3_exec(handle_, "ROLLBACK", nullptr, nullptr, nullptr);
  return is_dropped;
}

void Database::ChangeHead() {
  std::int64_t number = 0;
  Check(sqlite3_exec(handle_, "PRAGMA user_version", TakeNumber, &number, nullptr));
  const std::string next = std::to_string(number % INT32_MAX + 1);
  sqlite3_busy_handler(handle_, nullptr, nullptr);
  const int code =
      sqlite3_exec(handle_, ("PRAGMA user_version = " + next).c_str(), nullptr, nullptr, nullptr);
  sqlite3_busy_handler(handle_, GoesOnWaiting, wait_.get());
  if ((code & 0xFF) != SQLITE_BUSY) {
    Check(code);
  }
}

/// The log's index counts the frames of whole changes only.
bool Database::CutLog() {
  const LogSize size = SizeOfLog(LogIndexHead(kLogIndexBytes));
  sqlite3_file* const log = LogFile();
  return log != nullptr && log->pMethods->xTruncate(log, size.Bytes) == SQLITE_OK &&
         log->pMethods->xSync(log, SQLITE_SYNC_NORMAL) == SQLITE_OK;
}

/// Nothing while the log is not open.
sqlite3_file* Database::LogFile() {
  sqlite3_file* log = nullptr;
  const int code = sqlite3_file_control(handle_, "main", SQLITE_FCNTL_JOURNAL_POINTER, &log);
  return code == SQLITE_OK && log != nullptr && log->pMethods != nullptr ? log : nullptr;
}

void Database::SetFlushesEachChange(bool flushes) {
  Execute(flushes ? "PRAGMA synchronous = FULL" : "PRAGMA synchronous = NORMAL");
}

void Database::FlushLog() {
  sqlite3_file* const log = LogFile();
  if (log == nullptr || log->pMethods->xSync(log, SQLITE_SYNC_NORMAL) == SQLITE_OK) {
    return;
  }
  // Nobody else may write to the log meanwhile.
  const Transaction alone(*this);
  Check(RewriteLog(log));
}

/// What the system still has of the log may not be what was written: so it is compared with the
/// count of frames in the log's index.
int Database::RewriteLog(sqlite3_file* log) {
  const LogSize size = SizeOfLog(LogIndexHead(kLogIndexBytes));
  if (size.Frames == 0) {
    return SQLITE_OK;  // All of it is in the file, which was flushed.
  }
  std::string bytes(static_cast<std::size_t>(size.Bytes), '\0');
  int code = log->pMethods->xRead(log, bytes.data(), static_cast<int>(bytes.size()), 0);
  if (code == SQLITE_OK && ReadWal(file_ + "-wal").Frames != size.Frames) {
    code = SQLITE_IOERR_FSYNC;
  }
  if (code == SQLITE_OK) {
    code = log->pMethods->xWrite(log, bytes.data(), static_cast<int>(bytes.size()), 0);
  }
  return code == SQLITE_OK ? log->pMethods->xSync(log, SQLITE_SYNC_NORMAL) : code;
}

void Database::CheckWhole() {
  try {
    ReadAsWhole();
  } catch (const PassingTrouble&) {
    ReadAsWhole();
  }
}

void Database::ReadAsWhole() {
  Execute("SELECT 1 FROM sqlite_schema LIMIT 1");
  std::int64_t whole_size = 0;
  Check(sqlite3_exec(handle_,
                     "SELECT page_count * page_size FROM pragma_page_count, pragma_page_size",
                     TakeNumber, &whole_size, nullptr));
  // Pages may stand in the log and not yet in the file. SQLite itself counts a part of a page at
  // the file's end as a whole one.
  std::error_code no_log;
  const auto log_size = std::filesystem::file_size(file_ + "-wal", no_log);
  if (!no_log && log_size > 0) {
    return;
  }
  sqlite3_file* file = MainFile();
  sqlite3_int64 size = 0;
  Check(file->pMethods->xFileSize(file, &size));
  if (size < whole_size) {
    ThrowError(file_, SQLITE_CORRUPT, {});
  }
}

unsigned Database::Version() {
  unsigned version = 0;
  Check(sqlite3_file_control(handle_, "main", SQLITE_FCNTL_DATA_VERSION, &version));
  return version;
}

sqlite3_file* Database::MainFile() {
  sqlite3_file* file = nullptr;
  Check(sqlite3_file_control(handle_, "main", SQLITE_FCNTL_FILE_POINTER, &file));
  return file;
}

sqlite3_file* Database::OpenFile() {
  sqlite3_file* file = nullptr;
  const int code = sqlite3_file_control(handle_, "main", SQLITE_FCNTL_FILE_POINTER, &file);
  return code == SQLITE_OK ? file : nullptr;
}

void Database::Check(int code) {
  EndWait();
  if (IsBusy(code) && wait_->WasCancelled()) {
    throw WaitCancelledError(
        {file_, Phrase::Tr("Another program is using the file."),
         Phrase::Tr("You did not want to wait. Try again when it has finished.")});
  }
  if (LooksDamaged(code)) {
    ThrowForDamage(location_, file_, code, OpenFile());
  }
  if (IsForFullDisk(handle_, file_, code)) {
    ThrowError(file_, SQLITE_FULL, {});
  }
  if (code != SQLITE_OK) {
    ThrowError(file_, code, sqlite3_errmsg(handle_));
  }
}

Transaction::Transaction(Database& database) : database_(database) {
  SayingNothingSaved([&] { database_.Execute("BEGIN IMMEDIATE"); });
}

Transaction::~Transaction() {
  // A failure that SQLite itself rolled back leaves nothing to roll back: its answer is no news.
  if (open_) {
    sqlite3_exec(database_.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
  }
}

void Transaction::Commit() {
  SayingNothingSaved([&] { database_.Execute("COMMIT"); });
  open_ = false;
}

}  // namespace veyra::sqlite
