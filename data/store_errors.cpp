#include "data/store_errors.h"

#include "data/store.h"

namespace veyra {

namespace {

Phrase WrongFile() {
  return Phrase::Tr(
      "The file was made by another program or a part of it was removed. Use the file of this "
      "program, or a backup copy of it.");
}

Phrase ReadAgain() {
  return Phrase::Tr("Look at the bookings as they are now, and do it again if it is still needed.");
}

Phrase NothingOverwritten() {
  return Phrase::Tr("Nothing was overwritten.");
}

Phrase OpenAnew() {
  return Phrase::Tr(
      "Open the file anew, look at the bookings as they are there, and do it again if it is still "
      "needed.");
}

Phrase NothingSavedInIt() {
  return Phrase::Tr("Nothing was saved in it.");
}

}  // namespace

MissingItemError MissingTable(const std::string& file, const std::string& table) {
  return MissingItemError({file, Phrase::Tr("The file has no table %1.", table), WrongFile()},
                          table, {});
}

MissingItemError MissingColumn(const std::string& file, const std::string& table,
                               const std::string& column) {
  return MissingItemError(
      {file, Phrase::Tr("The table %1 has no column %2.", table, column), WrongFile()}, table,
      column);
}

MissingItemError Store::NoSuchColumn(const std::string& table, const std::string& column) const {
  return MissingColumn(FileName(), table, column);
}

DatabaseError TableExists(const std::string& file, const std::string& table) {
  return DatabaseError({file, Phrase::Tr("The file has a table %1 already.", table), {}});
}

DatabaseError ColumnExists(const std::string& file, const std::string& table,
                           const std::string& column) {
  return DatabaseError(
      {file, Phrase::Tr("The table %1 has a column %2 already.", table, column), {}});
}

DatabaseError OpenedForReadingOnly(const std::string& file) {
  return DatabaseError(
      {file, Phrase::Tr("The file was opened for reading only, so nothing can be saved in it."),
       Phrase::Tr("This is a fault of the program. Please report it.")});
}

RowChangedError RowChanged(const std::string& file, const std::string& table) {
  return RowChangedError(
      {file, Phrase::Tr("Another program has just changed this row of the table %1.", table),
       ReadAgain(), NothingOverwritten()});
}

RowChangedError RowRemoved(const std::string& file, const std::string& table) {
  return RowChangedError(
      {file, Phrase::Tr("Another program has just removed this row of the table %1.", table),
       ReadAgain(), NothingOverwritten()});
}

FileReplacedError FileReplaced(const std::string& file) {
  return FileReplacedError(
      {file, Phrase::Tr("The file was replaced by another one while the calendar was open."),
       OpenAnew(), NothingSavedInIt()});
}

FileReplacedError FileOverwritten(const std::string& file) {
  return FileReplacedError(
      {file, Phrase::Tr("The file was overwritten by another program while the calendar was open."),
       OpenAnew(), NothingSavedInIt()});
}

FileReplacedError FileGone(const std::string& file) {
  return FileReplacedError(
      {file, Phrase::Tr("The file was removed, moved or renamed while the calendar was open."),
       Phrase::Tr("Put the file, or a backup copy of it, back in its place, and open it anew."),
       NothingSavedInIt()});
}

OutcomeUnknownError OutcomeUnknown(const std::string& file, const Phrase& cause) {
  return OutcomeUnknownError(
      {file, cause,
       Phrase::Tr("It is not certain whether this booking was saved: look before you try again. "
                  "Check that the disk or the network folder is connected and has room, then open "
                  "the day anew: what it shows is what is saved.")});
}

RowChangedError RowsChanged(const std::string& file, const std::string& table) {
  return RowChangedError(
      {file, Phrase::Tr("Another program has just changed the table %1.", table), ReadAgain()});
}

}  // namespace veyra
