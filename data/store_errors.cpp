#include "data/store_errors.h"

namespace veyra {

namespace {

constexpr const char* kWrongFile =
    "The file was made by another program or a part of it was removed. Use the file of this "
    "program, or a backup copy of it.";
constexpr const char* kReadAgain =
    "Nothing was overwritten. Look at the bookings as they are now, and do it again if it is still "
    "needed.";

}  // namespace

DatabaseError MissingTable(const std::string& file, const std::string& table) {
  return DatabaseError({file, "The file has no table " + table + ".", kWrongFile});
}

DatabaseError MissingColumn(const std::string& file, const std::string& table,
                            const std::string& column) {
  return DatabaseError({file, "The table " + table + " has no column " + column + ".", kWrongFile});
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
  return RowChangedError(
      {file, "Another program has just changed this row of the table " + table + ".", kReadAgain});
}

RowChangedError RowRemoved(const std::string& file, const std::string& table) {
  return RowChangedError(
      {file, "Another program has just removed this row of the table " + table + ".", kReadAgain});
}

}  // namespace veyra
