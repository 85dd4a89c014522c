#include "logic/free_times.h"

#include <gtest/gtest.h>

#include "tests/calendar_folder.h"

namespace veyra::modRes {
namespace {

constexpr std::size_t kMost = 1000;

/// With the facilities Pool and Hall; 6 April 2014 is a Sunday.
class FreeTimesTest : public testing::Test {
 protected:
  FreeTimesTest() {
    pool_ = folder_.AddRoom("Pool", true);
    hall_ = folder_.AddRoom("Hall");
    SlotLabels(labels_);
    wish_.From = Day(6);
    wish_.To = Day(6);
    wish_.Weekdays = OneBased<bool, 7>({true, true, true, true, true, true, true});
    wish_.Hours = {19, 30};
    wish_.HalfHours = 4;
    wish_.Facilities = ReadFacilities(*folder_.Calendar());
  }

  static Date Day(int day) { return AddDays(MakeDate(2014, 4, 1).value(), day - 1); }

  void Book(std::int64_t room, int day, int from, int to) {
    folder_.AddBooking(room, IsoText(Day(day)), from, to, "Smith");
  }

  void LookOnlyAt(std::size_t place) { wish_.Facilities = {wish_.Facilities.at(place)}; }

  std::string Found(std::size_t most = kMost) {
    const auto store = folder_.Calendar();
    FreeTimeFinder finder(*store, most);
    finder.LookFor(wish_);
    while (finder.WorkOn(std::chrono::hours{1})) {
    }
    return Lines(finder);
  }

  std::string Lines(const FreeTimeFinder& finder) const {
    std::string lines;
    for (const FreeTime& free : finder.Found()) {
      lines += FreeTimeLine(labels_, wish_, free).English() + "\n";
    }
    return lines;
  }

