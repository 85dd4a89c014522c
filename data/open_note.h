#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace veyra {

/// Somebody who has a database file open to write to it.
struct OpenUser {
  std::string User;
  std::string Machine;
  std::int64_t Process = 0;
  std::string Since;  ///< "2026-11-21 18:30:12", the time of that machine.

  bool operator==(const OpenUser&) const = default;
};

/// A database file as a program of this kind left it when it last wrote to it, and the log in which
/// the changes since then are.
struct FileMark {
  std::uint64_t Number = 0;     ///< The file's own number on its disk.
  std::int64_t Size = 0;        ///< In bytes.
  std::int64_t Written = 0;     ///< Nanoseconds since 1970.
  std::uint64_t Content = 0;    ///< A digest of its first and its last pages.
  std::uint64_t LogNumber = 0;  ///< The log's own number; 0 while there is none.

  /// The log is just being put into the file: Size and Written are those from before, and Content
  /// is a digest of the pages that are not in the log.
  bool IsTakingLog = false;

  /// While it is: what each page that is in the log was before, by its number from 1; a digest of
  /// each of its sectors.
  std::map<std::uint32_t, std::vector<std::uint64_t>> PagesBefore = {};

  bool operator==(const FileMark&) const = default;
};

/// The note that lies beside a database file for as long as it is open: a few lines of text that
/// say who has it open, and which file it is.
struct OpenNote {
  std::vector<OpenUser> Users;
  FileMark Mark;
};

/// "Calendar.mdb-open" for "Calendar.mdb".
std::string OpenNoteName(const std::string& file);

/// The note beside a file; nothing when there is none or it cannot be understood.
std::optional<OpenNote> ReadOpenNote(const std::string& file);

/// Puts a note beside a file in place of any other, whole and safe from a loss of power. Throws
/// PosixFileError.
void WriteOpenNote(const std::string& file, const OpenNote& note);

/// Removes the note, if there is one.
void RemoveOpenNote(const std::string& file);

/// This process, since now.
OpenUser ThisUser();

/// Whether a user of this machine is still running, as far as its process number tells; true for
/// one of another machine, of which nothing is known here.
bool MayBeRunning(const OpenUser& user);

bool IsOfAnotherMachine(const OpenUser& user);

/// Whether a user is running on this machine, as far as its process number tells.
bool IsRunningHere(const OpenUser& user);

/// Keeps other programs of this kind from the note until it is dropped. On a file system that knows
/// no locks, and after 5 seconds of waiting for a program that does not let go, it keeps nobody.
class OpenNoteLock {
 public:
  explicit OpenNoteLock(const std::string& file);
  ~OpenNoteLock();
  OpenNoteLock(const OpenNoteLock&) = delete;
  OpenNoteLock& operator=(const OpenNoteLock&) = delete;

 private:
  int folder_;
};

}  // namespace veyra
