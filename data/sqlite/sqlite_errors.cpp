#include "data/sqlite/sqlite_errors.h"

#include <sqlite3.h>

namespace veyra::sqlite {

namespace {

struct Words {
  Phrase Cause;
  Phrase Advice;
  Phrase Effect = {};
};

Phrase NothingSaved() {
  return Phrase::Tr("Nothing was saved.");
}

Phrase Backup() {
  return Phrase::Tr(
      "Put a backup copy in its place. Keep the damaged file: a specialist may be able to read "
      "it.");
}

Words WordsFor(int code, const std::string& detail) {
  if (code == SQLITE_READONLY_ROLLBACK) {
    return {Phrase::Tr("Another program was interrupted in the middle of a change of the file."),
            Phrase::Tr("Start the program that the file belongs to: it puts the file in order.")};
  }
  switch (code & 0xFF) {
    case SQLITE_READONLY:
      return {Phrase::Tr("The file may be read but not written to (error %1).", code),
              Phrase::Tr("Ask for the right to change the file and the folder it is in.")};
    case SQLITE_FULL:
      return {Phrase::Tr("The disk is full."), Phrase::Tr("Make room on the disk and try again."),
              NothingSaved()};
    case SQLITE_IOERR:
      return {Phrase::Tr("The disk reported a failure while the file was in use (error %1).", code),
              Phrase::Tr(
                  "Check that the disk or the network folder is still connected, and try again.")};
    case SQLITE_CORRUPT:
      return {Phrase::Tr("The file is damaged or was cut short."), Backup()};
    case SQLITE_NOTADB:
      return {Phrase::Tr("The file is not a database, or it is damaged or locked with a password."),
              Backup()};
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
      return {Phrase::Tr("The file cannot be opened (error %1).", code),
              Phrase::Tr("Check that the folder is there and that you may use it.")};
    case SQLITE_NOMEM:
      return {Phrase::Tr("The computer has run out of memory."),
              Phrase::Tr("Close other programs and try again.")};
    case SQLITE_CONSTRAINT:
      return {Phrase::Tr("The file's own rules do not allow this row: %1.", detail),
              Phrase::Tr("The file may have been made by another program."), NothingSaved()};
    default:
      return {Phrase::Tr("The database reported a failure: %1 (error %2).", detail, code),
              Phrase::Tr("Try again. If it fails again, restart the program.")};
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
    throw DatabaseBusyError(
        {file, Phrase::Tr("Another program is using the file and did not let go of it."),
         Phrase::Tr("Wait until the other program has finished, or close it, and try again.")});
  }
  const Words words = WordsFor(code, detail);
  if ((code & 0xFF) == SQLITE_IOERR) {
    throw PassingTrouble({file, words.Cause, words.Advice});
  }
  throw DatabaseError({file, words.Cause, words.Advice, words.Effect});
}

}  // namespace veyra::sqlite