  CalendarFolder folder_;
  SlotLabelTable labels_;
  FreeTimeWish wish_;
  std::int64_t pool_ = 0;
  std::int64_t hall_ = 0;
};

TEST_F(FreeTimesTest, ADayWithoutBookingsIsFreeForAllTheHours) {
  EXPECT_EQ(
      "Sunday, 4/6/2014,  9:00A- 3:00P, Pool\n"
      "Sunday, 4/6/2014,  9:00A- 3:00P, Hall\n",
      Found());
}

TEST_F(FreeTimesTest, WhatBookingsLeaveIsFreeWhenItIsLongEnough) {
  LookOnlyAt(0);
  Book(pool_, 6, 22, 24);
  Book(pool_, 6, 29, 48);
  EXPECT_EQ("Sunday, 4/6/2014, 12:00P- 2:00P, Pool\n", Found());
  wish_.HalfHours = 3;
  EXPECT_EQ(
      "Sunday, 4/6/2014,  9:00A-10:30A, Pool\n"
      "Sunday, 4/6/2014, 12:00P- 2:00P, Pool\n",
      Found());
}

TEST_F(FreeTimesTest, BookingsOfOtherFacilitiesAndDaysTakeNothing) {
  LookOnlyAt(0);
  Book(hall_, 6, 1, 48);
  Book(pool_, 5, 1, 48);
  Book(pool_, 7, 1, 48);
  EXPECT_EQ("Sunday, 4/6/2014,  9:00A- 3:00P, Pool\n", Found());
}

TEST_F(FreeTimesTest, OneBookingInsideAnotherTakesNothingBack) {
  LookOnlyAt(0);
  Book(pool_, 6, 19, 26);
  Book(pool_, 6, 20, 20);
  EXPECT_EQ("Sunday, 4/6/2014,  1:00P- 3:00P, Pool\n", Found());
}

TEST_F(FreeTimesTest, ABookingThatRunsPastTheDayTakesWhatTheDayWindowShows) {
  LookOnlyAt(0);
  Book(pool_, 6, 25, 60);
  Book(pool_, 6, -3, 20);
  EXPECT_EQ("Sunday, 4/6/2014, 10:00A-12:00P, Pool\n", Found());
}

TEST_F(FreeTimesTest, OnlyTickedWeekdaysBetweenTheDatesAreLookedAt) {
  LookOnlyAt(0);
  wish_.From = Day(1);
  wish_.To = Day(15);
  wish_.Weekdays = {};
  wish_.Weekdays[3] = true;
  EXPECT_EQ(
      "Tuesday, 4/1/2014,  9:00A- 3:00P, Pool\n"
      "Tuesday, 4/8/2014,  9:00A- 3:00P, Pool\n"
      "Tuesday, 4/15/2014,  9:00A- 3:00P, Pool\n",
      Found());
}

TEST_F(FreeTimesTest, WithinADayTheEarlierTimeComesFirst) {
  Book(pool_, 6, 19, 20);
  Book(hall_, 6, 23, 24);
  EXPECT_EQ(
      "Sunday, 4/6/2014,  9:00A-11:00A, Hall\n"
      "Sunday, 4/6/2014, 10:00A- 3:00P, Pool\n"
      "Sunday, 4/6/2014, 12:00P- 3:00P, Hall\n",
      Found());
}

TEST_F(FreeTimesTest, DatesThatEndBeforeTheyBeginHaveNothing) {
  wish_.To = Day(5);
  EXPECT_EQ("", Found());
}

TEST_F(FreeTimesTest, TheLastDayOfTheCalendarCanBeFree) {
  LookOnlyAt(0);
  wish_.From = MakeDate(kLastYear, 12, 31).value();
  wish_.To = wish_.From;
  EXPECT_EQ("Friday, 12/31/9999,  9:00A- 3:00P, Pool\n", Found());
}

TEST_F(FreeTimesTest, NoMoreAreFoundThanMayBe) {
  wish_.To = MakeDate(kLastYear, 12, 31).value();
  const auto store = folder_.Calendar();
  FreeTimeFinder finder(*store, 3);
  finder.LookFor(wish_);
  EXPECT_FALSE(finder.WorkOn(std::chrono::hours{1}));
  EXPECT_TRUE(finder.IsFull());
  EXPECT_EQ(
      "Sunday, 4/6/2014,  9:00A- 3:00P, Pool\n"
      "Sunday, 4/6/2014,  9:00A- 3:00P, Hall\n"
      "Monday, 4/7/2014,  9:00A- 3:00P, Pool\n",
      Lines(finder));
}

TEST_F(FreeTimesTest, PieceByPieceItFindsTheSame) {
  LookOnlyAt(0);
  wish_.From = Day(1);
  wish_.To = Day(700);
  const auto store = folder_.Calendar();
  std::vector<FieldValues> bookings;
  for (int day = 1; day <= 700; ++day) {
    if (day % 97 != 0) {
      bookings.push_back({{"RmID", pool_},
                          {"Event", std::string("Smith")},
                          {"DateOfRes", Day(day)},
                          {"TimeFrom", std::int64_t{1}},
                          {"TimeTo", std::int64_t{48}}});
    }
  }
  store->InsertAll("Reserv", bookings);
  FreeTimeFinder finder(*store, kMost);
  finder.LookFor(wish_);
  int pieces = 0;
  while (finder.WorkOn(std::chrono::nanoseconds{0})) {
    ++pieces;
  }
  EXPECT_GT(pieces, 100);
  EXPECT_EQ(7U, finder.Found().size());
  EXPECT_EQ(Found(), Lines(finder));
}

TEST_F(FreeTimesTest, WhatIsLookedForAnewForgetsWhatWasFound) {
  LookOnlyAt(0);
  const auto store = folder_.Calendar();
  FreeTimeFinder finder(*store, kMost);
  EXPECT_FALSE(finder.WorkOn(std::chrono::hours{1}));
  finder.LookFor(wish_);
  finder.WorkOn(std::chrono::nanoseconds{0});
  wish_.Hours = {1, 4};
  finder.LookFor(wish_);
  finder.WorkOn(std::chrono::hours{1});
  EXPECT_EQ("Sunday, 4/6/2014, 12:00A- 2:00A, Pool\n", Lines(finder));
  finder.Stop();
  EXPECT_FALSE(finder.WorkOn(std::chrono::hours{1}));
  EXPECT_EQ("", Lines(finder));
}

TEST_F(FreeTimesTest, ManyFacilitiesAreReadWithoutNamingThem) {
  const auto store = folder_.Calendar();
  for (int room = 0; room < 300; ++room) {
    store->Insert("Rooms", {{"Name", "Room"}, {"Active", std::int64_t{0}}});
  }
  wish_.Facilities = ReadFacilities(*store);
  Book(wish_.Facilities.back().ID, 6, 1, 48);
  FreeTimeFinder finder(*store, kMost);
  finder.LookFor(wish_);
  finder.WorkOn(std::chrono::hours{1});
  EXPECT_EQ(301U, finder.Found().size());
}

TEST(LengthTextTest, TellsHoursAndHalfHours) {
  EXPECT_EQ("30 min", LengthText(1));
  EXPECT_EQ("1 h", LengthText(2));
  EXPECT_EQ("1 h 30 min", LengthText(3));
  EXPECT_EQ("24 h", LengthText(48));
}

}  // namespace
}  // namespace veyra::modRes
