#pragma once

#include <optional>
#include <string>

#include "data/date.h"

namespace veyra {

/// The local time at a moment that is written in UTC, "2026-03-05 09:30:12.345" or with a "T" in
/// the middle; what follows the seconds does not count. Nothing when the text is not such a moment.
std::optional<DateTime> LocalTimeOf(const std::string& utc);

/// "3/5/2026 09:30:12".
std::string DateTimeText(const DateTime& time);

}  // namespace veyra
