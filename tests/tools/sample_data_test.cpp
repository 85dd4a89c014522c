#include "tools/sample_data.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <tuple>

#include "data/text.h"

namespace veyra {
namespace {

Date Day(int year, int month, int day) {
  return MakeDate(year, month, day).value();
}

const Date kToday = Day(2026, 11, 21);

using Months = std::set<int>;

Months MonthsOf(const SampleData& sample) {
  Months months;
  for (const SampleBooking& booking : sample.Bookings) {
    months.insert(YearOf(booking.Day) * 100 + MonthOf(booking.Day));
  }
  return months;
}

std::string Overlaps(const SampleData& sample) {
  std::set<std::tuple<std::size_t, Date, int>> taken;
  std::string overlaps;
  for (const SampleBooking& booking : sample.Bookings) {
    for (int slot = booking.TimeFrom; slot <= booking.TimeTo; ++slot) {
      if (!taken.insert({booking.Facility, booking.Day, slot}).second) {
        overlaps += booking.Event + " on " + DateText(booking.Day) + "\n";
      }
    }
  }
  return overlaps;
}

std::string AsText(const SampleData& sample) {
  std::string text;
  for (const SampleBooking& booking : sample.Bookings) {
    text += std::to_string(booking.Facility) + " " + booking.Event + " " + DateText(booking.Day) +
            " " + std::to_string(booking.TimeFrom) + "-" + std::to_string(booking.TimeTo) + " " +
            std::to_string(booking.MultKey.value_or(0)) + "\n";
  }
  return text;
}

TEST(SampleDataTest, HasFiveFacilitiesAndFortyGuests) {
  const SampleData sample = MakeSampleData(kToday);
  EXPECT_EQ(5U, sample.Facilities.size());
  EXPECT_EQ(40U, sample.Guests.size());
}

TEST(SampleDataTest, NoTwoGuestsShareAName) {
  const SampleData sample = MakeSampleData(kToday);
  const std::set<std::string> names(sample.Guests.begin(), sample.Guests.end());
  EXPECT_EQ(sample.Guests.size(), names.size());
}

TEST(SampleDataTest, FillsLastMonthThisMonthAndNext) {
  EXPECT_EQ((Months{202610, 202611, 202612}), MonthsOf(MakeSampleData(kToday)));
}

TEST(SampleDataTest, GoesOverTheEndOfAYear) {
  EXPECT_EQ((Months{202512, 202601, 202602}), MonthsOf(MakeSampleData(Day(2026, 1, 31))));
  EXPECT_EQ((Months{202611, 202612, 202701}), MonthsOf(MakeSampleData(Day(2026, 12, 31))));
}

TEST(SampleDataTest, NoFacilityIsBookedTwiceAtATimeInTenYears) {
  for (int month = 0; month < 120; ++month) {
    const Date today = Day(2024 + month / 12, month % 12 + 1, 15);
    EXPECT_EQ("", Overlaps(MakeSampleData(today))) << DateText(today);
  }
}

TEST(SampleDataTest, EveryBookingHasSlotsOfADayAndAShortName) {
  for (const SampleBooking& booking : MakeSampleData(kToday).Bookings) {
    EXPECT_LE(1, booking.TimeFrom);
    EXPECT_LE(booking.TimeFrom, booking.TimeTo);
    EXPECT_LE(booking.TimeTo, 48);
    EXPECT_LE(CharacterCount(booking.Event), 50U);
    EXPECT_NE("", booking.Event);
  }
}

TEST(SampleDataTest, EveryFacilityIsBookedInEveryMonth) {
  std::map<std::size_t, SampleData> by_facility;
  for (const SampleBooking& booking : MakeSampleData(kToday).Bookings) {
    by_facility[booking.Facility].Bookings.push_back(booking);
  }
  ASSERT_EQ(5U, by_facility.size());
  for (const auto& [facility, bookings] : by_facility) {
    EXPECT_EQ(3U, MonthsOf(bookings).size()) << facility;
  }
}

TEST(SampleDataTest, ABookingGoesOnUntilMidnightInEveryMonth) {
  SampleData late;
  for (const SampleBooking& booking : MakeSampleData(kToday).Bookings) {
    if (booking.TimeTo == 48) {
      late.Bookings.push_back(booking);
    }
  }
  EXPECT_EQ(3U, MonthsOf(late).size());
}

TEST(SampleDataTest, AKeyIsSharedByTheDatesOfOneClassAndByNoOther) {
  std::map<std::int64_t, std::set<std::string>> classes;
  std::map<std::int64_t, int> dates;
  for (const SampleBooking& booking : MakeSampleData(kToday).Bookings) {
    if (booking.MultKey) {
      classes[*booking.MultKey].insert(std::to_string(booking.Facility) + booking.Event +
                                       std::to_string(WeekdayNumber(booking.Day)));
      ++dates[*booking.MultKey];
    }
  }
  ASSERT_LT(10U, classes.size());
  for (const auto& [key, names] : classes) {
    EXPECT_EQ(1U, names.size()) << key;
    EXPECT_LE(12, dates[key]) << key;
  }
}

TEST(SampleDataTest, KeysAreFourteenDigitsOfADateAndTime) {
  for (const SampleBooking& booking : MakeSampleData(kToday).Bookings) {
    if (!booking.MultKey) {
      continue;
    }
    const std::string digits = std::to_string(*booking.MultKey);
    ASSERT_EQ(14U, digits.size());
    EXPECT_EQ("20260921", digits.substr(0, 8));
    EXPECT_LT(std::stoi(digits.substr(8, 2)), 24) << digits;
    EXPECT_LT(std::stoi(digits.substr(10, 2)), 60) << digits;
    EXPECT_LT(std::stoi(digits.substr(12, 2)), 60) << digits;
  }
}

TEST(SampleDataTest, IsTheSameOnEveryDayOfAMonth) {
  EXPECT_EQ(AsText(MakeSampleData(Day(2026, 11, 1))), AsText(MakeSampleData(Day(2026, 11, 30))));
}

TEST(SampleDataTest, DiffersFromMonthToMonth) {
  EXPECT_NE(AsText(MakeSampleData(Day(2026, 10, 1))), AsText(MakeSampleData(Day(2026, 11, 1))));
}

}  // namespace
}  // namespace veyra
