#pragma once

#include <string>

#include "forms/day/day_view.h"

namespace veyra {

/// A day window that keeps what it shows.
class FakeDayView : public DayView {
 public:
  DayGrid MSFlexGrid1;
  NameBox Combo1;
  std::string Heading;
  std::string NameHint;
  std::string ChosenRows;
  std::string RangeHint;
  int TopRow = 0;
  int CurrentRow = 0;
  int TextsSelected = 0;
  bool Multiple = false;
  bool Placed = false;
  bool Closed = false;

  void ShowGrid(const DayGrid& grid) override { MSFlexGrid1 = grid; }
  void ShowHeading(const std::string& facility, const Phrase& weekday) override {
    Heading = facility + ", " + weekday.English();
  }
  void ShowNameBox(const NameBox& box) override { Combo1 = box; }
  void ShowName(const std::string& text) override { Combo1.Text = text; }
  void ShowNameHint(const Phrase& hint) override { NameHint = hint.English(); }
  void ShowRangeHint(const Phrase& hint) override { RangeHint = hint.English(); }
  void ScrollToRow(int row) override { TopRow = row; }
  void SetCurrentRow(int row) override { CurrentRow = row; }
  void ChooseRows(int first, int last) override {
    ChosenRows = std::to_string(first) + "-" + std::to_string(last);
  }
  void SelectAllText() override { ++TextsSelected; }
  void ShowMode(bool multiple) override { Multiple = multiple; }
  void PlaceOnScreen() override { Placed = true; }
  void CloseWindow() override { Closed = true; }
};

}  // namespace veyra
