#include "logic/others_changes.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/fake_feed.h"

namespace veyra::modRes {
namespace {

class OthersChangesTest : public testing::Test {
 protected:
  void Take() { changes_.Add(feed_.TakeChanges()); }

  bool Concern(std::int64_t facility, const std::string& first, const std::string& last) const {
    return changes_.AreOfBookings(facility, DateFromIsoText(first).value(),
                                  DateFromIsoText(last).value());
  }

  FakeFeed feed_;
  OthersChanges changes_;
};

TEST_F(OthersChangesTest, AtFirstThereAreNone) {
  Take();
  EXPECT_FALSE(changes_.AreThere());
  EXPECT_FALSE(changes_.AreOfFacilities());
  EXPECT_FALSE(changes_.AreOfBookings());
  EXPECT_FALSE(Concern(1, "2014-03-01", "2014-03-31"));
}

TEST_F(OthersChangesTest, ABookingConcernsItsFacilityAndDay) {
  feed_.TellBooking(2, "2014-03-31");
  Take();
  EXPECT_TRUE(changes_.AreThere());
  EXPECT_TRUE(changes_.AreOfBookings());
  EXPECT_FALSE(changes_.AreOfFacilities());
  EXPECT_TRUE(Concern(2, "2014-03-01", "2014-03-31"));
  EXPECT_TRUE(Concern(2, "2014-03-31", "2014-03-31"));
  EXPECT_FALSE(Concern(2, "2014-03-01", "2014-03-30"));
  EXPECT_FALSE(Concern(2, "2014-04-01", "2014-04-30"));
  EXPECT_FALSE(Concern(1, "2014-03-01", "2014-03-31"));
  EXPECT_FALSE(Concern(3, "2014-03-01", "2014-03-31"));
}

TEST_F(OthersChangesTest, WhatThisDeskHasDoneIsShownAlready) {
  feed_.TellBooking(2, "2014-03-31", true);
  feed_.TellFacility(2, true);
  Take();
  EXPECT_FALSE(changes_.AreThere());
}

TEST_F(OthersChangesTest, AFacilityIsNoBooking) {
  feed_.TellFacility(2);
  Take();
  EXPECT_TRUE(changes_.AreThere());
  EXPECT_TRUE(changes_.AreOfFacilities());
  EXPECT_FALSE(changes_.AreOfBookings());
}

TEST_F(OthersChangesTest, WhereSomethingWasMissedEverythingIsConcerned) {
  feed_.TellAnything();
  Take();
  EXPECT_TRUE(changes_.AreOfFacilities());
  EXPECT_TRUE(Concern(9, "2014-03-01", "2014-03-01"));
}

TEST_F(OthersChangesTest, ABookingWithoutADayMayBeAnywhere) {
  changes_.Add(SharedChanges{.Rows = {{.Table = "Reserv", .Facility = 1, .Day = {}}}});
  EXPECT_TRUE(Concern(2, "2014-03-01", "2014-03-01"));
}

TEST_F(OthersChangesTest, ThereIsAnEndToWhatIsToldApart) {
  const Date first = MakeDate(2014, 1, 1).value();
  SharedChanges many;
  for (std::size_t i = 0; i <= OthersChanges::kMostDays; ++i) {
    many.Rows.push_back(
        {.Table = "Reserv", .Facility = 1, .Day = AddDays(first, static_cast<int>(i))});
  }
  changes_.Add(many);
  EXPECT_TRUE(changes_.AreOfBookings(7, first, first));
}

TEST_F(OthersChangesTest, TheColoursAreNotReadAnew) {
  changes_.Add(SharedChanges{.Rows = {{.Table = "Settings", .Facility = {}, .Day = {}}}});
  EXPECT_FALSE(changes_.AreThere());
}

}  // namespace
}  // namespace veyra::modRes
