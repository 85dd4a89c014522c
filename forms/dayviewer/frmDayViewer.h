#pragma once

#include <string>
#include <vector>

#include "forms/dayviewer/dayviewer_view.h"
#include "forms/mouse_button.h"
#include "forms/windows.h"
#include "logic/clock.h"
#include "logic/dialogs.h"
#include "logic/session.h"

namespace veyra {

/// The day viewer: one day's bookings of the facility, large and to be read only.
class frmDayViewer {
 public:
  /// All of them must outlive the window.
  frmDayViewer(Session& session, DayViewerView& view, Windows& windows, Dialogs& dialogs,
               const Clock& clock);

  /// Fills the view for DayDate; DayOpener is 2 from now on. When it throws, DayOpener is 1 again.
  void Form_Load();

  /// A mouse button went down on lstDay while `selected` lines, top to bottom, were selected.
  /// Left shows each of them in full; right goes on to book the day.
  void lstDay_MouseDown(MouseButton button, const std::vector<std::string>& selected);

  void mnuHelp_Click();
  void UndoKey();       ///< Control and Z.
  void PrintKey();      ///< Control and P: the day.
  void PrintWeekKey();  ///< Control, Shift and P: its week.

  /// Fills the list anew with what the calendar holds. Throws DatabaseError.
  void FillList();

  /// The window goes: the month window takes input again, DayOpener is 1.
  void Form_Unload();

 private:
  DayViewerPicture Picture() const;
  void OpenForBooking();

  Session& session_;
  DayViewerView& view_;
  Windows& windows_;
  Dialogs& dialogs_;
  const Clock& clock_;
};

}  // namespace veyra
