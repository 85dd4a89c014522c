#include <unistd.h>

#include "data/errors.h"
#include "data/open_file_store.h"
#include "data/postgres/server_sql.h"
#include "tests/data/postgres/shared_fixture.h"
#include "tests/temp_folder.h"

namespace veyra::postgres {
namespace {

/// A calendar on the server from its first table on.
class MakingTest : public testing::Test {
 protected:
  std::unique_ptr<CalendarInMaking> Begin() const { return CreateSharedCalendar(link_, kFile); }

  std::unique_ptr<Store> Open() const {
    return OpenPostgres(link_, kFile, StoreAccess::ReadWrite, {});
  }

  static void MakeTables(CalendarInMaking& making) {
    for (const TableDefinition& table : CalendarTables()) {
      making.Rows().CreateTable(table);
    }
  }

  static std::size_t Count(Store& store, const std::string& table) {
    std::size_t count = 0;
    const auto rows = store.Select(ParseQuery("SELECT * FROM " + table));
    for (Row row; rows->Next(row);) {
      ++count;
    }
    return count;
  }

  /// As a desk whose account may do what the administrator's text lets it.
  std::string Role() const {
    std::string role = "clerk_" + std::to_string(::getpid());
    server_.Run("DROP ROLE IF EXISTS " + role + "; CREATE ROLE " + role + " LOGIN");
    server_.Run(AdministratorSql(link_.Schema, role, CalendarTables()));
    return role;
  }
  void DropRole(const std::string& role) const {
    server_.Run("DROP OWNED BY " + role + " CASCADE; DROP ROLE " + role);
  }
  CalendarLink LinkOf(const std::string& role) const {
    CalendarLink link = link_;
    link.Server.replace(link.Server.find("//veyra@"), 8, "//" + role + "@");
    return link;
  }

  static constexpr const char* kFile = "/data/Calendar.mdb";

