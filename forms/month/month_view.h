#pragma once

#include <cstdint>
#include <string>

#include "logic/listings.h"
#include "logic/name_box.h"

namespace veyra {

/// What the month window's logic tells its screen. The screen reports gestures to frmCalendar.
class MonthView : public modRes::MonthScreen {
 public:
  /// The month as it is shown now.
  virtual const modRes::MonthPicture& Shown() const = 0;

  /// Combo1: shows the list and the text.
  virtual void ShowFacilityBox(const NameBox& Combo1) = 0;

  /// Combo1: shows beside the box what is wrong with its text; nothing when the hint is empty.
  virtual void ShowFacilityHint(const Phrase& hint) = 0;

  /// lblRoom: shows the facility's name.
  virtual void ShowRoom(const std::string& lblRoom) = 0;

  /// Paints the window's background, and the header texts: lblRoom, lblMonth, Label2(0) to (6).
  virtual void ShowColors(std::int32_t background, std::int32_t header) = 0;

  /// Shows or hides Command1, Command2, Command4, Command3 and Combo1, in this order; Combo1 with
  /// its label.
  virtual void ShowControls(bool visible) = 0;

  /// Selects the whole text of Combo1, which has the focus.
  virtual void SelectAllText() = 0;

  /// Gives the focus to Command3, "Print".
  virtual void FocusPrintButton() = 0;

  /// Gives the focus to lstDay(cell_index), 1 to 42, which belongs to the month.
  virtual void ChooseDay(int cell_index) = 0;

  /// The cell, 1 to 42, that has the focus or had it last; 0 when there was none yet.
  virtual int ChosenDay() const = 0;

  /// Places the window at the top of the screen, centred across it.
  virtual void PlaceAtTopCentre() = 0;
};

}  // namespace veyra
