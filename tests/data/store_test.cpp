#include "data/store.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "data/errors.h"
#include "data/open_store.h"
#include "data/schema.h"
#include "data/text.h"
#include "tests/store_kind.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

/// Characters of two UTF-16 code units each.
std::string Balls(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += "\U0001F3BE";
  return text;
}

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
    for (Row row; source->Next(row);) rows.push_back(row);
    return rows;
  }

  /// One column of the rows found, each followed by a semicolon.
  std::string Found(const std::string& sql, std::size_t column) {
    std::string found;
    for (const Row& row : Rows(sql)) found += ToText(row.Values.at(column)) + ";";
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

INSTANTIATE_TEST_SUITE_P(Kinds, StoreTest, testing::ValuesIn(kAllStoreKinds),
                         [](const auto& kind) { return NameOf(kind.param); });

// The catalogue

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

// Queries

TEST_P(StoreTest, FindsNothingInAnEmptyTable) {
  EXPECT_EQ("", RoomNames());
}

TEST_P(StoreTest, GivesRowsInTheOrderTheyWereAdded) {
  for (const char* name : {"Pool", "Hall", "Bar"}) AddRoom(name);
  EXPECT_EQ("Pool;Hall;Bar;", RoomNames());
}

TEST_P(StoreTest, FindsAFacilitysDayInSlotOrder) {
  AddBooking(1, "2014-04-06", 30, 31, "late");
  AddBooking(2, "2014-04-06", 1, 2, "elsewhere");
  AddBooking(1, "2014-04-06", 19, 21, "early");
  AddBooking(1, "2014-04-07", 3, 4, "tomorrow");
  EXPECT_EQ("early;late;", Events(" Where RmID = 1 And DateOfRes = #4/6/2014# Order By TimeFrom;"));
}

TEST_P(StoreTest, KeepsTheOrderOfAddingAmongEqualRows) {
  for (const char* event : {"c", "a", "b"}) AddBooking(1, "2014-04-06", 5, 6, event);
  EXPECT_EQ("c;a;b;", Events(" Where RmID = 1 And DateOfRes = #4/6/2014# Order By TimeFrom"));
}

TEST_P(StoreTest, KeepsTheOrderOfAddingWithoutAnOrder) {
  AddBooking(1, "2014-04-08", 5, 6, "c");
  AddBooking(1, "2014-04-06", 7, 8, "a");
  AddBooking(1, "2014-04-07", 1, 2, "b");
  EXPECT_EQ("c;a;b;", Events(" Where RmID = 1"));
}

TEST_P(StoreTest, OrdersDownwards) {
  for (const std::int64_t slot : {2, 3, 1}) {
    AddBooking(1, "2014-04-06", slot, slot, std::to_string(slot));
  }
  EXPECT_EQ("3;2;1;", Events(" Order By TimeFrom DESC"));
}

TEST_P(StoreTest, OrdersByASecondColumnWhereTheFirstIsEqual) {
  AddBooking(2, "2014-04-06", 1, 1, "c");
  AddBooking(1, "2014-04-06", 9, 9, "b");
  AddBooking(1, "2014-04-06", 2, 2, "a");
  EXPECT_EQ("a;b;c;", Events(" Order By RmID, TimeFrom"));
}

TEST_P(StoreTest, FindsARangeThatHoldsEitherEnd) {
  AddBooking(1, "2014-03-17", 10, 18, "first end");
  AddBooking(2, "2014-03-17", 20, 25, "last end");
  AddBooking(1, "2014-03-17", 19, 19, "inside");
  AddBooking(1, "2014-03-17", 21, 22, "after");
  EXPECT_EQ("first end;last end;",
            Events(" Where DateOfRes = #3/17/2014# And ((18 >= TimeFrom AND 18 <= TimeTo) OR (20 "
                   ">= TimeFrom AND 20 <= TimeTo));"));
}

struct Comparing {
  const char* Where;
  const char* Found;
};

TEST_P(StoreTest, UnderstandsEachComparison) {
  for (const std::int64_t slot : {1, 2, 3}) {
    AddBooking(1, "2014-04-06", slot, slot, std::to_string(slot));
  }
  for (const auto& [where, found] :
       {Comparing{"TimeFrom = 2", "2;"}, Comparing{"TimeFrom <> 2", "1;3;"},
        Comparing{"TimeFrom < 2", "1;"}, Comparing{"TimeFrom <= 2", "1;2;"},
        Comparing{"TimeFrom > 2", "3;"}, Comparing{"TimeFrom >= 2", "2;3;"},
        Comparing{"2 < TimeFrom", "3;"}, Comparing{"TimeFrom = TimeTo", "1;2;3;"},
        Comparing{"Event = '2'", "2;"}, Comparing{"TimeFrom = 2.0", "2;"},
        Comparing{"TimeFrom > 1.5", "2;3;"}, Comparing{"TimeFrom = -2", ""},
        Comparing{"DateOfRes > #4/5/2014#", "1;2;3;"}, Comparing{"DateOfRes < #4/6/2014#", ""}}) {
    EXPECT_EQ(found, Events(std::string(" Where ") + where)) << where;
  }
}

TEST_P(StoreTest, ComparesNothingWithNull) {
  store_->Insert("Reserv", {{"Event", "no room"}});
  EXPECT_EQ("", Events(" Where RmID = 0 Or RmID <> 0"));
}

TEST_P(StoreTest, FindsAGroupByItsKey) {
  store_->Insert("Reserv", {{"Event", "single"}, {"RmID", 1}});
  store_->Insert("Reserv", {{"Event", "group"}, {"RmID", 1}, {"MultKey", 20140406153012.0}});
  EXPECT_EQ("group;", Events(" Where RmID = 1 And MultKey = 20140406153012"));
}

TEST_P(StoreTest, FindsATextWithAQuoteInIt) {
  AddBooking(1, "2014-04-06", 1, 1, "O'Neil");
  EXPECT_EQ("O'Neil;", Events(" Where Event = 'O''Neil'"));
}

TEST_P(StoreTest, TakesAConditionForATextNotForPartOfTheQuery) {
  AddBooking(1, "2014-04-06", 1, 1, "party");
  EXPECT_EQ("", Events(" Where Event = '' Or Event = 'x'' OR 1=1 --'"));
}

TEST_P(StoreTest, SeesARowThatAnotherProgramAdds) {
  EXPECT_EQ("", RoomNames());
  Other()->Insert("Rooms", {{"Name", "Pool"}});
  EXPECT_EQ("Pool;", RoomNames());
}

TEST_P(StoreTest, AnswersTheSameQuestionForTwoReadersAtOnce) {
  for (const char* name : {"Pool", "Hall"}) AddRoom(name);
  const Query query = ParseQuery("SELECT * FROM Rooms");
  const auto first = store_->Select(query);
  const auto second = store_->Select(query);
  Row row;
  ASSERT_TRUE(first->Next(row));
  ASSERT_TRUE(second->Next(row));
  ASSERT_TRUE(first->Next(row));
  EXPECT_EQ(Value("Hall"), row.Values.at(1));
}

TEST_P(StoreTest, GivesNoRowAfterTheLast) {
  AddRoom("Pool");
  const auto source = store_->Select(ParseQuery("SELECT * FROM Rooms"));
  Row row;
  ASSERT_TRUE(source->Next(row));
  EXPECT_FALSE(source->Next(row));
  EXPECT_FALSE(source->Next(row));
}

// Values

TEST_P(StoreTest, KeepsAWholeNumber) {
  EXPECT_EQ(Value(std::int64_t{2147483647}), RoundTrip("TimeTo", 4, std::int64_t{2147483647}));
}

TEST_P(StoreTest, KeepsANegativeNumber) {
  EXPECT_EQ(Value(std::int64_t{-2147483648}), RoundTrip("TimeTo", 4, std::int64_t{-2147483648}));
}

TEST_P(StoreTest, KeepsAGroupKeyToTheLastDigit) {
  EXPECT_EQ("99991231235959", ToText(RoundTrip("MultKey", 5, 99991231235959.0)));
}

TEST_P(StoreTest, KeepsADate) {
  EXPECT_EQ(DateFromIsoText("2014-04-06"),
            ToDate(RoundTrip("DateOfRes", 2, DateFromIsoText("2014-04-06").value())));
}

TEST_P(StoreTest, KeepsTheFirstDateOfAll) {
  EXPECT_EQ(DateFromIsoText("0100-01-01"),
            ToDate(RoundTrip("DateOfRes", 2, DateFromIsoText("0100-01-01").value())));
}

TEST_P(StoreTest, KeepsTheLastDateOfAll) {
  EXPECT_EQ(DateFromIsoText("9999-12-31"),
            ToDate(RoundTrip("DateOfRes", 2, DateFromIsoText("9999-12-31").value())));
}

TEST_P(StoreTest, KeepsAnEmptyTextApartFromNull) {
  EXPECT_EQ(Value(std::string()), RoundTrip("Event", 1, std::string()));
}

TEST_P(StoreTest, KeepsNullInEachColumnNotNamed) {
  store_->Insert("Reserv", {});
  EXPECT_EQ(std::vector<Value>(6), Rows("SELECT * FROM Reserv").at(0).Values);
}

TEST_P(StoreTest, KeepsAnUnsetGroupKeyNullThoughItsDefaultIsZero) {
  store_->Insert("Reserv", {{"RmID", 1}});
  EXPECT_TRUE(IsNull(Rows("SELECT * FROM Reserv").at(0).Values.at(5)));
}

TEST_P(StoreTest, KeepsAnyName) {
  for (const std::string& name :
       {std::string("O'Neil \"the\" [big] one"), std::string("#1/1/2014# -- ; % ? :x @y $z"),
        std::string("two\r\nlines\tand a tab"), std::string("\xF0\x9F\x8E\x89 party"),
        std::string("\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D \xD8\xB3\xD9\x84\xD8\xA7\xD9\x85"),
        std::string("  blanks around  ")}) {
    AddRoom(name);
    Reopen();
    EXPECT_EQ(Value(name), Rows("SELECT * FROM Rooms").back().Values.at(1));
  }
}

TEST_P(StoreTest, KeepsANameOfTenThousandCharacters) {
  std::string name;
  for (int i = 0; i < 10000; ++i) name += "\xC3\xA9";
  AddRoom(name);
  Reopen();
  EXPECT_EQ(name + ";", RoomNames());
}

// Adding

TEST_P(StoreTest, GivesANewRowItsKey) {
  EXPECT_EQ(Value(std::int64_t{1}), AddRoom("Pool").Values.at(0));
  EXPECT_EQ(Value(std::int64_t{2}), AddRoom("Hall").Values.at(0));
}

TEST_P(StoreTest, NeverGivesTheKeyOfADeletedRowAgain) {
  AddRoom("Pool");
  store_->Delete("Rooms", AddRoom("Hall"));
  Reopen();
  EXPECT_EQ(Value(std::int64_t{3}), AddRoom("Bar").Values.at(0));
}

TEST_P(StoreTest, ReturnsTheNewRowAsItIsReadLater) {
  const Row added = AddRoom("Pool", std::int64_t{1});
  const Row read = Rows("SELECT * FROM Rooms").at(0);
  EXPECT_EQ(read.Key, added.Key);
  EXPECT_EQ(read.Values, added.Values);
}

TEST_P(StoreTest, TakesColumnNamesInAnyLetterCase) {
  store_->Insert("ROOMS", {{"nAME", "Pool"}});
  EXPECT_EQ("Pool;", RoomNames());
}

// Changing and removing

TEST_P(StoreTest, ChangesOnlyTheFieldsNamed) {
  const Row row = AddRoom("Pool", std::int64_t{1});
  store_->Update("Rooms", row, {{"Name", "Lagoon"}});
  EXPECT_EQ((std::vector<Value>{std::int64_t{1}, "Lagoon", std::int64_t{1}}),
            Rows("SELECT * FROM Rooms").at(0).Values);
}

TEST_P(StoreTest, ReturnsTheChangedRow) {
  const Row row = AddRoom("Pool");
  EXPECT_EQ(Value("Lagoon"), store_->Update("Rooms", row, {{"Name", "Lagoon"}}).Values.at(1));
}

TEST_P(StoreTest, ChangesARowTwice) {
  const Row once = store_->Update("Rooms", AddRoom("a"), {{"Name", "b"}});
  store_->Update("Rooms", once, {{"Name", "c"}});
  EXPECT_EQ("c;", RoomNames());
}

TEST_P(StoreTest, ChangesOneOfTwoEqualRows) {
  AddBooking(1, "2014-04-06", 1, 1, "twin");
  AddBooking(1, "2014-04-06", 1, 1, "twin");
  store_->Update("Reserv", Rows("SELECT * FROM Reserv").at(1), {{"Event", "other"}});
  EXPECT_EQ("twin;other;", Events(""));
}

TEST_P(StoreTest, SetsAFieldToNull) {
  store_->Update("Rooms", AddRoom("Pool"), {{"Name", Null{}}});
  EXPECT_TRUE(IsNull(Rows("SELECT * FROM Rooms").at(0).Values.at(1)));
}

TEST_P(StoreTest, ChangesARowFullOfNulls) {
  const Row row = store_->Insert("Reserv", {});
  store_->Update("Reserv", row, {{"Event", "now"}});
  EXPECT_EQ("now;", Events(""));
}

TEST_P(StoreTest, RefusesToChangeARowThatAnotherProgramChanged) {
  const Row row = AddRoom("Pool");
  Other()->Update("Rooms", row, {{"Active", std::int64_t{1}}});
  EXPECT_THROW(store_->Update("Rooms", row, {{"Name", "Mine"}}), RowChangedError);
  EXPECT_EQ("Pool;", RoomNames());
}

TEST_P(StoreTest, RefusesToChangeARowThatAnotherProgramRemoved) {
  const Row row = AddRoom("Pool");
  Other()->Delete("Rooms", row);
  EXPECT_THROW(store_->Update("Rooms", row, {{"Name", "Mine"}}), RowChangedError);
  EXPECT_EQ("", RoomNames());
}

TEST_P(StoreTest, RemovesARow) {
  AddRoom("Pool");
  store_->Delete("Rooms", AddRoom("Hall"));
  EXPECT_EQ("Pool;", RoomNames());
}

TEST_P(StoreTest, RefusesToRemoveARowThatAnotherProgramChanged) {
  const Row row = AddRoom("Pool");
  Other()->Update("Rooms", row, {{"Name", "Theirs"}});
  EXPECT_THROW(store_->Delete("Rooms", row), RowChangedError);
  EXPECT_EQ("Theirs;", RoomNames());
}

TEST_P(StoreTest, RefusesToRemoveARowThatIsGone) {
  const Row row = AddRoom("Pool");
  Other()->Delete("Rooms", row);
  EXPECT_THROW(store_->Delete("Rooms", row), RowChangedError);
}

TEST_P(StoreTest, NoticesAChangeOfLetterCase) {
  const Row row = AddRoom("Pool");
  Other()->Update("Rooms", row, {{"Name", "POOL"}});
  EXPECT_THROW(store_->Update("Rooms", row, {{"Active", std::int64_t{1}}}), RowChangedError);
}

TEST_P(StoreTest, TellsInWordsThatARowWasChanged) {
  const Row row = AddRoom("Pool");
  Other()->Update("Rooms", row, {{"Name", "Theirs"}});
  try {
    store_->Delete("Rooms", row);
    FAIL() << "no report";
  } catch (const RowChangedError& error) {
    EXPECT_EQ(File(), error.report().File);
    EXPECT_EQ("Another program has just changed this row of the table Rooms.",
              error.report().Cause);
    EXPECT_NE("", error.report().Advice);
  }
}

TEST_P(StoreTest, ChangesARowWithAGroupKey) {
  const Row row = store_->Insert("Reserv", {{"Event", "a"}, {"MultKey", 20140406153012.0}});
  store_->Update("Reserv", row, {{"Event", "b"}});
  EXPECT_EQ("b;", Events(""));
}

// The schema

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

// Opened for reading only

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
