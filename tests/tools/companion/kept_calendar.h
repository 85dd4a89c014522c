#pragma once

#include <gtest/gtest.h>

#include <string>

#include "data/open_store.h"
#include "data/schema.h"
#include "tests/store_kind.h"
#include "tests/temp_folder.h"
#include "tests/tools/companion/run_program.h"

namespace veyra {

/// A calendar of one kind of file with two facilities, looked after by the built veyra-data.
class KeptCalendarTest : public testing::TestWithParam<StoreKind> {
 protected:
  KeptCalendarTest() {
    Arguments made{"new", Folder()};
    if (GetParam() == StoreKind::Access) {
      made.push_back("--access");
    }
    EXPECT_EQ(0, RunProgram(made).Status);
    pool_ = AddRoom("Pool", true);
    hall_ = AddRoom("Main Hall", false);
  }

  std::string Folder() const { return temp_.File("data").string(); }
  std::string CalendarName() const { return Folder() + "/Calendar.mdb"; }
  std::string File(const std::string& name) const { return temp_.File(name).string(); }

  /// The calendar as a desk has it open.
  std::unique_ptr<Store> Desk() const { return OpenStore(CalendarName(), StoreAccess::ReadWrite); }

  std::int64_t AddRoom(const std::string& name, bool active) const {
    const Row row =
        Desk()->Insert("Rooms", {{"Name", name}, {"Active", std::int64_t{active ? 1 : 0}}});
    return ToInteger(row.Values.front()).value();
  }

  /// `day` is an ISO date; anything else is stored as it is.
  void Book(const Value& room, const std::string& day, const Value& from, const Value& to,
            const std::string& event, const Value& group = Null{}) const {
    const auto date = DateFromIsoText(day);
    Desk()->Insert("Reserv", {{"RmID", room},
                              {"Event", event},
                              {"DateOfRes", date ? Value(*date) : Value(day)},
                              {"TimeFrom", from},
                              {"TimeTo", to},
                              {"MultKey", group}});
  }
  void Book(std::int64_t room, const std::string& day, int from, int to, const std::string& event,
            const Value& group = Null{}) const {
    Book(Value(room), day, Value(std::int64_t{from}), Value(std::int64_t{to}), event, group);
  }

  /// The rows of a table, their values parted by blanks, a line each.
  std::string Rows(const std::string& table) const {
    std::string lines;
    const auto store = OpenStore(CalendarName(), StoreAccess::ReadOnly);
    const auto rows = store->Select(ParseQuery("SELECT * FROM " + table));
    for (Row row; rows->Next(row);) {
      std::string line;
      for (const Value& value : row.Values) {
        line += (line.empty() ? "" : " ") + ToText(value);
      }
      lines += line + "\n";
    }
    return lines;
  }

  /// Gives a facility another number, of which the table's index does not know. REQUIRES: an Access
  /// file.
  void RenumberMainHallPastTheIndex() const {
    const std::string columns_and_id{"\3\0\2\0\0\0", 6};
    std::string bytes = temp_.Read("data/Calendar.mdb");
    const std::size_t row = bytes.rfind(columns_and_id, bytes.find("Main Hall"));
    ASSERT_NE(std::string::npos, row);
    bytes[row + 2] = 9;
    temp_.Write("data/Calendar.mdb", bytes);
  }

  TempFolder temp_;
  std::int64_t pool_ = 0;
  std::int64_t hall_ = 0;
};

/// Runs the tests of a fixture over every kind of file.
#define VEYRA_FOR_ALL_KINDS(Fixture)                                      \
  INSTANTIATE_TEST_SUITE_P(Kinds, Fixture, testing::ValuesIn(kFileKinds), \
                           [](const auto& kind) { return std::string(NameOf(kind.param)); })

}  // namespace veyra
