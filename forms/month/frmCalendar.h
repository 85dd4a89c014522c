#pragma once

#include <functional>
#include <optional>
#include <string>

#include "forms/month/month_view.h"
#include "forms/mouse_button.h"
#include "forms/print/sheet_printer.h"
#include "forms/windows.h"
#include "logic/clock.h"
#include "logic/dialogs.h"
#include "logic/name_box.h"
#include "logic/session.h"

namespace veyra {

/// The month window: one month of one facility in 42 day cells, with paging and the facility box.
/// Every handler may throw what the logic throws; what was shown before then stands. Paging stops
/// at the first and the last month that a date can have.
class frmCalendar {
 public:
  /// All of them must outlive the window.
  frmCalendar(Session& session, MonthView& view, Windows& windows, Dialogs& dialogs,
              const Clock& clock, SheetPrinter& printer);

  /// The window's share of start-up, in the order in which start-up calls it.
  void LoadFacilityBox();
  void ApplyHeaderColors();  ///< Throws ValueError when a colour is not a number.
  void SelectActiveFacility();
  void ShowCurrentMonth();  ///< Sets CurMonth and CurYear to today, places the window, draws.

  void Command1_Click();  ///< "Next =>"
  void Command2_Click();  ///< "<= Previous"
  void Command4_Click();  ///< "Delete Facility"

  /// "Print". A failure up to the hiding of the controls is told by its number; of the printing
  /// itself it throws PrinterError. Once hidden, the controls stay so in either case.
  void Command3_Click();

  // Clicks on the background, a weekday header, the month's title and the facility's name.
  void Form_Click();
  void Label2_Click();
  void lblMonth_Click();
  void lblRoom_Click();

  void Combo1_Change(const std::string& text);  ///< The operator has typed.
  void Combo1_Click(const std::string& text);   ///< The operator has picked an entry of the list.
  void Combo1_KeyPress(int key);                ///< 13 is Enter; no other key does anything.
  void Combo1_GotFocus();

  /// The box names the facility whose bookings are shown, so a text that is not its name goes back
  /// to it; to nothing when there is no facility. An emptied box stays empty.
  void Combo1_LostFocus();

  /// A mouse button went down on lstDay(index), 1 to 42, a cell that belongs to the month.
  void lstDay_MouseDown(int index, MouseButton button);

  /// Makes the month window ready for opening a day: brings back the controls that printing hid.
  /// Returns whether a day may be opened for booking: not while the facility box is empty or
  /// CurRmID is not a facility, which the operator is told, and not by the first click after
  /// printing or during start-up, which only ends that state.
  bool PrepareToOpenDay();

  void mnuContents_Click();
  void mnuOver_Click();
  void mnuCalendar_Click();
  void mnuAbout_Click();
  void mnuSettings_Click();

  void Form_Unload();  ///< The window is closed: the program ends.

  /// Draws the month again.
  void RefreshMonth();

  /// Turns to the month of `day` and chooses its cell. REQUIRES: its year is one of kFirstYear to
  /// kLastYear.
  void ShowDay(Date day);

  /// The day of the cell that is chosen, or was last; the first of the month when none was.
  Date ChosenDate() const;

  /// Picks the facility, turns to the day and opens it for booking, whatever else the first click
  /// after printing would do; says so when the facility is gone. REQUIRES: as for ShowDay.
  void OpenDay(const std::string& facility, Date day);

  /// Picks that entry of the facility box, as Combo1_Click does, and shows it in the box.
  void PickFacility(const std::string& name) { Combo1_Click(name); }

  const NameBox& FacilityBox() const { return Combo1_; }

  /// The facility whose bookings are shown, as it stands below the month's title.
  const std::string& FacilityShown() const { return lblRoom_; }

  /// Fills the facility box anew with what the calendar holds. Throws DatabaseError.
  void ReloadFacilities();

  /// Fills the facility box anew with what other desks have made of the facilities. A name that is
  /// being typed stays. Returns the name of the facility whose bookings are shown, when that is
  /// gone. Throws DatabaseError.
  std::optional<std::string> TakeOverFacilities();

  /// Turns to the first facility, or to none when there is none, as after the deletion of one.
  /// Throws DatabaseError.
  void ShowFirstFacility();

  /// Paints the window anew in the colours in use, and draws the month again.
  void Repaint();

 private:
  /// Brings back the controls that printing hid; PrintLayoutOn stays as it is.
  void RestoreAfterPrint();

  std::optional<std::string> ChoosePrinterAndHideControls(const Sheet& sheet);
  void TurnTo(int year, int month);
  bool AdoptListedName();
  void AddTypedFacility();
  void OpenForBooking(int index);
  void OpenForViewing(int index);
  void EnableAgainIfThrown(const std::function<void()>& open);
  void ShowWhatIsLeft();
  Date DayOfShown(int index) const;
  void ShowRoom(const std::string& name);
  void ShowFacilityBox();

  Session& session_;
  MonthView& view_;
  Windows& windows_;
  Dialogs& dialogs_;
  const Clock& clock_;
  SheetPrinter& printer_;
  NameBox Combo1_;
  std::string lblRoom_;
};

}  // namespace veyra
