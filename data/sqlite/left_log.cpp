#include "data/sqlite/left_log.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <system_error>

#include "data/file_stamp.h"
#include "data/open_note.h"
#include "data/private_folder.h"
#include "data/sqlite/content_digest.h"
#include "data/sqlite/database.h"
#include "data/sqlite/page_digest.h"
#include "data/sqlite/rollback_journal.h"
#include "data/sqlite/sqlite_errors.h"
#include "data/sqlite/statement.h"
#include "data/sqlite/trouble.h"
#include "data/sqlite/wal_file.h"

namespace veyra::sqlite {

namespace {

namespace fs = std::filesystem;

constexpr std::chrono::milliseconds kNoWait{0};
constexpr const char* kWal = "-wal";
constexpr const char* kIndex = "-shm";
constexpr const char* kJournal = "-journal";

/// Every program that uses the log holds a lock for reading on this byte of the log's index.
constexpr off_t kUseByte = 128;

enum class Fit { Yes, No, Unknown };

bool IsSound(Database& database) {
  try {
    Statement check(database, "PRAGMA integrity_check(1)");
    return check.Step() && check.Text(0) == "ok";
  } catch (const PassingTrouble&) {
    throw;
  } catch (const DatabaseError&) {
    return false;  // Damage that cannot even be looked through.
  }
}

/// Tries the file on a copy, with what lies beside it under that extension or, without one, alone.
bool IsSoundOnACopy(const std::string& file, const std::string& extension) {
  try {
    const PrivateFolder folder;
    const std::string copy = folder.File("copy");
    fs::copy_file(file, copy);
    if (!extension.empty()) {
      fs::copy_file(file + extension, copy + extension);
    }
    fs::permissions(copy, fs::perms::owner_read | fs::perms::owner_write);
    Database database(copy, file, OpenMode::ReadWrite, kNoWait);
    return IsSound(database);
  } catch (const fs::filesystem_error& error) {
    throw DatabaseError({file,
                         Phrase::Tr("The calendar was not closed properly, and what it left could "
                                    "not be tried on a copy: %1.",
                                    error.code().message()),
                         Phrase::Tr("Make room on the disk, or in the folder for temporary files, "
                                    "and start again. Nothing was changed.")});
  }
}

bool IsUsedByAnother(const std::string& file) {
  const int index = open((file + kIndex).c_str(), O_RDONLY | O_CLOEXEC);
  if (index < 0) {
    return false;
  }
  struct flock lock {};
  lock.l_type = F_WRLCK;
  lock.l_whence = SEEK_SET;
  lock.l_start = kUseByte;
  lock.l_len = 1;
  const bool is_held = fcntl(index, F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
  close(index);
  return is_held;
}

/// A name like that of the log that nothing bears yet: "Calendar.mdb-wal set aside
/// 2026-11-21 18.30".
std::string NameAside(const std::string& log) {
  const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  std::tm parts{};
  localtime_r(&now, &parts);
  std::array<char, 32> time{};
  std::strftime(time.data(), time.size(), "%Y-%m-%d %H.%M", &parts);
  return log + " set aside " + time.data();
}

/// Returns the name that it was given.
std::string SetAside(const std::string& log) {
  const std::string name = NameAside(log);
  std::string free_name = name;
  for (int i = 2;
       renameat2(AT_FDCWD, log.c_str(), AT_FDCWD, free_name.c_str(), RENAME_NOREPLACE) != 0; ++i) {
    if (errno != EEXIST) {
      throw DatabaseError({log,
                           Phrase::Tr("What the calendar left when it was not closed properly "
                                      "belongs to another file, and could not be set aside: %1.",
                                      std::generic_category().message(errno)),
                           Phrase::Tr("Move this file out of the folder and start again.")});
    }
    free_name = name + " (" + std::to_string(i) + ")";
  }
  return fs::path(free_name).filename().string();
}

Report NoticeOf(const std::string& file, const std::string& aside, Fit fit) {
  const Phrase cause = fit == Fit::Yes
                           ? Phrase::Tr(
                                 "The calendar was not closed properly, and its last changes "
                                 "cannot be read any more.")
                           : Phrase::Tr(
                                 "The file was replaced, perhaps by a backup, before the last "
                                 "changes of the former one "
                                 "were all in it. Those changes do not belong to this file.");
  return {file, cause,
          Phrase::Tr("They were set aside as \"%1\". Look whether the bookings are as you expect "
                     "them. When they are, you may delete what was set aside.",
                     aside)};
}

/// Chooses between the file with what lies beside it, which fits as told, and the file alone.
std::optional<Report> Choose(const std::string& file, const std::string& extension, Fit fit) {
  const std::string first = fit == Fit::No ? std::string() : extension;
  const std::string second = fit == Fit::No ? extension : std::string();
  const bool is_first_sound = IsSoundOnACopy(file, first);
  if (!is_first_sound && !IsSoundOnACopy(file, second)) {
    ThrowError(file, SQLITE_CORRUPT, {});
  }
  if (!(is_first_sound ? first : second).empty()) {
    return std::nullopt;
  }
  const std::string aside = SetAside(file + extension);
  if (extension == kWal) {
    unlink((file + kIndex).c_str());
  }
  return NoticeOf(file, aside, fit);
}

/// What is known of a file and a log that lie side by side.
struct Pair {
  const FileMark& Mark;  ///< Of the file to which the log belongs.
  Database& File;
  FileStamp FileNow;
  FileStamp LogNow;
  const WalContents& Log;

  bool IsSameFile() const { return Mark.Number == FileNow.Number; }

  /// Nothing was written to the file since; or, where it has what it had, it was copied with the
  /// log, which then is the younger of the two.
  bool IsUntouched() const {
    return !IsSameFile() || FileNow.Written == Mark.Written || LogNow.Written >= FileNow.Written;
  }
};

/// Whether each sector of a page is as it was before, or as the log has it. A page that the file
/// did not have before is made of zeros until it is written.
bool IsMixture(const std::vector<std::uint64_t>& page, const std::vector<std::uint64_t>* before,
               const std::vector<std::set<std::uint64_t>>& in_log) {
  constexpr std::array<unsigned char, kSectorBytes> kZeros{};
  for (std::size_t i = 0; i < page.size(); ++i) {
    const bool is_as_before = before == nullptr ? page[i] == PageDigest(kZeros)
                                                : i < before->size() && (*before)[i] == page[i];
    if (!is_as_before && !(i < in_log.size() && in_log[i].contains(page[i]))) {
      return false;
    }
  }
  return true;
}

/// Whether a file into which the log was just being put still is the one: each sector of a page
/// that is in the log is as it was before or as the log has it, all other pages are as they were.
bool FitsHalfway(const Pair& pair) {
  const FileMark& mark = pair.Mark;
  if (pair.FileNow.Size < mark.Size ||
      ContentDigest(pair.File, mark.Size, pair.Log) != mark.Content) {
    return false;
  }
  const auto digests = DigestsInFile(pair.File, pair.FileNow.Size, pair.Log);
  if (digests == mark.PagesBefore) {
    return pair.IsUntouched();
  }
  return std::all_of(digests.begin(), digests.end(), [&](const auto& page) {
    const auto before = mark.PagesBefore.find(page.first);
    return IsMixture(page.second, before == mark.PagesBefore.end() ? nullptr : &before->second,
                     pair.Log.Pages.at(page.first));
  });
}

bool FitsAtRest(const Pair& pair) {
  const FileMark& mark = pair.Mark;
  if (pair.FileNow.Size != mark.Size || !pair.IsUntouched()) {
    return false;
  }
  return (pair.IsSameFile() && pair.FileNow.Written == mark.Written) ||
         ContentDigest(pair.File, mark.Size) == mark.Content;
}

/// Whether the log belongs to the file that the mark tells of, and this is that file.
bool Fits(const Pair& pair) {
  const FileMark& mark = pair.Mark;
  // Both are others where the folder was copied; one alone was replaced.
  const bool is_same_log = mark.LogNumber == pair.LogNow.Number;
  if (mark.LogNumber != 0 && pair.IsSameFile() != is_same_log) {
    return false;
  }
  return mark.IsTakingLog ? FitsHalfway(pair) : FitsAtRest(pair);
}

struct timespec LastTouched(const std::string& name) {
  struct stat status {};
  stat(name.c_str(), &status);
  return status.st_ctim;
}

/// Without a note: a file that was put in its place after the log was last touched is another one.
Fit FitByTimes(const std::string& file) {
  const struct timespec main = LastTouched(file);
  const struct timespec log = LastTouched(file + kWal);
  const bool is_older =
      main.tv_sec != log.tv_sec ? main.tv_sec < log.tv_sec : main.tv_nsec <= log.tv_nsec;
  return is_older ? Fit::Unknown : Fit::No;
}

/// What becomes of a log that does not fit and is in use. The program that uses it notices a
/// replaced file by itself; an overwritten one is looked through here.
void CheckLogInUse(const std::string& file, const std::optional<OpenNote>& note,
                   const FileStamp& main) {
  if (note && note->Mark.Number == main.Number) {
    Database database(file, file, OpenMode::ReadOnly, kNoWait);
    if (IsSound(database)) {
      return;
    }
  }
  throw DatabaseBusyError(
      {file, Phrase::Tr("The file was replaced while a calendar has the former one open."),
       Phrase::Tr("Close the calendar wherever it is open, and start again.")});
}

std::optional<Report> SettleWal(const std::string& file) {
  const auto main = StampOf(file);
  const auto log = StampOf(file + kWal);
  const WalContents contents = ReadWal(file + kWal);
  if (!main || !log || contents.Pages.empty()) {
    return std::nullopt;
  }
  const auto note = ReadOpenNote(file);
  Fit fit = Fit::Unknown;
  if (note) {
    Database database(file, file, OpenMode::ReadOnly, kNoWait);
    fit = Fits({note->Mark, database, *main, *log, contents}) ? Fit::Yes : Fit::No;
  } else {
    fit = FitByTimes(file);
  }
  const bool has_user = note && std::any_of(note->Users.begin(), note->Users.end(), IsRunningHere);
  if (fit == Fit::Yes && has_user) {
    return std::nullopt;
  }
  if (IsUsedByAnother(file)) {
    if (note && fit == Fit::No) {
      CheckLogInUse(file, note, *main);
    }
    return std::nullopt;
  }
  return Choose(file, kWal, fit);
}

/// A journal belongs to a file whose change it can take back: the file counts as many changes as
/// the journal's copy of its head, or the one more that was interrupted.
std::optional<Report> SettleJournal(const std::string& file) {
  const auto journal = ReadRollbackJournal(file + kJournal);
  if (!journal) {
    return std::nullopt;
  }
  Database database(file, file, OpenMode::ReadOnly, kNoWait);
  if (database.IsBeingChanged()) {
    return std::nullopt;
  }
  Fit fit = Fit::Unknown;
  if (journal->ChangeCounter) {
    const std::uint32_t missing = ChangeCounter(database) - *journal->ChangeCounter;
    fit = missing <= 1 ? Fit::Yes : Fit::No;
  }
  return Choose(file, kJournal, fit);
}

}  // namespace

std::optional<Report> SettleLeftLog(const std::string& file) {
  const auto of_journal = SettleJournal(file);
  const auto of_log = SettleWal(file);
  return of_journal ? of_journal : of_log;
}

bool HasLeftLog(const std::string& file) {
  return !ReadWal(file + kWal).Pages.empty();
}

}  // namespace veyra::sqlite
