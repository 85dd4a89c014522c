#include "logic/find_bookings.h"

#include <gtest/gtest.h>

#include "data/connection.h"
#include "tests/calendar_folder.h"

namespace veyra::modRes {
namespace {

/// On 6 April 2014, a Sunday, with the facilities Pool and Hall.
class FindBookingsTest : public testing::Test {
 protected:
  FindBookingsTest() {
    pool_ = folder_.AddRoom("Pool", true);
    hall_ = folder_.AddRoom("Hall");
    SlotLabels(labels_);
  }

  BookingFinder& Finder() {
    if (!finder_) {
      store_ = folder_.Calendar();
      finder_ = std::make_unique<BookingFinder>(*store_, MakeDate(2014, 4, 6).value());
    }
    return *finder_;
  }

  /// The lines to come, a line "past", and those past.
  std::string Find(const std::string& text) {
    Finder().LookFor(text);
    while (Finder().WorkOn(std::chrono::hours{1})) {
    }
    std::string lines;
    for (const FoundBooking& found : Finder().Upcoming()) {
      lines += FoundLine(labels_, found).English() + "\n";
    }
    lines += Finder().Past().empty() ? "" : "past\n";
    for (const FoundBooking& found : Finder().Past()) {
      lines += FoundLine(labels_, found).English() + "\n";
    }
    return lines;
  }

  void Book(const std::string& event, const std::string& day = "2014-04-06", int from = 19) {
    folder_.AddBooking(pool_, day, from, from + 2, event);
  }

