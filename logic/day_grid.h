#pragma once

#include <string>

#include "data/one_based.h"

namespace veyra {

/// The "Guest" column of the day grid: for each row 1 to 48 the name of the booking that covers the
/// slot of that number, empty where the slot is free.
struct DayGrid {
  OneBased<std::string, 48> Guest;

  bool operator==(const DayGrid&) const = default;
};

/// The day grid on the screen.
class DayGridScreen {
 public:
  virtual ~DayGridScreen() = default;

  /// Shows the "Guest" column of MSFlexGrid1, rows 1 to 48.
  virtual void ShowGrid(const DayGrid& MSFlexGrid1) = 0;
};

/// The day grid as the routines reach it: what it holds, and where it is shown.
struct ShownGrid {
  DayGrid& MSFlexGrid1;
  DayGridScreen& Screen;

  /// Writes `name` into rows `first` to `last`, both included, and shows the grid.
  void Write(int first, int last, const std::string& name) {
    for (int row = first; row <= last; ++row) {
      MSFlexGrid1.Guest[row] = name;
    }
    Screen.ShowGrid(MSFlexGrid1);
  }
};

}  // namespace veyra
