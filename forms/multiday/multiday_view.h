#pragma once

#include "data/date.h"
#include "forms/multiday/plan_line.h"
#include "forms/piecework.h"
#include "forms/twips.h"
#include "logic/multiday.h"

namespace veyra {

/// Where Calendar1, the month picker, and Command3, "Close Calendar", stand while a date field is
/// picked for: so that the picker never covers that field.
struct PickerPlace {
  Twips PickerLeft = 0;
  Twips PickerTop = 0;
  Twips CloseLeft = 0;
};

/// What the multiple-day window's logic tells its screen. The screen reports gestures to
/// frmMultiDay.
class MultiDayView : public PieceworkView {
 public:
  /// Shows the two date fields and the seven weekday boxes.
  virtual void ShowPlan(const MultiDayPlan& plan) = 0;

  /// Says of the plan what it comes to, beside the fixed controls.
  virtual void ShowPlanLine(const PlanLine& line) = 0;

  /// Shows the picker at that place with `selected` as its date, and Command3 beside it.
  virtual void ShowPicker(const PickerPlace& place, Date selected) = 0;

  /// Hides the picker, and Command3 too unless `keep_close_button`.
  virtual void HidePicker(bool keep_close_button) = 0;

  /// Brings the window to the screen, beside the day window.
  virtual void ShowWindow() = 0;

  /// Takes the window off the screen; it keeps what it shows.
  virtual void HideWindow() = 0;
};

}  // namespace veyra
