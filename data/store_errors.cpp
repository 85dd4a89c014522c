#include "data/store_errors.h"

#include "data/store.h"

namespace veyra {

namespace {

constexpr const char* kWrongFile =
    "The file was made by another program or a part of it was removed. Use the file of this "
    "program, or a backup copy of it.";
constexpr const char* kReadAgain =
    "Look at the bookings as they are now, and do it again if it is still needed.";
constexpr const char* kNothingOverwritten = "Nothing was overwritten.";

constexpr const char* kOpenAnew =
    "Open the file anew, look at the bookings as they are there, and do it again if it is still "
    "needed.";
constexpr const char* kNothingSavedInIt = "Nothing was saved in it.";

}  // namespace

MissingItemError MissingTable(const std::string& file, const std::string& table) {
  return MissingItemError({file, "The file has no table " + table + ".", kWrongFile}, table, {});
}

MissingItemError MissingColumn(const std::string& file, const std::string& table,
                               const std::string& column) {
  return MissingItemError(
      {file, "The table " + table + " has no column " + column + ".", kWrongFile}, table, column);
}

MissingItemError Store::NoSuchColumn(const std::string& table, const std::string& column) const {
  return MissingColumn(FileName(), table, column);
}

DatabaseError TableExists(const std::string& file, const std::string& table) {
  return DatabaseError({file, "The file has a table " + table + " already.", {}});
}

DatabaseError ColumnExists(const std::string& file, const std::string& table,
                           const std::string& column) {
  return DatabaseError({file, "The table " + table + " has a column " + column + " already.", {}});
}

DatabaseError OpenedForReadingOnly(const std::string& file) {
  return DatabaseError({file,
                        "The file was opened for reading only, so nothing can be saved in it.",
                        "This is a fault of the program. Please report it."});
}

RowChangedError RowChanged(const std::string& file, const std::string& table) {
  return RowChangedError({file,
                          "Another program has just changed this row of the table " + table + ".",
                          kReadAgain, kNothingOverwritten});
}

RowChangedError RowRemoved(const std::string& file, const std::string& table) {
  return RowChangedError({file,
                          "Another program has just removed this row of the table " + table + ".",
                          kReadAgain, kNothingOverwritten});
}

FileReplacedError FileReplaced(const std::string& file) {
  return FileReplacedError({file,
                            "The file was replaced by another one while the calendar was open.",
                            kOpenAnew, kNothingSavedInIt});
}

FileReplacedError FileOverwritten(const std::string& file) {
  return FileReplacedError(
      {file, "The file was overwritten by another program while the calendar was open.", kOpenAnew,
       kNothingSavedInIt});
}

FileReplacedError FileGone(const std::string& file) {
  return FileReplacedError(
      {file, "The file was removed, moved or renamed while the calendar was open.",
       "Put the file, or a backup copy of it, back in its place, and open it anew.",
       kNothingSavedInIt});
}

OutcomeUnknownError OutcomeUnknown(const std::string& file, const std::string& cause) {
  return OutcomeUnknownError(
      {file, cause,
       "It is not certain whether this booking was saved: look before you try again. Check that "
       "the disk or the network folder is connected and has room, then open the day anew: what it "
       "shows is what is saved."});
}

RowChangedError RowsChanged(const std::string& file, const std::string& table) {
  return RowChangedError(
      {file, "Another program has just changed the table " + table + ".", kReadAgain});
}

}  // namespace veyra
