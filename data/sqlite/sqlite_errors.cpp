#include "data/sqlite/sqlite_errors.h"

#include <sqlite3.h>

namespace veyra::sqlite {

namespace {

struct Words {
  std::string Cause;
  std::string Advice;
  std::string Effect = {};
};

constexpr const char* kNothingSaved = "Nothing was saved.";

constexpr const char* kBackup =
    "Put a backup copy in its place. Keep the damaged file: a specialist may be able to read it.";

Words WordsFor(int code, const std::string& detail) {
  if (code == SQLITE_READONLY_ROLLBACK) {
    return {"Another program was interrupted in the middle of a change of the file.",
            "Start the program that the file belongs to: it puts the file in order."};
  }
  const std::string number = " (error " + std::to_string(code) + ")";
  switch (code & 0xFF) {
    case SQLITE_READONLY:
      return {"The file may be read but not written to" + number + ".",
              "Ask for the right to change the file and the folder it is in."};
    case SQLITE_FULL:
      return {"The disk is full.", "Make room on the disk and try again.", kNothingSaved};
    case SQLITE_IOERR:
      return {"The disk reported a failure while the file was in use" + number + ".",
              "Check that the disk or the network folder is still connected, and try again."};
    case SQLITE_CORRUPT:
      return {"The file is damaged or was cut short.", kBackup};
    case SQLITE_NOTADB:
      return {"The file is not a database, or it is damaged or locked with a password.", kBackup};
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
      return {"The file cannot be opened" + number + ".",
              "Check that the folder is there and that you may use it."};
    case SQLITE_NOMEM:
      return {"The computer has run out of memory.", "Close other programs and try again."};
    case SQLITE_CONSTRAINT:
      return {"The file's own rules do not allow this row: " + detail + ".",
              "The file may have been made by another program.", kNothingSaved};
    default:
      return {"The database reported a failure: " + detail + number + ".",
              "Try again. If it fails again, restart the program."};
  }
}

}  // namespace

bool LooksDamaged(int code) {
  const int primary = code & 0xFF;
  return primary == SQLITE_CORRUPT || primary == SQLITE_NOTADB;
}

bool IsBusy(int code) {
  const int primary = code & 0xFF;
  // The two read-only codes: the other program is just setting up its log.
  return code == SQLITE_READONLY_CANTINIT || code == SQLITE_READONLY_RECOVERY ||
         primary == SQLITE_BUSY || primary == SQLITE_LOCKED || primary == SQLITE_PROTOCOL;
}

void ThrowError(const std::string& file, int code, const std::string& detail) {
  if (IsBusy(code)) {
    throw DatabaseBusyError({file, "Another program is using the file and did not let go of it.",
                             "Wait until the other program has finished, or close it, and try "
                             "again."});
  }
  const Words words = WordsFor(code, detail);
  if ((code & 0xFF) == SQLITE_IOERR) {
    throw PassingTrouble({file, words.Cause, words.Advice});
  }
  throw DatabaseError({file, words.Cause, words.Advice, words.Effect});
}

}  // namespace veyra::sqlite
