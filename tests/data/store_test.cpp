#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "data/errors.h"
#include "data/text.h"
#include "tests/data/store_fixture.h"

namespace veyra {
namespace {

/// Characters of two UTF-16 code units each.
std::string Balls(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) {
    text += "\U0001F3BE";
  }
  return text;
}

INSTANTIATE_TEST_SUITE_P(Kinds, StoreTest, testing::ValuesIn(kAllStoreKinds),
                         [](const auto& kind) { return NameOf(kind.param); });

TEST_P(StoreTest, NamesItsTables) {
  EXPECT_EQ((std::vector<std::string>{"Rooms", "Reserv"}), store_->TableNames());
}

TEST_P(StoreTest, NamesTheColumnsOfATableInTheirOrder) {
  EXPECT_EQ(
      (std::vector<std::string>{"RmID", "Event", "DateOfRes", "TimeFrom", "TimeTo", "MultKey"}),
      store_->ColumnNames("Reserv"));
}

TEST_P(StoreTest, FindsATableInAnyLetterCase) {
  EXPECT_EQ((std::vector<std::string>{"ID", "Name", "Active"}), store_->ColumnNames("rOOMS"));
}

TEST_P(StoreTest, TellsHowManyCharactersOfATextAColumnHolds) {
  const bool is_access = GetParam() == StoreKind::Access;
  EXPECT_EQ(50U, store_->FittingCharacters("Reserv", "Event", std::string(50, 'x')));
  EXPECT_EQ(is_access ? 50U : 53U,
            store_->FittingCharacters("rESERV", "eVENT", std::string(53, 'x')));
  EXPECT_EQ(is_access ? 25U : 50U, store_->FittingCharacters("Reserv", "Event", Balls(50)));
  EXPECT_EQ(is_access ? 49U : 51U,
            store_->FittingCharacters("Reserv", "Event", std::string(49, 'x') + Balls(2)));
  EXPECT_EQ(0U, store_->FittingCharacters("Reserv", "Event", ""));
  EXPECT_EQ(60U, store_->FittingCharacters("Reserv", "DateOfRes", std::string(60, 'x')));
}

TEST_P(StoreTest, TakesAsManyCharactersAsItTellsAndNoMore) {
  for (const std::string& text : {std::string(300, 'x'), Balls(300), "\xFF" + Balls(300)}) {
    const std::size_t fitting = store_->FittingCharacters("Reserv", "Event", text);
    EXPECT_NO_THROW(store_->Insert("Reserv", {{"Event", FirstCharacters(text, fitting)}}));
    if (fitting < CharacterCount(text)) {
      const std::string too_long = FirstCharacters(text, fitting + 1);
      EXPECT_THROW(store_->Insert("Reserv", {{"Event", too_long}}), DatabaseError);
    }
  }
}

TEST_P(StoreTest, ReportsTheMissingColumnThatATextIsMeantFor) {
  EXPECT_THROW(store_->FittingCharacters("Reserv", "Name", "x"), DatabaseError);
  EXPECT_THROW(store_->FittingCharacters("Settings", "Name", "x"), DatabaseError);
}

TEST_P(StoreTest, AFileThatIsOnlyReadTellsItToo) {
  store_.reset();
  const auto reader = OpenStore(File(), StoreAccess::ReadOnly);
  EXPECT_EQ(GetParam() == StoreKind::Access ? 50U : 53U,
            reader->FittingCharacters("Reserv", "Event", std::string(53, 'x')));
  EXPECT_THROW(reader->FittingCharacters("Reserv", "Name", "x"), DatabaseError);
}

TEST_P(StoreTest, ReportsAMissingTable) {
  try {
    store_->ColumnNames("Settings");
    FAIL() << "no report";
  } catch (const DatabaseError& error) {
    EXPECT_EQ(File(), error.report().File);
    EXPECT_EQ("The file has no table Settings.", error.report().Cause);
    EXPECT_NE("", error.report().Advice);
  }
}

TEST_P(StoreTest, ReportsAMissingTableOfAQuery) {
  EXPECT_THROW(Rows("SELECT * FROM Settings"), DatabaseError);
}

TEST_P(StoreTest, ReportsAMissingColumnOfACondition) {
  try {
    Rows("SELECT * FROM Reserv Where (RmID = 1 Or Colour = 2)");
    FAIL() << "no report";
  } catch (const DatabaseError& error) {
    EXPECT_EQ(File(), error.report().File);
    EXPECT_EQ("The table Reserv has no column Colour.", error.report().Cause);
    EXPECT_NE("", error.report().Advice);
  }
}

TEST_P(StoreTest, ReportsAMissingColumnOfAnOrder) {
  EXPECT_THROW(Rows("SELECT * FROM Reserv Order By Colour"), DatabaseError);
}

TEST_P(StoreTest, ReportsAMissingColumnOfANewRow) {
  EXPECT_THROW(store_->Insert("Rooms", {{"Colour", std::int64_t{1}}}), DatabaseError);
}

TEST_P(StoreTest, AddsNothingWhenAColumnIsMissing) {
  EXPECT_THROW(store_->Insert("Rooms", {{"Name", "Pool"}, {"Colour", std::int64_t{1}}}),
               DatabaseError);
  EXPECT_EQ("", RoomNames());
}

TEST_P(StoreTest, ReportsAMissingColumnOfAChange) {
  const Row row = AddRoom("Pool");
  EXPECT_THROW(store_->Update("Rooms", row, {{"Name", "Hall"}, {"Colour", std::int64_t{1}}}),
               DatabaseError);
  EXPECT_EQ("Pool;", RoomNames());
}

TEST_P(StoreTest, RefusesToMakeATableThatIsThere) {
  AddRoom("Pool");
  EXPECT_THROW(store_->CreateTable(RoomsTable()), DatabaseError);
  EXPECT_EQ("Pool;", RoomNames());
}

TEST_P(StoreTest, KeepsANewTable) {
  store_->CreateTable({.Name = "Settings", .Columns = {{.Name = "BkGrnd", .Size = 16}}});
  Reopen();
  EXPECT_EQ(std::vector<std::string>{"BkGrnd"}, store_->ColumnNames("Settings"));
}

TEST_P(StoreTest, AddsAColumnAfterTheLast) {
  store_->AddColumn("Rooms", {.Name = "Floor", .Type = ColumnType::WholeNumber});
  EXPECT_EQ((std::vector<std::string>{"ID", "Name", "Active", "Floor"}),
            store_->ColumnNames("Rooms"));
}

TEST_P(StoreTest, ReadsTheDefaultOfANewColumnInRowsThatStoodBefore) {
  AddRoom("Pool");
  store_->AddColumn("Rooms", {.Name = "Key", .Type = ColumnType::Double, .Default = 0.0});
  Reopen();
  EXPECT_EQ(Value(0.0), Rows("SELECT * FROM Rooms").at(0).Values.at(3));
}

TEST_P(StoreTest, MakesATableWithItsFirstRows) {
  TableDefinition halls = RoomsTable();
  halls.Name = "Halls";
  halls.FirstRows = {{{"Name", "North"}, {"Active", std::int64_t{1}}}, {{"Name", "South"}}};
  store_->CreateTable(halls);
  EXPECT_EQ("North;South;", Found("SELECT * FROM Halls", 1));
  EXPECT_EQ("1;2;", Found("SELECT * FROM Halls", 0));
  Reopen();
  EXPECT_EQ("North;South;", Found("SELECT * FROM Halls", 1));
}

TEST_P(StoreTest, MakesNoTableWhenItsFirstRowsCannotBe) {
  TableDefinition halls = RoomsTable();
  halls.Name = "Halls";
  halls.FirstRows = {{{"Name", "North"}}, {{"Colour", "red"}}};
  EXPECT_THROW(store_->CreateTable(halls), DatabaseError);
  EXPECT_THROW(Rows("SELECT * FROM Halls"), MissingItemError);
  EXPECT_EQ((std::vector<std::string>{"Rooms", "Reserv"}), store_->TableNames());
  halls.FirstRows.pop_back();
  store_->CreateTable(halls);
  EXPECT_EQ("North;", Found("SELECT * FROM Halls", 1));
}

TEST_P(StoreTest, AddsAColumnThatCopiesAnotherInOneRow) {
  for (const char* name : {"Pool", "Hall", "Gym"}) {
    AddRoom(name);
  }
  store_->AddColumn(
      "Rooms",
      {.Name = "Label", .Size = 16, .Default = "none", .Copied = CopiedField{"Name", "ID", 2}});
  EXPECT_EQ("none;Hall;none;", Found("SELECT * FROM Rooms", 3));
}

TEST_P(StoreTest, AddsNoColumnThatCopiesWhatIsNotThere) {
  AddRoom("Pool");
  EXPECT_THROW(
      store_->AddColumn("Rooms",
                        {.Name = "Label", .Size = 16, .Copied = CopiedField{"Colour", "ID", 1}}),
      DatabaseError);
  EXPECT_EQ((std::vector<std::string>{"ID", "Name", "Active"}), store_->ColumnNames("Rooms"));
}

TEST_P(StoreTest, ReadsATextDefaultOfANewColumnInRowsThatStoodBefore) {
  AddRoom("Pool");
  store_->AddColumn("Rooms", {.Name = "Colour", .Size = 16, .Default = "it's 0"});
  EXPECT_EQ(Value("it's 0"), Rows("SELECT * FROM Rooms").at(0).Values.at(3));
}

TEST_P(StoreTest, ReadsNullInANewColumnWithoutADefault) {
  AddRoom("Pool");
  store_->AddColumn("Rooms", {.Name = "Note"});
  EXPECT_TRUE(IsNull(Rows("SELECT * FROM Rooms").at(0).Values.at(3)));
}

TEST_P(StoreTest, RefusesToAddAColumnThatIsThere) {
  EXPECT_THROW(store_->AddColumn("Rooms", {.Name = "Name"}), DatabaseError);
}

TEST_P(StoreTest, RefusesToAddAColumnToNoTable) {
  EXPECT_THROW(store_->AddColumn("Settings", {.Name = "Name"}), DatabaseError);
}

TEST_P(StoreTest, AnswersAKnownQuestionAfterAColumnWasAdded) {
  AddRoom("Pool");
  EXPECT_EQ(3u, Rows("SELECT * FROM Rooms").at(0).Values.size());
  store_->AddColumn("Rooms", {.Name = "Note"});
  EXPECT_EQ(4u, Rows("SELECT * FROM Rooms").at(0).Values.size());
}

TEST_P(StoreTest, SeesAColumnThatAnotherProgramAdded) {
  AddRoom("Pool");
  EXPECT_EQ(3u, Rows("SELECT * FROM Rooms").at(0).Values.size());
  Other()->AddColumn("Rooms", {.Name = "Note"});
  EXPECT_EQ(4u, Rows("SELECT * FROM Rooms").at(0).Values.size());
}

TEST_P(StoreTest, FillsAColumnThatAnotherProgramAdded) {
  AddRoom("Pool");
  Other()->AddColumn("Rooms", {.Name = "Note"});
  store_->Insert("Rooms", {{"Note", "deep"}});
  EXPECT_EQ(Value("deep"), Rows("SELECT * FROM Rooms").at(1).Values.at(3));
}

TEST_P(StoreTest, SeesATableThatAnotherProgramMade) {
  EXPECT_THROW(store_->ColumnNames("Settings"), DatabaseError);
  Other()->CreateTable({.Name = "Settings", .Columns = {{.Name = "BkGrnd"}}});
  EXPECT_EQ(std::vector<std::string>{"BkGrnd"}, store_->ColumnNames("Settings"));
}

TEST_P(StoreTest, ReadOnlyGivesTheRows) {
  AddRoom("Pool");
  store_.reset();
  store_ = OpenStore(File(), StoreAccess::ReadOnly);
  EXPECT_EQ("Pool;", RoomNames());
}

TEST_P(StoreTest, ReadOnlyRefusesEachChange) {
  const Row row = AddRoom("Pool");
  store_.reset();
  store_ = OpenStore(File(), StoreAccess::ReadOnly);
  EXPECT_THROW(AddRoom("Hall"), DatabaseError);
  EXPECT_THROW(store_->Update("Rooms", row, {{"Name", "Hall"}}), DatabaseError);
  EXPECT_THROW(store_->Delete("Rooms", row), DatabaseError);
  EXPECT_THROW(store_->CreateTable(GuestTable()), DatabaseError);
  EXPECT_THROW(store_->AddColumn("Rooms", {.Name = "Note"}), DatabaseError);
  EXPECT_EQ("Pool;", RoomNames());
}

TEST_P(StoreTest, ReadOnlyLeavesTheFolderAsItWas) {
  AddRoom("Pool");
  store_.reset();
  const std::string before = folder_.Read("Calendar.mdb");
  store_ = OpenStore(File(), StoreAccess::ReadOnly);
  EXPECT_EQ("Pool;", RoomNames());
  EXPECT_EQ(before, folder_.Read("Calendar.mdb"));
  EXPECT_EQ(std::vector<std::string>{"Calendar.mdb"}, folder_.Names());
}

TEST_P(StoreTest, ClosedItIsOneFile) {
  AddRoom("Pool");
  EXPECT_EQ("Pool;", RoomNames());
  store_.reset();
  EXPECT_EQ(std::vector<std::string>{"Calendar.mdb"}, folder_.Names());
}

TEST_P(StoreTest, GivesTheFullNameOfTheFile) {
  EXPECT_EQ(File(), store_->FileName());
}

}  // namespace
}  // namespace veyra
