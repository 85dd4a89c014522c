#include "data/sqlite/file_keeper.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "data/errors.h"
#include "data/posix_file.h"
#include "data/sqlite/content_digest.h"
#include "data/sqlite/statement.h"
#include "data/sqlite/wal_file.h"
#include "data/store_errors.h"

namespace veyra::sqlite {

namespace {

constexpr std::size_t kHeadBytes = 100;
constexpr std::size_t kCounterAt = 24;

/// A log of more frames than this is put into the file; SQLite's own measure.
constexpr std::uint32_t kLongLog = 1000;

std::string LogOf(const std::string& file) {
  return file + "-wal";
}

bool IsThere(const std::string& file) {
  return StampOf(file).has_value();
}

DatabaseError NoteFailure(const std::string& file, const PosixFileError& error) {
  return DatabaseError(
      {file,
       Phrase::Tr("The note that says who has the file open cannot be written: %1.",
                  error.Reason()),
       Phrase::Tr("Check that the disk has room and that you may make files in the folder.")});
}

}  // namespace

FileKeeper::FileKeeper(Database& database, const std::string& file) : file_(file), watch_(file) {
  Statement mode(database, "PRAGMA journal_mode");
  has_log_ = mode.Step() && mode.Text(0) == "wal";
  mode.Reset();
  // The log and its index are there once the file has been read.
  database.Execute("SELECT 1 FROM sqlite_schema LIMIT 1");
  sqlite3_wal_autocheckpoint(database.handle(), 0);
  Remember(database);
  mark_ = MarkAtRest(database);
  PutNote(mark_);
}

FileKeeper::~FileKeeper() {
  try {
    if (!closing_) {
      closing_ = std::make_unique<OpenNoteLock>(FileNow());
    }
    LeaveNote();
  } catch (const std::exception&) {
    // The next start finds a note that is out of date, and goes by what it finds.
  }
}

/// The log's index begins with the log's state, in the machine's own order of bytes.
FileKeeper::LogState FileKeeper::StateOfLog(Database& database) const {
  constexpr std::size_t kFramesAt = 16;
  constexpr std::size_t kSaltsAt = 32;
  constexpr std::size_t kPutAwayAt = 96;
  constexpr std::size_t kBeingPutAwayAt = 128;
  if (!has_log_) {
    return {};
  }
  const std::string index = database.LogIndexHead(kBeingPutAwayAt + 4);
  const auto number = [&](std::size_t at) {
    std::uint32_t value = 0;
    std::memcpy(&value, index.data() + at, sizeof value);
    return value;
  };
  return {number(kSaltsAt), number(kSaltsAt + 4), number(kFramesAt), number(kPutAwayAt),
          number(kBeingPutAwayAt)};
}

/// The log's state first: what is put into the file after that is noticed by its stamp.
void FileKeeper::Remember(Database& database) {
  const LogState log = StateOfLog(database);
  const FileStamp stamp = watch_.Stamp().value_or(FileStamp());
  head_ = database.FirstBytes(kHeadBytes);
  log_ = log;
  stamp_ = stamp;
}

/// A log begins anew only when all of it is in the file.
bool FileKeeper::LogState::HasBeenPutAwaySince(const LogState& before) const {
  if (IsSameLog(before)) {
    return PutAway != before.PutAway || BeingPutAway != before.BeingPutAway;
  }
  return before.Frames > before.PutAway || PutAway > 0 || BeingPutAway > 0;
}

FileKeeper::Content FileKeeper::Look(Database& database) {
  const LogState log = StateOfLog(database);
  const auto stamp = watch_.Stamp();
  const std::string head = database.FirstBytes(kHeadBytes);
  if (!stamp || !stamp->IsSameFile(stamp_)) {
    return Content::AsKnown;
  }
  if (*stamp == stamp_ && head == head_) {
    log_ = log;
    return Content::AsKnown;
  }
  if (has_log_) {
    return StateOfLog(database).HasBeenPutAwaySince(log_) ? Content::Changed : Content::Overwritten;
  }
  // Without a log every change counts one on in the file's head.
  const int order = head.compare(kCounterAt, 4, head_, kCounterAt, 4);
  const bool is_as_it_was = head == head_ && stamp->Size == stamp_.Size;
  return order > 0 || is_as_it_was ? Content::Changed : Content::Overwritten;
}

void FileKeeper::CheckBeforeReading(Database& database) {
  if (Look(database) == Content::Overwritten) {
    throw FileOverwritten(file_);
  }
}

void FileKeeper::CheckBeforeChange(Database& database) {
  switch (Look(database)) {
    case Content::Overwritten:
      throw FileOverwritten(file_);
    case Content::Changed:
      Remember(database);
      is_note_current_ = !has_log_;
      break;
    case Content::AsKnown:
      break;
  }
  if (!is_note_current_) {
    const OpenNoteLock lock(FileNow());
    mark_ = MarkAtRest(database);
    PutNote(mark_);
  }
}

void FileKeeper::AfterChange(Database& database) {
  try {
    if (!has_log_) {
      Remember(database);
      return;
    }
    Look(database);
    if (log_.Frames - log_.PutAway > kLongLog) {
      PutLogAway(database);
    }
  } catch (const Error&) {
    // The change is made. What failed here is done before the next change, or that one says why it
    // cannot be.
  }
}

void FileKeeper::PutLogAway(Database& database) {
  const OpenNoteLock lock(FileNow());
  PutNoteOfTaking(database);
  is_note_current_ = false;
  sqlite3_wal_checkpoint_v2(database.handle(), "main", SQLITE_CHECKPOINT_PASSIVE, nullptr, nullptr);
  Remember(database);
  mark_ = MarkAtRest(database);
  PutNote(mark_);
}

/// The note tells of pages in the log, which therefore must not be lost before it. Other programs'
/// changes may stand in the log that are not flushed yet.
void FileKeeper::PutNoteOfTaking(Database& database) {
  database.ChangeHead();
  const FileMark mark = MarkTakingLog(database);
  database.FlushLog();
  PutNote(mark);
}

void FileKeeper::BeforeClosing(Database& database) {
  bool is_ours = false;
  try {
    watch_.CheckBeforeChange();
    CheckBeforeChange(database);
    is_ours = true;
    const LogState log = StateOfLog(database);
    if (log.Frames > log.PutAway) {
      closing_ = std::make_unique<OpenNoteLock>(FileNow());
      PutNoteOfTaking(database);
    }
  } catch (const Error&) {
    // Then it is not sure that the log would be put into the right file, and the log stays.
    is_ours = false;
  }
  if (!is_ours) {
    sqlite3_db_config(database.handle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
  }
}

FileMark FileKeeper::MarkAtRest(Database& database) const {
  const auto log = StampOf(LogOf(FileNow()));
  return {.Number = stamp_.Number,
          .Size = stamp_.Size,
          .Written = stamp_.Written,
          .Content = ContentDigest(database, stamp_.Size),
          .LogNumber = log ? log->Number : 0};
}

FileMark FileKeeper::MarkTakingLog(Database& database) const {
  const WalContents log = ReadWal(LogOf(FileNow()));
  FileMark mark = mark_;
  mark.Content = ContentDigest(database, mark.Size, log);
  mark.PagesBefore = DigestsInFile(database, mark.Size, log);
  mark.IsTakingLog = true;
  return mark;
}

void FileKeeper::PutNote(const FileMark& mark) {
  OpenNote note{{}, mark};
  if (const auto old = ReadOpenNote(FileNow())) {
    std::copy_if(old->Users.begin(), old->Users.end(), std::back_inserter(note.Users),
                 [this](const OpenUser& user) { return user != user_ && MayBeRunning(user); });
  }
  note.Users.push_back(user_);
  try {
    WriteOpenNote(FileNow(), note);
  } catch (const PosixFileError& error) {
    throw NoteFailure(file_, error);
  }
  is_note_current_ = true;
}

bool FileKeeper::IsAsMarked(const std::string& file) const {
  const auto now = StampOf(file);
  return now && now->Number == mark_.Number && now->Size == mark_.Size &&
         now->Written == mark_.Written;
}

/// A log that is still there is used by another program, or belongs to a file that was replaced, or
/// only a part of it could be put into the file; then what the note tells of it must stay.
void FileKeeper::LeaveNote() {
  const std::string file = FileNow();
  auto note = ReadOpenNote(file);
  if (!note) {
    return;
  }
  const auto is_over = [this](const OpenUser& user) {
    return user == user_ || !MayBeRunning(user);
  };
  note->Users.erase(std::remove_if(note->Users.begin(), note->Users.end(), is_over),
                    note->Users.end());
  const bool has_log = IsThere(LogOf(file));
  if (note->Users.empty() && !has_log) {
    RemoveOpenNote(file);
    return;
  }
  if (has_log && note->Mark.IsTakingLog && IsAsMarked(file)) {
    note->Mark = mark_;
  }
  WriteOpenNote(file, *note);
}

}  // namespace veyra::sqlite
