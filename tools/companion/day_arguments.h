#pragma once

#include <string>

#include "data/date.h"
#include "tools/calendar_rows.h"

namespace CLI {
class App;
}

namespace veyra {

/// The two ends of a range of days as they were typed; an empty one is not bounded.
struct DayArguments {
  std::string From;
  std::string To;
};

/// Declares --from and --to. `days` must outlive the parsing.
void AddDayRange(CLI::App& app, DayArguments& days);

/// The date that was typed. Throws ValueError when it is none.
Date TypedDate(const std::string& text, Date today);

/// Throws ValueError when an end is not a date, or the range ends before it begins.
DayRange TypedRange(const DayArguments& days, Date today);

}  // namespace veyra
