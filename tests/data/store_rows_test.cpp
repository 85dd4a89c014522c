#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "data/errors.h"
#include "tests/data/store_fixture.h"

namespace veyra {
namespace {

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

TEST_P(StoreTest, GivesManyRowsThatAreAddedAtOnceAsStored) {
  const std::vector<Row> added =
      store_->InsertAll("Rooms", {{{"Name", "Hall"}}, {{"Name", "Pool"}}});
  Reopen();
  const std::vector<Row> stored = Rows("SELECT * FROM Rooms");
  ASSERT_EQ(2U, added.size());
  ASSERT_EQ(2U, stored.size());
  EXPECT_EQ(stored[0].Values, added[0].Values);
  EXPECT_EQ(stored[1].Values, added[1].Values);
  EXPECT_EQ("Hall;Pool;", RoomNames());
}

TEST_P(StoreTest, AddsNoneOfManyRowsWhenOneOfThemCannotBe) {
  EXPECT_THROW(store_->InsertAll("Rooms", {{{"Name", "Hall"}}, {{"Colour", std::int64_t{1}}}}),
               DatabaseError);
  EXPECT_EQ("", RoomNames());
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
  for (int i = 0; i < 10000; ++i) {
    name += "\xC3\xA9";
  }
  AddRoom(name);
  Reopen();
  EXPECT_EQ(name + ";", RoomNames());
}

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

TEST_P(StoreTest, GivesATableAnotherMarkAfterEveryChange) {
  auto mark = store_->MarkOf("Rooms");
  const auto expect_another = [&](const char* after) {
    const auto next = store_->MarkOf("rooms");
    EXPECT_TRUE(next == nullptr || next != mark) << "after " << after;
    mark = next;
  };
  const Row added = AddRoom("Pool");
  expect_another("a new row");
  const Row changed = store_->Update("Rooms", added, {{"Name", "Hall"}});
  expect_another("a new name");
  const Row others = Other()->Update("Rooms", changed, {{"Name", "Pool"}});
  expect_another("another program's new name");
  store_->Delete("Rooms", others);
  expect_another("a deletion");
}

TEST_P(StoreTest, ChangesARowWithAGroupKey) {
  const Row row = store_->Insert("Reserv", {{"Event", "a"}, {"MultKey", 20140406153012.0}});
  store_->Update("Reserv", row, {{"Event", "b"}});
  EXPECT_EQ("b;", Events(""));
}

}  // namespace
}  // namespace veyra
