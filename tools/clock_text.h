#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "logic/slots.h"

namespace veyra {

/// "09:00": when a slot begins; "24:00" for 49, the one after the last.
std::string ClockText(modRes::TimeSlot slot);

/// The minutes after midnight, 0 to 1440, that a time of day names: "9:00", "09:30", "24:00",
/// "9:30 AM", "12:00p", "9:30A". Nothing when it names none.
std::optional<int> MinutesOf(std::string_view text);

/// How many half hours a length of time takes, rounded up: "2h", "90m", "1h30", "1.5h", "3"
/// (hours). Nothing when it is not a length, or longer than a day.
std::optional<int> HalfHoursOf(std::string_view text);

}  // namespace veyra
