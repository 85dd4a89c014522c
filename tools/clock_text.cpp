#include "tools/clock_text.h"

#include <cmath>
#include <regex>

namespace veyra {
namespace {

constexpr int kMinutesOfDay = 24 * 60;

/// Longer ones are cut, and are then still no time: expressions recurse with the length of a text.
constexpr std::size_t kLongestText = 64;

std::string TwoDigits(int number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

/// The hour of 0 to 23 that an hour of a twelve-hour clock stands for.
std::optional<int> HourOfHalfDay(int hour, char half) {
  if (hour < 1 || hour > 12) {
    return std::nullopt;
  }
  return hour % 12 + (half == 'P' || half == 'p' ? 12 : 0);
}

std::optional<int> Within(double minutes) {
  if (minutes <= 0 || minutes > kMinutesOfDay) {
    return std::nullopt;
  }
  return static_cast<int>(std::ceil(minutes / 30));
}

}  // namespace

std::string ClockText(modRes::TimeSlot slot) {
  const int minutes = (slot - 1) * 30;
  return TwoDigits(minutes / 60) + ":" + TwoDigits(minutes % 60);
}

std::optional<int> MinutesOf(std::string_view text) {
  static const std::regex pattern(R"(\s*(\d{1,2}):(\d{2})(?::\d{2})?\s*([AaPp])?[Mm]?\s*)");
  const std::string time(text.substr(0, kLongestText));
  std::smatch parts;
  if (!std::regex_match(time, parts, pattern)) {
    return std::nullopt;
  }
  std::optional<int> hour = std::stoi(parts[1]);
  if (parts[3].matched) {
    hour = HourOfHalfDay(*hour, *parts[3].first);
  }
  const int minute = std::stoi(parts[2]);
  if (!hour || minute > 59 || *hour * 60 + minute > kMinutesOfDay) {
    return std::nullopt;
  }
  return *hour * 60 + minute;
}

std::optional<int> HalfHoursOf(std::string_view text) {
  static const std::regex hours(R"((\d{1,4}(?:\.\d{1,4})?)h?)");
  static const std::regex minutes(R"((\d{1,4})m(?:in)?)");
  static const std::regex both(R"((\d{1,2})h(\d{1,2})m?)");
  const std::string length(text.substr(0, kLongestText));
  std::smatch parts;
  if (std::regex_match(length, parts, hours)) {
    return Within(std::stod(parts[1]) * 60);
  }
  if (std::regex_match(length, parts, minutes)) {
    return Within(std::stod(parts[1]));
  }
  if (std::regex_match(length, parts, both)) {
    return Within(std::stod(parts[1]) * 60 + std::stod(parts[2]));
  }
  return std::nullopt;
}

}  // namespace veyra
