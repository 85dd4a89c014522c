#pragma once

#include <optional>
#include <string>
#include <vector>

#include "data/one_based.h"

namespace veyra {

/// A booking that the day grid shows.
struct GridBooking {
  int First = 0;                     ///< Its rows, both included,
  int Last = 0;                      ///< whatever lies over some of them.
  std::optional<double> Group = {};  ///< MultKey, of a booking that belongs to a group.

  bool operator==(const GridBooking&) const = default;
};

/// The "Guest" column of the day grid: for each row 1 to 48 the name of the booking that covers the
/// slot of that number, empty where the slot is free.
struct DayGrid {
  OneBased<std::string, 48> Guest;
  OneBased<int, 48> Number = {};  ///< Of the row's booking among Bookings, from 1; 0 where free.
  std::vector<GridBooking> Bookings = {};

  /// Shows the booking in rows `first` to `last`, both included, over what is there.
  void Add(int first, int last, const std::string& name, std::optional<double> group = {}) {
    Bookings.push_back({first, last, group});
    for (int row = first; row <= last; ++row) {
      Guest[row] = name;
      Number[row] = static_cast<int>(Bookings.size());
    }
  }

  /// The booking that the row shows; nullptr where the slot is free.
  const GridBooking* At(int row) const {
    const int number = Number[row];
    return number == 0 ? nullptr : &Bookings.at(static_cast<std::size_t>(number) - 1);
  }

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

  void Show(const DayGrid& grid) {
    MSFlexGrid1 = grid;
    Screen.ShowGrid(MSFlexGrid1);
  }

  /// Writes `name` into rows `first` to `last`, both included, and shows the grid. Rows that a
  /// booking had stay that booking's, others become one of their own; an empty name frees them.
  void Write(int first, int last, const std::string& name) {
    DayGrid written = MSFlexGrid1;
    written.Add(first, last, name);
    for (int row = first; row <= last; ++row) {
      if (name.empty() || MSFlexGrid1.Number[row] != 0) {
        written.Number[row] = name.empty() ? 0 : MSFlexGrid1.Number[row];
      }
    }
    Show(written);
  }
};

}  // namespace veyra
