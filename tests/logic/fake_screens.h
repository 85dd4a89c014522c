#pragma once

#include <string>

#include "logic/day_grid.h"
#include "logic/listings.h"

namespace veyra {

/// Keeps what the month grid, the day viewer and the day grid were last told to show.
class FakeScreens : public modRes::MonthScreen, public modRes::DayListScreen, public DayGridScreen {
 public:
  DayGrid Grid;
  modRes::MonthPicture Picture;
  int MonthsShown = 0;
  int CellShown = 0;  ///< The index of the cell shown last.
  modRes::DayLines CellLines;
  int CellsShown = 0;
  modRes::DayLines ViewerLines;
  int ViewersShown = 0;

  void ShowMonth(const modRes::MonthPicture& picture) override {
    Picture = picture;
    ++MonthsShown;
  }
  void ShowDayCell(int cell_index, const modRes::DayLines& lines) override {
    CellShown = cell_index;
    CellLines = lines;
    ++CellsShown;
  }
  void ShowGrid(const DayGrid& MSFlexGrid1) override { Grid = MSFlexGrid1; }
  void ShowDayList(const modRes::DayLines& lines) override {
    ViewerLines = lines;
    ++ViewersShown;
  }
};

/// The rows that hold a name, a line each: "19 Smith".
inline std::string Rendered(const DayGrid& grid) {
  std::string text;
  for (std::size_t row = 1; row <= grid.Guest.size(); ++row) {
    if (!grid.Guest[row].empty()) {
      text += std::to_string(row) + " " + grid.Guest[row] + "\n";
    }
  }
  return text;
}

}  // namespace veyra
