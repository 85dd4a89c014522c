#include "data/date.h"

#include <cstddef>

#include "data/ascii.h"

namespace veyra {
namespace {

std::string Padded(int value, std::size_t width) {
  std::string digits = std::to_string(value);
  if (digits.size() < width) {
    digits.insert(0, width - digits.size(), '0');
  }
  return digits;
}

/// Whether the text follows the pattern, in which a 0 stands for any digit and every other
/// character for itself.
bool Matches(std::string_view text, std::string_view pattern) {
  if (text.size() != pattern.size()) {
    return false;
  }
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool matches = pattern[i] == '0' ? ascii::IsDigit(text[i]) : text[i] == pattern[i];
    if (!matches) {
      return false;
    }
  }
  return true;
}

/// The value of a few decimal digits.
int NumberOf(std::string_view digits) {
  int value = 0;
  for (const char digit : digits) {
    value = value * 10 + (digit - '0');
  }
  return value;
}

/// Takes "Z" and the fraction of a second off the end of a time of day.
std::string_view ToTheSecond(std::string_view time) {
  if (time.ends_with('Z')) {
    time.remove_suffix(1);
  }
  const std::size_t point = time.find('.');
  if (point == std::string_view::npos || point + 1 == time.size()) {
    return time;
  }
  const std::string_view fraction = time.substr(point + 1);
  return fraction.find_first_not_of("0123456789") == std::string_view::npos ? time.substr(0, point)
                                                                            : time;
}

/// Whether the text is a time such as "17:30" or "17:30:00.000Z".
bool IsTimeOfDay(std::string_view text) {
  const std::string_view time = ToTheSecond(text);
  const bool has_seconds = Matches(time, "00:00:00");
  if (!has_seconds && !Matches(time, "00:00")) {
    return false;
  }
  return NumberOf(time.substr(0, 2)) <= 23 && NumberOf(time.substr(3, 2)) <= 59 &&
         (!has_seconds || NumberOf(time.substr(6, 2)) <= 60);
}

}  // namespace

std::optional<Date> MakeDate(int year, int month, int day) {
  if (year < kFirstYear || year > kLastYear) {
    return std::nullopt;
  }
  if (month < 1 || month > 12 || day < 1 || day > 31) {
    return std::nullopt;
  }
  const Date date(std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                  std::chrono::day(static_cast<unsigned>(day)));
  if (!date.ok()) {
    return std::nullopt;
  }
  return date;
}

int YearOf(Date date) {
  return static_cast<int>(date.year());
}

int MonthOf(Date date) {
  return static_cast<int>(static_cast<unsigned>(date.month()));
}

int DayOf(Date date) {
  return static_cast<int>(static_cast<unsigned>(date.day()));
}

int WeekdayNumber(Date date) {
  const std::chrono::weekday weekday{std::chrono::sys_days(date)};
  return static_cast<int>(weekday.c_encoding()) + 1;
}

Date AddDays(Date date, std::int64_t days) {
  return std::chrono::sys_days(date) + std::chrono::days(days);
}

std::int64_t DaysBetween(Date from, Date to) {
  return (std::chrono::sys_days(to) - std::chrono::sys_days(from)).count();
}

std::string DateText(Date date) {
  return std::to_string(MonthOf(date)) + "/" + std::to_string(DayOf(date)) + "/" +
         std::to_string(YearOf(date));
}

std::string IsoText(Date date) {
  return Padded(YearOf(date), 4) + "-" + Padded(MonthOf(date), 2) + "-" + Padded(DayOf(date), 2);
}

std::optional<Date> DateFromIsoText(std::string_view text) {
  const std::string_view date = text.substr(0, 10);
  if (!Matches(date, "0000-00-00")) {
    return std::nullopt;
  }
  const std::string_view rest = text.substr(10);
  const bool time_follows = rest.starts_with(' ') || rest.starts_with('T');
  if (!rest.empty() && !(time_follows && IsTimeOfDay(rest.substr(1)))) {
    return std::nullopt;
  }
  return MakeDate(NumberOf(date.substr(0, 4)), NumberOf(date.substr(5, 2)),
                  NumberOf(date.substr(8, 2)));
}

}  // namespace veyra