  CalendarFolder folder_;
  SlotLabelTable labels_;
  std::unique_ptr<Store> store_;
  std::unique_ptr<BookingFinder> finder_;
  std::int64_t pool_ = 0;
  std::int64_t hall_ = 0;
};

TEST_F(FindBookingsTest, ALineTellsAllOfIt) {
  Book("Smith");
  EXPECT_EQ("Sunday, 4/6/2014,  9:00A-10:30A, Pool, Smith\n", Find("smith"));
}

TEST_F(FindBookingsTest, TheNextOneStandsOnTopAndThePastBelow) {
  Book("Smith 1", "2014-04-05");
  Book("Smith 2", "2015-01-01");
  Book("Smith 3", "2013-12-31");
  Book("Smith 4", "2014-04-06");
  EXPECT_EQ(
      "Sunday, 4/6/2014,  9:00A-10:30A, Pool, Smith 4\n"
      "Thursday, 1/1/2015,  9:00A-10:30A, Pool, Smith 2\n"
      "past\n"
      "Saturday, 4/5/2014,  9:00A-10:30A, Pool, Smith 1\n"
      "Tuesday, 12/31/2013,  9:00A-10:30A, Pool, Smith 3\n",
      Find("smith"));
}

TEST_F(FindBookingsTest, WithinADayTheTimesAreInOrderAndInThePastTurned) {
  Book("Late", "2014-04-06", 30);
  Book("Early", "2014-04-06", 10);
  Book("Lately", "2014-04-01", 30);
  Book("Earlier", "2014-04-01", 10);
  EXPECT_EQ(
      "Sunday, 4/6/2014,  4:30A- 6:00A, Pool, Early\n"
      "past\n"
      "Tuesday, 4/1/2014,  4:30A- 6:00A, Pool, Earlier\n",
      Find("earl"));
  EXPECT_EQ(
      "Sunday, 4/6/2014,  2:30P- 4:00P, Pool, Late\n"
      "past\n"
      "Tuesday, 4/1/2014,  2:30P- 4:00P, Pool, Lately\n",
      Find("lat"));
}

TEST_F(FindBookingsTest, EveryFacilityIsLookedThroughButThoseThatAreGone) {
  Book("Choir");
  folder_.AddBooking(hall_, "2014-04-06", 1, 2, "Choir");
  folder_.AddBooking(99, "2014-04-06", 1, 2, "Choir");
  EXPECT_EQ(
      "Sunday, 4/6/2014, 12:00A- 1:00A, Hall, Choir\n"
      "Sunday, 4/6/2014,  9:00A-10:30A, Pool, Choir\n",
      Find("choir"));
}

TEST_F(FindBookingsTest, EachWordBeginsAWordInAnyOrderAndCase) {
  Book("John Smith-Jones (wedding)");
  for (const char* text : {"john", "SMI", "jones", "wed john", " smith  john ", "Smith-J"}) {
    EXPECT_NE("", Find(text)) << text;
  }
  for (const char* text : {"mith", "john x", "johnsmith", "ing"}) {
    EXPECT_EQ("", Find(text)) << text;
  }
}

TEST_F(FindBookingsTest, LettersOfAnyScriptHaveAnyCase) {
  Book("Ольга Émile");
  EXPECT_NE("", Find("ОЛЬ"));
  EXPECT_NE("", Find("éMI"));
}

TEST_F(FindBookingsTest, WithoutAWordNothingIsLookedFor) {
  Book("Smith");
  EXPECT_EQ("", Find(""));
  EXPECT_EQ("", Find(" - "));
  EXPECT_FALSE(Finder().IsLooking());
  EXPECT_TRUE(Finder().IsDone());
}

TEST_F(FindBookingsTest, ADamagedBookingIsLeftOut) {
  folder_.AddBooking(pool_, "2014-04-06", 30, 20, "Smith");
  Book("Smith");
  EXPECT_EQ("Sunday, 4/6/2014,  9:00A-10:30A, Pool, Smith\n", Find("smith"));
}

TEST_F(FindBookingsTest, NoMoreAreFoundThanCanBeRead) {
  auto store = folder_.Calendar();
  for (int i = 0; i < 250; ++i) {
    for (const std::int64_t day : {1, -1}) {
      store->Insert("Reserv", {{"RmID", pool_},
                               {"Event", std::string("Smith")},
                               {"DateOfRes", AddDays(MakeDate(2014, 4, 6).value(), day * (i + 1))},
                               {"TimeFrom", std::int64_t{1}},
                               {"TimeTo", std::int64_t{1}},
                               {"MultKey", Null{}}});
    }
  }
  store.reset();
  Find("smith");
  EXPECT_EQ(BookingFinder::kMost, Finder().Upcoming().size());
  EXPECT_EQ(BookingFinder::kMost, Finder().Past().size());
  EXPECT_EQ(MakeDate(2014, 4, 7).value(), Finder().Upcoming().front().Day);
  EXPECT_EQ(MakeDate(2014, 4, 5).value(), Finder().Past().front().Day);
}

TEST_F(FindBookingsTest, PieceByPieceItFindsTheSame) {
  for (int i = 0; i < 600; ++i) {
    Book(i % 7 == 0 ? "Smith" : "Jones", IsoText(AddDays(MakeDate(2014, 1, 1).value(), i / 3)),
         1 + i % 3 * 10);
  }
  Finder().LookFor("smith");
  int pieces = 0;
  while (Finder().WorkOn(std::chrono::nanoseconds{0})) {
    ++pieces;
  }
  EXPECT_GT(pieces, 1);
  const std::size_t upcoming = Finder().Upcoming().size();
  const std::size_t past = Finder().Past().size();
  EXPECT_EQ(86U, upcoming + past);
  Find("smith");
  EXPECT_EQ(upcoming, Finder().Upcoming().size());
  EXPECT_EQ(past, Finder().Past().size());
}

TEST_F(FindBookingsTest, WhatIsTypedAnewIsFoundInWhatWasRead) {
  Book("Smith");
  Book("Jones", "2014-05-01");
  Find("smith");
  EXPECT_EQ("Thursday, 5/1/2014,  9:00A-10:30A, Pool, Jones\n", Find("jon"));
  EXPECT_EQ("", Find("jonx"));
  EXPECT_EQ("Thursday, 5/1/2014,  9:00A-10:30A, Pool, Jones\n", Find("jone"));
}

}  // namespace
}  // namespace veyra::modRes
