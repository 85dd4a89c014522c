#pragma once

#include <memory>
#include <string>
#include <vector>

#include "data/access/access_store.h"
#include "tests/temp_folder.h"

namespace veyra {

/// A folder with an Access calendar of this program's own making, and the verbs of its tests.
class AccessFolder {
 public:
  /// "Calendar.mdb" with the tables Rooms and Reserv, without rows.
  AccessFolder();

  std::string Calendar() const { return folder_.File("Calendar.mdb").string(); }
  const TempFolder& Folder() const { return folder_; }

  std::unique_ptr<Store> Open(StoreAccess access = StoreAccess::ReadWrite) const;

  /// What the common reader of these files finds in a table, a line a row, `|` between columns;
  /// nothing when it is not installed.
  static std::vector<std::string> OtherReader(const std::string& file, const std::string& table);
  static bool HasOtherReader();

  /// The lines that a command writes.
  static std::vector<std::string> LinesOfCommand(const std::string& command);

 private:
  TempFolder folder_;
};

TableDefinition AccessRooms();
TableDefinition AccessReserv();

/// The fields of a booking, in the order of Reserv's columns.
FieldValues Booking(std::int64_t room, const std::string& event, Date day, std::int64_t from,
                    std::int64_t to, Value key = Null{});

/// All rows of a table, in the store's order.
std::vector<Row> AllRows(Store& store, const std::string& table);

/// The first line in which two lists differ, as both have it; empty when they are the same.
std::string FirstDifference(const std::vector<std::string>& one,
                            const std::vector<std::string>& other);

/// A row as one line, its values separated by `|`, null empty.
std::string RowText(const Row& row);
std::vector<std::string> RowTexts(Store& store, const std::string& table);

}  // namespace veyra