  TestDatabase& server_ = TestDatabase::Get();
  CalendarLink link_ = server_.NewLink();
};

TEST_F(MakingTest, NobodySeesItBeforeItIsSaved) {
  const auto making = Begin();
  MakeTables(*making);
  making->Rows().Insert("Rooms", {{"Name", std::string("Pool")}});
  EXPECT_THROW(Open(), DatabaseError);
  const auto saved = making->Save();
  EXPECT_EQ(1U, Count(*saved, "Rooms"));
  EXPECT_EQ(1U, Count(*Open(), "Rooms"));
}

TEST_F(MakingTest, NothingIsLeftOfOneThatIsNotSaved) {
  {
    const auto making = Begin();
    MakeTables(*making);
  }
  EXPECT_THROW(Open(), DatabaseError);
  EXPECT_NO_THROW(Begin()->Save());
}

TEST_F(MakingTest, RowsComeWithTheirOwnNumbersAndNoneIsGivenAgain) {
  const auto making = Begin();
  MakeTables(*making);
  making->Rows().InsertAll("Rooms", {{{"ID", std::int64_t{7}}, {"Name", std::string("Pool")}},
                                     {{"ID", std::int64_t{3}}, {"Name", std::string("Hall")}}});
  EXPECT_EQ(7, making->Rows().LastNumber("Rooms"));
  const auto saved = making->Save();
  EXPECT_EQ(Value(std::int64_t{8}), saved->Insert("Rooms", {}).Values.at(0));
}

TEST_F(MakingTest, BookingsThatOverlapAreTakenAsTheyAre) {
  const auto making = Begin();
  MakeTables(*making);
  for (int i = 0; i < 3; ++i) {
    making->Rows().Insert("Reserv", {{"RmID", std::int64_t{1}},
                                     {"DateOfRes", MakeDate(2026, 3, 5).value()},
                                     {"TimeFrom", std::int64_t{1}},
                                     {"TimeTo", std::int64_t{4}}});
  }
  EXPECT_EQ(3U, Count(*making->Save(), "Reserv"));
}

/// A server keeps no more locks than it was set up for.
TEST_F(MakingTest, BookingsOnVeryManyDaysAreTakenInOneChange) {
  const auto making = Begin();
  MakeTables(*making);
  std::vector<FieldValues> rows;
  for (int i = 0; i < 20'000; ++i) {
    rows.push_back({{"RmID", std::int64_t{i % 7}},
                    {"DateOfRes", AddDays(MakeDate(1980, 1, 1).value(), i)},
                    {"TimeFrom", std::int64_t{1}},
                    {"TimeTo", std::int64_t{4}}});
  }
  making->Rows().InsertAll("Reserv", rows);
  EXPECT_EQ(rows.size(), Count(*making->Save(), "Reserv"));
}

TEST_F(MakingTest, ACalendarThatIsThereIsNotWrittenOver) {
  {
    const auto making = Begin();
    MakeTables(*making);
    making->Rows().Insert("Rooms", {{"Name", std::string("Pool")}});
    making->Save();
  }
  const auto again = Begin();
  EXPECT_THROW(MakeTables(*again), DatabaseError);
  EXPECT_EQ(1U, Count(*Open(), "Rooms"));
}

TEST_F(MakingTest, WhatAnAdministratorMadeIsFilledByADeskThatMayOnlyWriteRows) {
  const std::string role = Role();
  {
    const auto making = CreateSharedCalendar(LinkOf(role), kFile);
    MakeTables(*making);
    making->Rows().Insert("Rooms", {{"ID", std::int64_t{5}}, {"Name", std::string("Pool")}});
    const auto saved = making->Save();
    EXPECT_EQ(Value(std::int64_t{6}), saved->Insert("Rooms", {}).Values.at(0));
  }
  DropRole(role);
}

TEST_F(MakingTest, SuchADeskBooksAndCannotChangeTables) {
  const std::string role = Role();
  {
    const auto desk = OpenPostgres(LinkOf(role), kFile, StoreAccess::ReadWrite, {});
    const Row row = desk->Insert("Reserv", {{"RmID", std::int64_t{1}},
                                            {"DateOfRes", MakeDate(2026, 3, 5).value()},
                                            {"TimeFrom", std::int64_t{1}},
                                            {"TimeTo", std::int64_t{4}}});
    desk->ChangeAll({{.What = RowChange::Kind::Remove, .Table = "Reserv", .Before = row}},
                    {{ParseQuery("SELECT * FROM Reserv"), {row}}});
    EXPECT_EQ(0U, Count(*desk, "Reserv"));
    EXPECT_THROW(desk->CreateTable(GuestTable()), DatabaseError);
    EXPECT_THROW(desk->AddColumn("Rooms", {.Name = "Note"}), DatabaseError);
    EXPECT_THROW(
        server_.Run("SET ROLE " + role + "; DROP TABLE \"" + link_.Schema + "\".\"Rooms\""),
        std::runtime_error);
  }
  DropRole(role);
}

TEST_F(MakingTest, ACopyIsAFileThatGoesOnWithTheNumbers) {
  const TempFolder folder;
  const auto making = Begin();
  MakeTables(*making);
  const auto store = making->Save();
  store->Insert("Rooms", {{"Name", std::string("Pool")}});
  store->Delete("Rooms", store->Insert("Rooms", {{"Name", std::string("Hall")}}));
  const std::string copy = folder.File("Copy.mdb").string();
  store->CopyTo(copy);
  const auto file = OpenFileStore(copy, StoreAccess::ReadWrite);
  EXPECT_EQ(FileKind::Sqlite, file->Describe().Kind);
  EXPECT_EQ(1U, Count(*file, "Rooms"));
  EXPECT_EQ(Value(std::int64_t{3}), file->Insert("Rooms", {}).Values.at(0));
}

TEST_F(MakingTest, ItDescribesItself) {
  const auto making = Begin();
  MakeTables(*making);
  const StoreDescription found = making->Save()->Describe();
  EXPECT_EQ(FileKind::Postgres, found.Kind);
  EXPECT_EQ("PostgreSQL", found.KindName);
  EXPECT_EQ("UTF-8", found.CodePage);
  ASSERT_EQ(3U, found.Tables.size());
  EXPECT_EQ("Rooms", found.Tables[0].Name);
  EXPECT_TRUE(found.Tables[0].Columns.at(0).AutoNumber);
  EXPECT_EQ(ColumnType::Day, found.Tables[1].Columns.at(2).Type);
  EXPECT_EQ("ReservByDay", found.Tables[1].Indexes.at(0).Name);
  EXPECT_EQ((std::vector<std::string>{"RmID", "DateOfRes", "TimeFrom"}),
            found.Tables[1].Indexes.at(0).Columns);
}

}  // namespace
}  // namespace veyra::postgres
