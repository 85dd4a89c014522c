#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "data/file_watch.h"
#include "data/open_note.h"
#include "data/sqlite/database.h"

namespace veyra::sqlite {

/// Keeps a database file, its log and the note beside it (open_note.h) together for as long as the
/// file is open for writing: whenever the log is put into the file the note is brought up to date,
/// so that at any moment a log that is left behind can be told to belong to its file. And it always
/// begins with the head of the file, which is changed for that: a file into which a part of the log
/// was put is not what it was before, even where the next pages of the log say what the file says.
/// So it is not taken for a backup of the file as it was, copied over it since.
///
/// To be made when the file has been opened and read, and dropped when it has been closed.
class FileKeeper {
 public:
  /// Writes the note. `file` is absolute and no symbolic link. Throws DatabaseError when the note
  /// cannot be written. REQUIRES: an OpenNoteLock.
  FileKeeper(Database& database, const std::string& file);

  /// Removes the note, or takes this program out of it when others have the file open.
  ~FileKeeper();
  FileKeeper(const FileKeeper&) = delete;
  FileKeeper& operator=(const FileKeeper&) = delete;

  /// Whether changes go to a write-ahead log.
  bool HasLog() const { return has_log_; }

  /// Throws FileReplacedError when another program has written over the file in another way than
  /// SQLite does.
  void CheckBeforeReading(Database& database);

  /// The same, and brings the note up to date; throws DatabaseError when it cannot be written.
  void CheckBeforeChange(Database& database);

  /// To be called after each change: puts the log into the file when it has become long. Throws
  /// nothing: the change is made, whatever fails here.
  void AfterChange(Database& database);

  /// To be called before the file is closed. Sees to it that a log that does not belong to the file
  /// any more is not put into it.
  void BeforeClosing(Database& database);

 private:
  /// How far the log is put into the file.
  struct LogState {
    std::uint32_t FirstSalt = 0;  ///< The salts are others whenever the log begins anew,
    std::uint32_t SecondSalt = 0;
    std::uint32_t Frames = 0;        ///< how many frames it has since then,
    std::uint32_t PutAway = 0;       ///< how many of them are in the file,
    std::uint32_t BeingPutAway = 0;  ///< how many somebody has set out to put there.

    bool IsSameLog(const LogState& other) const {
      return FirstSalt == other.FirstSalt && SecondSalt == other.SecondSalt;
    }

    /// Whether anything was put into the file since the log was in that state.
    bool HasBeenPutAwaySince(const LogState& before) const;
  };

  enum class Content { AsKnown, Changed, Overwritten };

  Content Look(Database& database);
  LogState StateOfLog(Database& database) const;
  FileMark MarkAtRest(Database& database) const;
  FileMark MarkTakingLog(Database& database) const;
  std::string FileNow() const { return watch_.NameInFolder(); }

  void Remember(Database& database);
  void PutNote(const FileMark& mark);
  void PutLogAway(Database& database);
  void PutNoteOfTaking(Database& database);
  void LeaveNote();
  bool IsAsMarked(const std::string& file) const;

  std::string file_;
  FileWatch watch_;
  OpenUser user_ = ThisUser();
  bool has_log_ = false;

  std::string head_;  ///< The first bytes of the file when it was last looked at,
  FileStamp stamp_;   ///< its stamp,
  LogState log_;      ///< and the state of its log.

  FileMark mark_;                ///< Of the file at rest.
  bool is_note_current_ = true;  ///< What the note says of the file is so.
  std::unique_ptr<OpenNoteLock> closing_;
};

}  // namespace veyra::sqlite
