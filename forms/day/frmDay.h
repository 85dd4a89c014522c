#pragma once

#include <map>
#include <string>

#include "forms/day/day_view.h"
#include "forms/windows.h"
#include "logic/day_grid.h"
#include "logic/dialogs.h"
#include "logic/listings.h"
#include "logic/multiday.h"
#include "logic/name_box.h"
#include "logic/picked_booking.h"
#include "logic/session.h"

namespace veyra {

/// The day window: the 48 half hours of DayDate for facility CurRmID, booked by dragging over them.
class frmDay {
 public:
  /// All of them must outlive the window. `plan` is what the multiple-day window holds.
  frmDay(Session& session, DayView& view, const modRes::Listings& listings,
         const MultiDayPlan& plan, Windows& windows, Dialogs& dialogs);

  /// Builds the grid and fills it and the name box. Returns false, having done nothing, when the
  /// month window is in its printed layout: the window must then be unloaded at once.
  bool Form_Load();

  /// The mouse went down on a cell of the grid: row 0 is the header, column 0 the time column.
  /// `current_row` is the row the grid's current cell was in.
  void MSFlexGrid1_MouseDown(int row, int current_row);

  /// The rows from `anchor` to `end`, whichever is the upper one, are highlighted now.
  void MSFlexGrid1_Stretch(int anchor, int end);

  /// What is to be said of the row's booking while the mouse rests on it, a line each: name, times,
  /// and of a series how many dates there are; empty where the slot is free. Throws DatabaseError.
  Phrase RowHint(int row);

  /// The mouse was released at the selection's end: the booking flow.
  void MSFlexGrid1_Click(int row, int column);

  void Combo1_Change(const std::string& text);  ///< The operator has typed or picked a name.
  void Combo1_GotFocus();
  void Combo1_LostFocus();  ///< Tidies the name.

  void Book_Click(int index);     ///< 1 is "Multiple Booking", 0 "Single Booking".
  void Book_DblClick(int index);  ///< Either: on to the multiple-day window.
  void SelectSingleBooking();     ///< Selects Book(0).

  void Command2_Click();  ///< "Close"
  void mnuHelp_Click();

  void UndoKey();  ///< Control and Z.

  /// Chooses a range that the operator may then book, by Enter in the grid.
  void ChooseRows(modRes::SlotRange rows);

  /// Fills the grid anew with what the calendar holds. Throws DatabaseError.
  void FillGrid();

  /// Shows anew what the calendar holds, the facility's name and the grid; what is chosen or typed
  /// stays. Throws DatabaseError.
  void ShowAnew();

  /// The window goes: the one that opened it is shown again, and the month cell of the day is
  /// filled again.
  void Form_Unload();

 private:
  void SelectRows(int row);
  void ShowHeading();
  int BookedRowsInSelection() const;
  void ChangeSelectedBooking();
  void DeleteSelectedBooking();
  void RenameSelectedBooking(const std::string& name);
  void BookSelection();
  void RememberName(const std::string& name);
  bool NameFits();
  bool ConfirmSingle();
  bool ConfirmMultiple();
  std::string Question() const;
  bool Confirm(const std::string& question);
  void PlanSeveralDays();
  void EndSeveralDays();
  ShownGrid Grid() { return {MSFlexGrid1_, view_}; }

  Session& session_;
  DayView& view_;
  modRes::Listings listings_;
  const MultiDayPlan& plan_;
  Windows& windows_;
  Dialogs& dialogs_;
  DayGrid MSFlexGrid1_;
  NameBox Combo1_;
  bool multiple_ = false;
  std::map<double, modRes::GroupDates> series_;  ///< By group, those asked for since it was filled.
  modRes::SlotRange chosen_ = {};  ///< The rows that were highlighted last; {} before any.
  bool grid_is_old_ = false;       ///< A series was booked since it was filled.
};

}  // namespace veyra
