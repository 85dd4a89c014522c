#include "logic/clock.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <time.h>

namespace veyra {
namespace {

TEST(ClockTest, TheSystemClockTellsTheLocalDate) {
  const std::time_t before = std::time(nullptr);
  const Date today = SystemClock().Today();
  const std::time_t after = std::time(nullptr);
  const auto day_of = [](std::time_t time) {
    std::tm local{};
    localtime_r(&time, &local);
    return MakeDate(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday).value();
  };
  EXPECT_TRUE(today == day_of(before) || today == day_of(after));
}

TEST(ClockTest, TheDayTurnsWithTheTimeZone) {
  ASSERT_EQ(0, setenv("TZ", "UTC-14", 1));
  tzset();
  const Date east = SystemClock().Today();
  ASSERT_EQ(0, setenv("TZ", "UTC+12", 1));
  tzset();
  const Date west = SystemClock().Today();
  unsetenv("TZ");
  tzset();
  EXPECT_GE(DaysBetween(west, east), 1);
}

}  // namespace
}  // namespace veyra
