#pragma once

#include <string>

#include "data/phrase.h"
#include "logic/day_grid.h"
#include "logic/name_box.h"

namespace veyra {

/// What the day window's logic tells its screen. The screen reports gestures to frmDay.
class DayView : public DayGridScreen {
 public:
  /// Shows, beside the fixed controls, which facility and which weekday is booked.
  virtual void ShowHeading(const std::string& facility, const Phrase& weekday) = 0;

  /// Combo1: shows the list and the text.
  virtual void ShowNameBox(const NameBox& Combo1) = 0;

  /// Combo1: shows the text; the list stays.
  virtual void ShowName(const std::string& text) = 0;

  /// Combo1: shows beside the box what is wrong with its text; nothing when the hint is empty.
  virtual void ShowNameHint(const Phrase& hint) = 0;

  /// Says beside the pointer, or beside the rows while they are chosen by key, what has been chosen
  /// so far; for as long as the gesture goes on.
  virtual void ShowRangeHint(const Phrase& hint) = 0;

  /// Scrolls so that `row` is the topmost one to be seen.
  virtual void ScrollToRow(int row) = 0;

  /// Makes `row` (1 to 48) of the time column the grid's current cell.
  virtual void SetCurrentRow(int row) = 0;

  /// Highlights these rows and brings them in sight: Enter in the grid ends the range there.
  virtual void ChooseRows(int first, int last) = 0;

  /// Selects the whole text of Combo1, which has the focus.
  virtual void SelectAllText() = 0;

  /// Places the window at the top of the screen, centred, its height that of the screen less 1000
  /// twips.
  virtual void PlaceOnScreen() = 0;

  /// Book(0), Book(1): shows which is selected.
  virtual void ShowMode(bool multiple) = 0;

  /// Takes the window off the screen for good.
  virtual void CloseWindow() = 0;
};

}  // namespace veyra
