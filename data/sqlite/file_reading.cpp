#include "data/sqlite/file_reading.h"

#include <sqlite3.h>

#include <utility>

#include "data/ascii.h"
#include "data/file_stamp.h"

namespace veyra::sqlite {

namespace {

/// The byte of the file's head that says how it is written, and its value for a write-ahead log.
constexpr std::size_t kWriteVersion = 18;
constexpr char kWithLog = 2;

/// The name as a URI, in which all but the plainest characters are written as their bytes.
std::string Uri(const std::string& file, const std::string& options) {
  constexpr char kHex[] = "0123456789ABCDEF";
  std::string uri = "file:";
  for (const char c : file) {
    const bool is_plain = ascii::IsLetterOrDigit(c) || c == '/' || c == '.' || c == '-' || c == '_';
    const auto byte = static_cast<unsigned char>(c);
    uri += is_plain ? std::string(1, c) : std::string{'%', kHex[byte / 16], kHex[byte % 16]};
  }
  return uri + "?" + options;
}

}  // namespace

FilesBeside::FilesBeside(const std::string& file)
    : HasLog(StampOf(file + "-wal").has_value()), HasIndex(StampOf(file + "-shm").has_value()) {}

FileReading::FileReading(const std::string& file, const WaitPolicy& policy)
    : file_(file), beside_(file) {
  auto plain = std::make_unique<Database>(file, file, OpenMode::ReadOnly, policy);
  if (plain->FirstBytes(kWriteVersion + 1)[kWriteVersion] != kWithLog) {
    reader_ = std::make_unique<Reader>(std::move(plain));
  } else if (beside_.HasLog && beside_.HasIndex) {
    Open(Uri(file, "readonly_shm=1"), policy);
  } else {
    hold_ = std::move(plain);
    OpenUnlocked(policy);
  }
}

void FileReading::Open(const std::string& location, const WaitPolicy& policy) {
  reader_ = std::make_unique<Reader>(
      std::make_unique<Database>(location, file_, OpenMode::ReadOnly, policy));
}

void FileReading::OpenUnlocked(const WaitPolicy& policy) {
  hold_->HoldShared();
  if (!beside_.HasLog) {
    Open(Uri(file_, "immutable=1"), policy);
    return;
  }
  // A log that lost its index: SQLite makes one in memory for a program that has the file alone.
  Open(Uri(file_, "vfs=unix-none"), policy);
  sqlite3_db_config(reader_->database().handle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
  reader_->database().Execute("PRAGMA locking_mode = EXCLUSIVE");
}

bool FileReading::HasChanged() const {
  return IsUnlocked() && FilesBeside(file_) != beside_;
}

}  // namespace veyra::sqlite
