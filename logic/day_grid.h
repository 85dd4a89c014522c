#pragma once

#include <array>
#include <string>

namespace veyra {

/// The "Guest" column of the day grid: for each row 1 to 48 the name of the booking that covers the
/// slot of that number, empty where the slot is free. Entry 0 stands for the header row.
struct DayGrid {
  std::array<std::string, 49> Guest;

  bool operator==(const DayGrid&) const = default;
};

}  // namespace veyra
