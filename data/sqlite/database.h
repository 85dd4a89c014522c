#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "data/waiting.h"

struct sqlite3;
struct sqlite3_file;

namespace veyra::sqlite {

enum class OpenMode { ReadOnly, ReadWrite };

/// An open handle on a SQLite file, which must exist.
class Database {
 public:
  /// Opens the file. `location` is its absolute name, or a URI that begins with "file:"; `file` is
  /// the name to be used in reports. Throws DatabaseError; that the file is a sound database shows
  /// only when it is first read.
  Database(const std::string& location, std::string file, OpenMode mode, const WaitPolicy& policy);
  ~Database();
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  sqlite3* handle() const { return handle_; }
  const std::string& file() const { return file_; }

  /// How to wait from now on for another program to let go of the file.
  void SetWaitPolicy(const WaitPolicy& policy);

  /// Runs statements that give no rows. Throws as ThrowError does.
  void Execute(const std::string& sql);

  /// The file's first bytes; a shorter file is filled up with zero bytes. Takes no lock.
  std::string FirstBytes(std::size_t count);

  /// Bytes of the file from anywhere in it; what is past its end is zero. Takes no lock, and knows
  /// nothing of a log.
  std::string ReadBytes(std::int64_t from, std::size_t count);

  /// The beginning of the log's index. REQUIRES: the file is kept with a log, and has been read.
  std::string LogIndexHead(std::size_t count);

  /// Lets nobody take the file for itself, and so nobody end the use of its log, until this is
  /// dropped. REQUIRES: nothing is read through this object afterwards but ReadBytes.
  void HoldShared();

  /// Whether a program, this one included, is in the middle of a change of the file.
  bool IsBeingChanged();

  /// Reads the schema, by which a file that is locked or damaged shows itself, and throws
  /// DatabaseError when the file is shorter than the pages that it should have.
  void CheckWhole();

  /// A number that differs from an earlier one when the file was changed in between, by this
  /// program or, as far as was noticed when the file was last read, by another.
  unsigned Version();

  /// Cuts off the log what a change that failed may have left behind its last whole change, so that
  /// no later program takes it for one. Returns false when that is not on the disk. REQUIRES: no
  /// change is open.
  bool DropLogOfFailedChange();

  /// Whether a change waits for the log to be flushed, from now on. REQUIRES: no change is open.
  void SetFlushesEachChange(bool flushes);

  /// Sees to it that all that is in the log survives a loss of power. When the disk fails all of it
  /// is written once more, for what was to be written may be lost then. Throws DatabaseError when
  /// that fails, too. REQUIRES: the file is kept with a log; no change is open.
  void FlushLog();

  /// Changes, in a change of its own, a number in the file's head that tells nobody anything;
  /// unless another program is changing the file just now.
  void ChangeHead();

  /// To be told the result code of every call that may have waited, before it is looked at.
  void EndWait() { wait_->End(); }

  /// Throws what the result code stands for, unless it is SQLITE_OK; of one that says the file is
  /// damaged, what is found to be true.
  void Check(int code);

 private:
  void ReadAsWhole();
  sqlite3_file* MainFile();
  sqlite3_file* OpenFile();
  bool CutLog();
  sqlite3_file* LogFile();
  int RewriteLog(sqlite3_file* log);

  sqlite3* handle_ = nullptr;
  std::string location_;
  std::string file_;
  std::unique_ptr<Wait> wait_;
};

/// A change of several statements that is carried out whole or not at all. It takes the write lock
/// at once, so what it reads is what it changes. Rolled back unless committed.
class Transaction {
 public:
  explicit Transaction(Database& database);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  /// The change is on the disk when this returns. When it throws it is not made, as far as this
  /// program sees; but where the disk has failed another may find it made.
  void Commit();

 private:
  Database& database_;
  bool open_ = true;
};

}  // namespace veyra::sqlite
