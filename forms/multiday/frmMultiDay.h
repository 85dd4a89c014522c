#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "forms/multiday/multiday_view.h"
#include "forms/windows.h"
#include "logic/clock.h"
#include "logic/dialogs.h"
#include "logic/multiday.h"
#include "logic/session.h"
#include "logic/slots.h"
#include "logic/taken_days.h"

namespace veyra {

/// The multiple-day window: a range of dates and the weekdays of it that are to be booked. Made
/// once and kept; closing hides it, and it holds its plan for the whole run. While it is open no
/// booking may be changed.
class frmMultiDay {
 public:
  /// All of them must outlive the window.
  frmMultiDay(Session& session, MultiDayView& view, Windows& windows, Dialogs& dialogs,
              const Clock& clock);

  void Form_Load();

  /// Shows the window, its From field set to `from_text`; the other fields are as they were left.
  /// `chosen`: the slots for which it counts the dates that are taken; {} when none are chosen.
  /// Throws DatabaseError: the window is shown, and does not count them.
  void Open(const std::string& from_text, modRes::SlotRange chosen);

  /// Goes on with what is to be done, for a moment. Throws DatabaseError; it goes on no more then.
  void Work();

  /// Lets go of the calendar, which is about to be closed: what is taken is counted no more.
  void Drop();

  void Text1_Change(std::size_t index, const std::string& text);  ///< 0 is From, 1 is To.
  void Text1_DblClick(std::size_t index);
  void Days_Click(std::size_t index, bool checked);  ///< 1 is Sunday to 7.

  void Calendar1_DblClick(Date selected);
  void Calendar1_Dismiss();  ///< The picker goes; Command3 stays as it is.

  /// "Close": counts the planned dates and tells the operator, or falls back to a single booking
  /// when the plan lacks a weekday or a date. Closing by the title bar counts as this.
  void Command1_Click();
  void Command2_Click();  ///< "Ck ALL"
  void Command3_Click();  ///< "Close Calendar"
  void HelpKey();         ///< F1

  /// Takes the window off the screen; the day window takes input again.
  void LeaveWindow();

  const MultiDayPlan& Plan() const { return plan_; }

 private:
  bool IsComplete() const;
  void ShowPlanLine();
  void AnnounceDays();

  Session& session_;
  MultiDayView& view_;
  Windows& windows_;
  Dialogs& dialogs_;
  const Clock& clock_;
  MultiDayPlan plan_;
  std::size_t PickerTarget_ = 0;            ///< Which date field the picker fills: 0 From, 1 To.
  std::optional<modRes::TakenDays> taken_;  ///< Only while the window counts them.
};

}  // namespace veyra
