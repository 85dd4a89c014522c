#include "tools/local_time.h"

#include <array>
#include <cstdio>
#include <ctime>

namespace veyra {

std::optional<DateTime> LocalTimeOf(const std::string& utc) {
  const auto day = DateFromIsoText(utc);
  std::tm time{};
  char between = ' ';
  if (!day || std::sscanf(utc.c_str() + 10, "%c%2d:%2d:%2d", &between, &time.tm_hour, &time.tm_min,
                          &time.tm_sec) != 4) {
    return std::nullopt;
  }
  time.tm_year = YearOf(*day) - 1900;
  time.tm_mon = MonthOf(*day) - 1;
  time.tm_mday = DayOf(*day);
  const std::time_t moment = timegm(&time);
  std::tm local{};
  localtime_r(&moment, &local);
  const auto local_day = MakeDate(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
  return local_day ? std::optional(DateTime{*local_day, local.tm_hour, local.tm_min, local.tm_sec})
                   : std::nullopt;
}

std::string DateTimeText(const DateTime& time) {
  std::array<char, 16> clock{};
  std::snprintf(clock.data(), clock.size(), " %02d:%02d:%02d", time.Hour, time.Minute, time.Second);
  return DateText(time.Day) + clock.data();
}

}  // namespace veyra
