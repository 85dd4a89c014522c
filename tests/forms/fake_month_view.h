#pragma once

#include <array>
#include <optional>
#include <string>

#include "forms/month/month_view.h"

namespace veyra {

/// A month window that keeps what it shows as the screen would: a list's background stays until it
/// is told another.
class FakeMonthView : public MonthView {
 public:
  modRes::MonthPicture Picture;
  std::array<std::optional<std::int32_t>, 43> ListBackground;
  int MonthsShown = 0;
  NameBox Combo1;
  std::string FacilityHint;
  std::string lblRoom;
  std::int32_t Background = -1;
  std::int32_t Header = -1;
  bool ControlsVisible = true;
  int TextsSelected = 0;
  bool PrintButtonFocused = false;
  int ChosenCell = 0;
  bool Placed = false;

  void ShowMonth(const modRes::MonthPicture& picture) override {
    Picture = picture;
    for (std::size_t i = 1; i <= picture.Cells.size(); ++i) {
      if (picture.Cells[i].ListColor) {
        ListBackground[i] = picture.Cells[i].ListColor;
      }
    }
    ++MonthsShown;
  }
  void ShowDayCell(int cell_index, const modRes::DayLines& lines) override {
    Picture.Cells[cell_index].Lines = lines;
  }
  const modRes::MonthPicture& Shown() const override { return Picture; }
  void ShowFacilityBox(const NameBox& box) override { Combo1 = box; }
  void ShowFacilityHint(const Phrase& hint) override { FacilityHint = hint.English(); }
  void ShowRoom(const std::string& name) override { lblRoom = name; }
  void ShowColors(std::int32_t background, std::int32_t header) override {
    Background = background;
    Header = header;
  }
  void ShowControls(bool visible) override { ControlsVisible = visible; }
  void SelectAllText() override { ++TextsSelected; }
  void FocusPrintButton() override { PrintButtonFocused = true; }
  void ChooseDay(int cell_index) override { ChosenCell = cell_index; }
  int ChosenDay() const override { return ChosenCell; }
  void PlaceAtTopCentre() override { Placed = true; }
};

}  // namespace veyra
