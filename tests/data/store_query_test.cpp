#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "tests/data/store_fixture.h"

namespace veyra {
namespace {

TEST_P(StoreTest, FindsNothingInAnEmptyTable) {
  EXPECT_EQ("", RoomNames());
}

TEST_P(StoreTest, GivesRowsInTheOrderTheyWereAdded) {
  for (const char* name : {"Pool", "Hall", "Bar"}) {
    AddRoom(name);
  }
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
  for (const char* event : {"c", "a", "b"}) {
    AddBooking(1, "2014-04-06", 5, 6, event);
  }
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
  for (const char* name : {"Pool", "Hall"}) {
    AddRoom(name);
  }
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

}  // namespace
}  // namespace veyra
