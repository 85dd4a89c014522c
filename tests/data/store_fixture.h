#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "data/open_store.h"
#include "data/schema.h"
#include "tests/store_kind.h"
#include "tests/temp_folder.h"

namespace veyra {

/// What every kind of store must do, over a real file with tables Rooms and Reserv.
class StoreTest : public testing::TestWithParam<StoreKind> {
 protected:
  StoreTest() : store_(CreateStoreOfKind(GetParam(), File())) {
    store_->CreateTable(RoomsTable());
    store_->CreateTable(ReservTable());
  }

  std::string File() const { return folder_.File("Calendar.mdb").string(); }

  /// The same file as another program has it open.
  std::unique_ptr<Store> Other() const { return OpenStore(File(), StoreAccess::ReadWrite); }

  /// Closes the file and opens it again.
  void Reopen() {
    store_.reset();
    store_ = Other();
  }

  Row AddRoom(const Value& name, const Value& active = std::int64_t{0}) {
    return store_->Insert("Rooms", {{"Name", name}, {"Active", active}});
  }

  void AddBooking(std::int64_t room, const std::string& day, std::int64_t from, std::int64_t to,
                  const std::string& event) {
    store_->Insert("Reserv", {{"RmID", room},
                              {"Event", event},
                              {"DateOfRes", DateFromIsoText(day).value()},
                              {"TimeFrom", from},
                              {"TimeTo", to}});
  }

  std::vector<Row> Rows(const std::string& sql) {
    std::vector<Row> rows;
    const auto source = store_->Select(ParseQuery(sql));
    for (Row row; source->Next(row);) {
      rows.push_back(row);
    }
    return rows;
  }

  /// One column of the rows found, each followed by a semicolon.
  std::string Found(const std::string& sql, std::size_t column) {
    std::string found;
    for (const Row& row : Rows(sql)) {
      found += ToText(row.Values.at(column)) + ";";
    }
    return found;
  }

  std::string Events(const std::string& where) { return Found("SELECT * FROM Reserv" + where, 1); }
  std::string RoomNames() { return Found("SELECT * FROM Rooms", 1); }

  /// Puts the value into a column of one row of Reserv and reads it back from the closed file.
  Value RoundTrip(const std::string& column, std::size_t index, const Value& value) {
    store_->Insert("Reserv", {{column, value}});
    Reopen();
    return Rows("SELECT * FROM Reserv").at(0).Values.at(index);
  }

  TempFolder folder_;
  std::unique_ptr<Store> store_;
};

}  // namespace veyra
