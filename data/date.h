#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace veyra {

/// A calendar date of the proleptic Gregorian calendar, with no time of day.
using Date = std::chrono::year_month_day;

/// The years a date may have in this program, both included.
inline constexpr int kFirstYear = 100;
inline constexpr int kLastYear = 9999;

/// A local date with a time of day, to the second.
struct DateTime {
  Date Day{};
  int Hour = 0;    ///< 0 to 23.
  int Minute = 0;  ///< 0 to 59.
  int Second = 0;  ///< 0 to 60.
};

/// The date of that year, month (1 to 12) and day, or nothing when it does not exist or its year
/// lies outside kFirstYear to kLastYear.
std::optional<Date> MakeDate(int year, int month, int day);

int YearOf(Date date);
int MonthOf(Date date);  ///< 1 to 12.
int DayOf(Date date);    ///< 1 to 31.

/// 1 for a Sunday to 7 for a Saturday.
int WeekdayNumber(Date date);

/// The date that lies `days` after `date`; before it when negative. It may lie outside kFirstYear
/// to kLastYear. REQUIRES: it lies in the years -32767 to 32767, which a Date can hold.
Date AddDays(Date date, std::int64_t days);

/// How many days `to` lies after `from`; negative when it lies before.
std::int64_t DaysBetween(Date from, Date to);

/// The short date text: month/day/year without padding, such as "3/5/2014".
std::string DateText(Date date);

/// The ISO 8601 text by which dates are stored, such as "2014-03-05".
std::string IsoText(Date date);

/// The date that an ISO 8601 text names: ten characters, optionally followed by a blank or "T" and
/// a time of day ("17:30", "17:30:00.000Z"), which is dropped. Nothing when the text is not
/// such a date, or its year lies outside kFirstYear to kLastYear.
std::optional<Date> DateFromIsoText(std::string_view text);

}  // namespace veyra
