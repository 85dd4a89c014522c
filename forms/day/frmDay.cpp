#include "forms/day/frmDay.h"

#include <algorithm>

#include "data/shown_name.h"
#include "data/text.h"
#include "forms/day/day_hints.h"
#include "logic/bookings.h"
#include "logic/delete_bookings.h"
#include "logic/facilities.h"
#include "logic/guests.h"
#include "logic/help_viewer.h"
#include "logic/name_length.h"
#include "logic/name_matches.h"
#include "logic/picked_booking.h"
#include "logic/rename_bookings.h"

namespace veyra {
namespace {

/// 5:00 AM: the row on top when the window opens.
constexpr int kFirstRowSeen = 11;

bool IsBooked(const std::string& guest) {
  return !guest.empty();
}

}  // namespace

frmDay::frmDay(Session& session, DayView& view, const modRes::Listings& listings,
               const MultiDayPlan& plan, Windows& windows, Dialogs& dialogs)
    : session_(session),
      view_(view),
      listings_(listings),
      plan_(plan),
      windows_(windows),
      dialogs_(dialogs) {}

bool frmDay::Form_Load() {
  if (session_.PrintLayoutOn) {
    return false;
  }
  view_.PlaceOnScreen();
  ShowHeading();
  view_.ScrollToRow(kFirstRowSeen);
  modRes::LoadGuestNames(session_, Combo1_);
  Combo1_.Used = session_.UsedNames;
  view_.ShowNameBox(Combo1_);
  view_.ShowMode(multiple_);
  FillGrid();
  return true;
}

void frmDay::MSFlexGrid1_MouseDown(int row, int current_row) {
  session_.AnchorRow = row;
  session_.AnchorTimeText = current_row == 0 ? "Time" : modRes::LongSlotLabel(current_row);
}

void frmDay::MSFlexGrid1_Stretch(int anchor, int end) {
  chosen_ = modRes::RangeOfRows(anchor, end);
  view_.ShowRangeHint(RangeHint(session_.SlotLabel, MSFlexGrid1_, chosen_, multiple_));
}

/// A group that cannot be read is asked for once, not each time that the mouse rests.
Phrase frmDay::RowHint(int row) {
  const GridBooking* booking = MSFlexGrid1_.At(row);
  if (booking == nullptr) {
    return "";
  }
  const Phrase text = BookingHint(session_.SlotLabel, MSFlexGrid1_, row);
  if (!booking->Group) {
    return text;
  }
  const auto [series, is_new] = series_.try_emplace(*booking->Group);
  if (is_new) {
    series->second = modRes::DatesOfGroup(session_, *booking->Group);
  }
  return text + ("\n" + SeriesHint(series->second, session_.DayDate));
}

void frmDay::MSFlexGrid1_Click(int row, int column) {
  if (row == 0 || column == 0 || session_.AnchorRow == 0) {
    return;
  }
  SelectRows(row);
  const int booked = BookedRowsInSelection();
  if (booked == 0) {
    BookSelection();
  } else if (booked == 1) {
    ChangeSelectedBooking();
  } else {
    dialogs_.MsgBox({.Text = "There is already a Booking on " + std::to_string(booked) +
                             " of the Time Slot(s).",
                     .Sign = Icon::Critical});
  }
}

void frmDay::Combo1_Change(const std::string& text) {
  Combo1_.Text = text;
  view_.ShowNameHint(modRes::BookingNameHint(session_, Combo1_.Text));
}

void frmDay::Combo1_GotFocus() {
  if (!Combo1_.Text.empty()) {
    view_.SelectAllText();
  }
}

void frmDay::Combo1_LostFocus() {
  Combo1_.Text = CapitalizeWords(Combo1_.Text);
  view_.ShowName(Combo1_.Text);
  view_.ShowNameHint(modRes::BookingNameHint(session_, Combo1_.Text));
}

void frmDay::Book_Click(int index) {
  multiple_ = index == 1;
  if (multiple_) {
    PlanSeveralDays();
  } else {
    EndSeveralDays();
  }
}

void frmDay::Book_DblClick(int) {
  PlanSeveralDays();
}

void frmDay::SelectSingleBooking() {
  multiple_ = false;
  view_.ShowMode(multiple_);
}

void frmDay::Command2_Click() {
  view_.CloseWindow();
}

void frmDay::mnuHelp_Click() {
  windows_.ShowHelp(kHelpFile);
}

void frmDay::UndoKey() {
  windows_.Undo();
}

void frmDay::ChooseRows(modRes::SlotRange rows) {
  view_.ChooseRows(rows.First, rows.Last);
}

void frmDay::ShowAnew() {
  ShowHeading();
  FillGrid();
}

void frmDay::ShowHeading() {
  view_.ShowHeading(modRes::CurrentFacility(session_).value_or(""),
                    modRes::WeekdayWord(WeekdayNumber(session_.DayDate)));
}

void frmDay::Form_Unload() {
  if (session_.DayOpener == Opener::DayViewer) {
    windows_.ShowDayViewer();
  } else {
    windows_.ShowMonthWindow();
  }
  session_.PrintLayoutOn = false;
  modRes::FillDayCell(session_, listings_.Month, session_.DayCellIndex, session_.DayDate);
}

void frmDay::SelectRows(int row) {
  const modRes::SlotRange range = modRes::RangeOfRows(session_.AnchorRow, row);
  session_.SelFirstSlot = range.First;
  session_.SelLastSlot = range.Last;
  session_.SelEndRow = range.Last;
  view_.SetCurrentRow(modRes::EndLabelSlot(range.Last));
}

int frmDay::BookedRowsInSelection() const {
  const auto first = MSFlexGrid1_.Guest.begin() + session_.SelFirstSlot - 1;
  const auto end = MSFlexGrid1_.Guest.begin() + session_.SelLastSlot;
  return static_cast<int>(std::count_if(first, end, IsBooked));
}

void frmDay::ChangeSelectedBooking() {
  const std::string name = MSFlexGrid1_.Guest[session_.SelFirstSlot];
  const Phrase details = modRes::PickedDetails(session_, name);
  if (dialogs_.MsgBox({.Text = "Do You wand to Delete this Booking for " + ShownName(name) + "?",
                       .Choice = Buttons::YesNo,
                       .Sign = Icon::Critical,
                       .Details = details,
                       .Default = Answer::No}) == Answer::Yes) {
    DeleteSelectedBooking();
    return;
  }
  if (dialogs_.MsgBox({.Text = "Do You wand to Edit the Booking Name of " + ShownName(name) + "?",
                       .Choice = Buttons::YesNo,
                       .Sign = Icon::Exclamation,
                       .Details = details}) != Answer::Yes) {
    return;
  }
  const std::string new_name = dialogs_.InputBox(
      "Enter a New Booking Name (Limited to 50 Characters)", "Booking Name", name);
  if (!new_name.empty()) {
    RenameSelectedBooking(new_name);
  }
}

void frmDay::DeleteSelectedBooking() {
  modRes::DeleteBookings(session_, Grid(), listings_, dialogs_);
  FillGrid();
}

void frmDay::RenameSelectedBooking(const std::string& name) {
  std::string new_name = name;
  if (modRes::RenameBookings(session_, new_name, Grid(), listings_, dialogs_)) {
    FillGrid();
  }
}

void frmDay::BookSelection() {
  if (!NameFits() || !(multiple_ ? ConfirmMultiple() : ConfirmSingle())) {
    return;
  }
  const auto outcome = modRes::MakeBookings(session_, {Combo1_.Text, multiple_, plan_}, Grid(),
                                            listings_.Time, dialogs_);
  grid_is_old_ = multiple_;
  if (outcome == modRes::BookingOutcome::Refused) {
    view_.ChooseRows(session_.SelFirstSlot, session_.SelLastSlot);
  } else {
    RememberName(Combo1_.Text);
  }
  if (outcome == modRes::BookingOutcome::Halted) {
    FillGrid();
  }
  modRes::RefreshListings(session_, listings_);
}

/// It is offered first when one is typed the next time.
void frmDay::RememberName(const std::string& name) {
  if (!name.empty()) {
    modRes::UseName(session_.UsedNames, name);
    Combo1_.Used = session_.UsedNames;
    view_.ShowNameBox(Combo1_);
  }
}

/// A name that is too long cannot be booked until it is shortened.
bool frmDay::NameFits() {
  const Phrase too_long = modRes::BookingNameTooLong(session_, Combo1_.Text);
  if (!too_long.IsEmpty()) {
    dialogs_.MsgBox({.Text = too_long, .Sign = Icon::Exclamation});
  }
  return too_long.IsEmpty();
}

bool frmDay::ConfirmSingle() {
  return Confirm(Question() + ".");
}

bool frmDay::ConfirmMultiple() {
  modRes::CheckMultiDayConflicts(session_, plan_, listings_.Time, dialogs_);
  if (session_.MultiBookCount < 1) {
    return false;
  }
  return Confirm(Question() + kLineBreak + "for " + std::to_string(session_.MultiBookCount) +
                 " Booking(s) between " + plan_.Text1[0] + " and " + plan_.Text1[1]);
}

std::string frmDay::Question() const {
  const std::string name = Combo1_.Text.empty() ? modRes::kNoTitle : Combo1_.Text;
  const modRes::TimeSlot end = modRes::EndLabelSlot(session_.SelLastSlot);
  return "Reservation for " + ShownName(name) + " From " +
         modRes::LabelOf(session_.SlotLabel, session_.SelFirstSlot) + " To " +
         modRes::LabelOf(session_.SlotLabel, end);
}

bool frmDay::Confirm(const std::string& question) {
  return dialogs_.MsgBox({.Text = question + kLineBreak + "Select OK to Book or Cancel to Cancel",
                          .Choice = Buttons::OkCancel,
                          .Sign = Icon::Question}) == Answer::Ok;
}

void frmDay::PlanSeveralDays() {
  windows_.EnableDayWindow(false);
  windows_.ShowMultiDayWindow(DateText(session_.DayDate), chosen_);
}

/// From here on the grid is trusted, so it must show the series that was just booked.
void frmDay::EndSeveralDays() {
  if (grid_is_old_) {
    FillGrid();
  }
}

void frmDay::FillGrid() {
  grid_is_old_ = false;
  series_.clear();
  MSFlexGrid1_ = {};
  modRes::FillDayList(session_, MSFlexGrid1_, session_.DayDate);
  view_.ShowGrid(MSFlexGrid1_);
}

}  // namespace veyra
