#include "forms/day/day_hints.h"

#include <gtest/gtest.h>

namespace veyra {
namespace {

class DayHintsTest : public testing::Test {
 protected:
  DayHintsTest() { modRes::SlotLabels(labels_); }

  std::string Range(int first, int last, bool several_days = false) const {
    return RangeHint(labels_, grid_, {first, last}, several_days).English();
  }

  static modRes::GroupDates Dates(std::size_t count, int year, int month, int day) {
    return {count, {}, MakeDate(year, month, day)};
  }

  modRes::SlotLabelTable labels_;
  DayGrid grid_;
};

TEST_F(DayHintsTest, AFreeRangeSaysItsTimesAndItsLength) {
  EXPECT_EQ("9:00A-10:30A, 1 h 30 min, free", Range(19, 21));
  EXPECT_EQ("11:30P-12:00A, 30 min, free", Range(48, 48));
}

TEST_F(DayHintsTest, ARangeForASeriesIsFreeOnThisDayOnly) {
  EXPECT_EQ("9:00A-10:30A, 1 h 30 min, free on this day", Range(19, 21, true));
}

TEST_F(DayHintsTest, WhoIsInTheWayIsNamed) {
  grid_.Add(21, 22, "Smith");
  EXPECT_EQ("9:00A-10:00A, 1 h, free", Range(19, 20));
  EXPECT_EQ("9:00A-10:30A, 1 h 30 min, taken by Smith", Range(19, 21));
  grid_.Add(23, 23, "Smith");
  EXPECT_EQ("9:00A-11:30A, 2 h 30 min, taken by Smith and Smith", Range(19, 23));
  grid_.Add(24, 30, "");
  EXPECT_EQ("9:00A-12:00P, 3 h, taken by Smith and 2 others", Range(19, 24));
}

TEST_F(DayHintsTest, ARowSaysItsBookingsNameAndTimes) {
  grid_.Add(19, 21, "Smith");
  grid_.Add(20, 20, "Jones");
  EXPECT_EQ("Smith\n9:00A-10:30A, 1 h 30 min", BookingHint(labels_, grid_, 21));
  EXPECT_EQ("Jones\n9:30A-10:00A, 30 min", BookingHint(labels_, grid_, 20));
}

TEST_F(DayHintsTest, ASeriesSaysHowManyDatesThereAreUntilWhen) {
  const Date shown = MakeDate(2014, 4, 6).value();
  EXPECT_EQ("one of 8 dates until 12/22", SeriesHint(Dates(8, 2014, 12, 22), shown));
  EXPECT_EQ("one of 2 dates until 1/5/2015", SeriesHint(Dates(2, 2015, 1, 5), shown));
  EXPECT_EQ("the only date left of a series", SeriesHint(Dates(1, 2014, 4, 6), shown));
}

}  // namespace
}  // namespace veyra
