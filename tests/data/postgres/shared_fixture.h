#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "data/file_store.h"
#include "data/postgres/postgres_store.h"
#include "data/schema.h"
#include "tests/postgres/test_server.h"

namespace veyra::postgres {

/// A shared calendar without rows, which two desks have open.
class SharedTest : public testing::Test {
 protected:
  SharedTest() {
    const auto making = CreateSharedCalendar(link_, kFile);
    for (const TableDefinition& table : CalendarTables()) {
      making->Rows().CreateTable(table);
    }
    desk_ = making->Save();
    other_ = Open();
  }

  std::unique_ptr<Store> Open(StoreAccess access = StoreAccess::ReadWrite,
                              const WaitPolicy& policy = {}) const {
    return OpenPostgres(link_, kFile, access, policy);
  }

  static FieldValues Booking(int from, int to, const std::string& name, std::int64_t facility = 1,
                             Date day = MakeDate(2026, 3, 5).value()) {
    return {{"RmID", facility},
            {"Event", name},
            {"DateOfRes", day},
            {"TimeFrom", std::int64_t{from}},
            {"TimeTo", std::int64_t{to}}};
  }

  static Row Book(Store& desk, int from, int to, const std::string& name) {
    return desk.Insert("Reserv", Booking(from, to, name));
  }

  /// The rows of a query, which the desk has then seen.
  static std::vector<Row> Look(Store& desk, const std::string& sql = "SELECT * FROM Reserv") {
    std::vector<Row> rows;
    const auto source = desk.Select(ParseQuery(sql));
    for (Row row; source->Next(row);) {
      rows.push_back(row);
    }
    return rows;
  }

  static std::string Names(Store& desk) {
    std::string names;
    for (const Row& row : Look(desk, "SELECT * FROM Reserv Order By TimeFrom")) {
      names += ToText(row.Values.at(1)) + ";";
    }
    return names;
  }

  /// A table of the calendar as it stands in SQL.
  std::string In(const std::string& table) const {
    return "\"" + link_.Schema + "\".\"" + table + "\"";
  }

  static constexpr const char* kFile = "/data/Calendar.mdb";

  TestDatabase& server_ = TestDatabase::Get();
  CalendarLink link_ = server_.NewLink();
  std::unique_ptr<Store> desk_;
  std::unique_ptr<Store> other_;
};

}  // namespace veyra::postgres
