#include "tools/clock_text.h"

#include <gtest/gtest.h>

namespace veyra {
namespace {

TEST(ClockTextTest, ASlotBeginsOnTheHalfHour) {
  EXPECT_EQ("00:00", ClockText(1));
  EXPECT_EQ("09:30", ClockText(20));
  EXPECT_EQ("24:00", ClockText(49));
}

TEST(ClockTextTest, TimesOfDayInTheFormsThatAreInUse) {
  EXPECT_EQ(0, MinutesOf("0:00"));
  EXPECT_EQ(570, MinutesOf("09:30"));
  EXPECT_EQ(571, MinutesOf("9:31:59"));
  EXPECT_EQ(1440, MinutesOf("24:00"));
  EXPECT_EQ(0, MinutesOf("12:00A"));
  EXPECT_EQ(720, MinutesOf("12:00 PM"));
  EXPECT_EQ(1410, MinutesOf(" 11:30p "));
}

TEST(ClockTextTest, WhatIsNoTimeOfDay) {
  for (const char* text :
       {"", "9", "9:60", "24:30", "25:00", "13:00 PM", "0:30A", "9:30X", "-1:00"}) {
    EXPECT_EQ(std::nullopt, MinutesOf(text)) << text;
  }
}

TEST(ClockTextTest, LengthsAreRoundedUpToHalfHours) {
  EXPECT_EQ(4, HalfHoursOf("2h"));
  EXPECT_EQ(4, HalfHoursOf("2"));
  EXPECT_EQ(3, HalfHoursOf("1.5h"));
  EXPECT_EQ(3, HalfHoursOf("1h30"));
  EXPECT_EQ(1, HalfHoursOf("10m"));
  EXPECT_EQ(48, HalfHoursOf("24h"));
}

TEST(ClockTextTest, WhatIsNoLengthWithinADay) {
  for (const char* text : {"", "0", "0m", "24h1", "25h", "h", "2 days", "-2h"}) {
    EXPECT_EQ(std::nullopt, HalfHoursOf(text)) << text;
  }
}

}  // namespace
}  // namespace veyra
