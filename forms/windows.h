#pragma once

#include <string>

#include "data/date.h"
#include "logic/slots.h"

namespace veyra {

/// What one window may ask about another. The windows know each other only through this.
class Windows {
 public:
  virtual ~Windows() = default;

  /// Brings the month window back to the screen.
  virtual void ShowMonthWindow() = 0;

  /// Takes the month window off the screen; it stays loaded.
  virtual void HideMonthWindow() = 0;

  /// Lets the month window take input, or keeps it on the screen without taking any.
  virtual void EnableMonthWindow(bool enabled) = 0;

  /// Paints the month window anew in Session::CurrentColors.
  virtual void RepaintMonthWindow() = 0;

  /// Asks the month window whether a day may be opened: see frmCalendar::PrepareToOpenDay.
  virtual bool PrepareToOpenDay() = 0;

  /// Loads the day window for Session::DayDate and shows it under `caption`. When loading fails the
  /// exception passes through and no day window is left.
  virtual void OpenDayWindow(const std::string& caption) = 0;

  /// Lets the day window take input, or keeps it on the screen without taking any.
  virtual void EnableDayWindow(bool enabled) = 0;

  /// Sets the day window to book one day: selects Book(0).
  virtual void SelectSingleBooking() = 0;

  /// Loads the day viewer for Session::DayDate and shows it under `caption`. When loading fails the
  /// exception passes through and no day viewer is left.
  virtual void OpenDayViewer(const std::string& caption) = 0;

  /// Brings the day viewer, which stays loaded, back to the screen, or takes it off.
  virtual void ShowDayViewer() = 0;
  virtual void HideDayViewer() = 0;

  /// Shows the multiple-day window, its From field set to `from_text`. `chosen`: the rows that are
  /// chosen in the day window; {} when none are.
  virtual void ShowMultiDayWindow(const std::string& from_text, modRes::SlotRange chosen) = 0;

  /// Loads and shows the colour settings window, the about box.
  virtual void OpenSettings() = 0;
  virtual void OpenAbout() = 0;

  /// Loads and shows the find window, the window of free times.
  virtual void OpenFind() = 0;
  virtual void OpenFreeTimes() = 0;

  /// Loads and shows the board of that day.
  virtual void OpenDayBoard(Date day) = 0;

  /// Picks the facility in the month window, turns to the day and opens it for booking, as a left
  /// click on it does. Returns whether it is open.
  virtual bool OpenDayOf(const std::string& facility, Date day) = 0;

  /// Chooses these rows of the day window, if there is one, as Shift and the arrow keys do. Nothing
  /// is booked.
  virtual void ChooseRows(modRes::SlotRange rows) = 0;

  /// Shows that topic of the help file, one of those in logic/help_viewer.h, beside the windows.
  virtual void ShowHelp(int topic) = 0;

  /// Takes back what the desk did last, when the operator agrees.
  virtual void Undo() = 0;

  /// Prints the day, the week that holds it, as a sheet for the facility's door.
  virtual void PrintDay(Date day) = 0;
  virtual void PrintWeek(Date day) = 0;

  /// Fills all windows that are loaded anew with what the calendar holds. The active facility is
  /// picked where none was. Throws DatabaseError.
  virtual void ShowWhatIsStored() = 0;

  /// Fills the windows of the day anew, as far as they are loaded: the day viewer and the day
  /// window. What the operator has chosen or typed in them stays. Throws DatabaseError.
  virtual void ShowDayAnew() = 0;

  /// Fills the windows anew that list bookings of several facilities, as far as they are on the
  /// screen. Throws DatabaseError.
  virtual void ShowListsAnew() = 0;

  /// Closes the windows of the day, as far as they are loaded.
  virtual void LeaveDay() = 0;

  /// Ends the program, closing every window.
  virtual void EndProgram() = 0;
};

}  // namespace veyra
