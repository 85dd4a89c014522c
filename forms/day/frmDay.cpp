#include "forms/day/frmDay.h"

#include <algorithm>

#include "data/text.h"
#include "logic/bookings.h"
#include "logic/guests.h"

namespace veyra {
namespace {

/// 5:00 AM: the row on top when the window opens.
constexpr int kFirstRowSeen = 11;

bool IsBooked(const std::string& guest) {
  return !guest.empty();
}

}  // namespace

frmDay::frmDay(Session& session, DayView& view, modRes::MonthScreen& month, Windows& windows,
               Dialogs& dialogs, const Clock& clock)
    : session_(session),
      view_(view),
      month_(month),
      windows_(windows),
      dialogs_(dialogs),
      clock_(clock) {}

bool frmDay::Form_Load() {
  if (session_.PrintLayoutOn) {
    return false;
  }
  view_.PlaceOnScreen();
  view_.ScrollToRow(kFirstRowSeen);
  modRes::LoadGuestNames(session_, Combo1_);
  view_.ShowNameBox(Combo1_);
  FillGrid();
  return true;
}

void frmDay::MSFlexGrid1_MouseDown(int row, int current_row) {
  session_.AnchorRow = row;
  session_.AnchorTimeText = current_row == 0 ? "Time" : modRes::LongSlotLabel(current_row);
}

void frmDay::MSFlexGrid1_Click(int row, int column) {
  if (row == 0 || column == 0 || session_.AnchorRow == 0) {
    return;
  }
  SelectRows(row);
  const int booked = BookedRowsInSelection();
  if (booked == 0) {
    BookSelection();
  } else if (booked > 1) {
    dialogs_.MsgBox({.Text = "There is already a Booking on " + std::to_string(booked) +
                             " of the Time Slot(s).",
                     .Sign = Icon::Critical});
  }
}

void frmDay::Combo1_Change(const std::string& text) {
  Combo1_.Text = text;
}

void frmDay::Combo1_GotFocus() {
  if (!Combo1_.Text.empty()) {
    view_.SelectAllText();
  }
}

void frmDay::Combo1_LostFocus() {
  Combo1_.Text = CapitalizeWords(Combo1_.Text);
  view_.ShowName(Combo1_.Text);
}

void frmDay::Command2_Click() {
  view_.CloseWindow();
}

void frmDay::Form_Unload() {
  windows_.ShowMonthWindow();
  session_.PrintLayoutOn = false;
  modRes::FillDayCell(session_, month_, session_.DayCellIndex, session_.DayDate);
}

void frmDay::SelectRows(int row) {
  const modRes::SlotRange range = modRes::RangeOfRows(session_.AnchorRow, row);
  session_.SelFirstSlot = range.First;
  session_.SelLastSlot = range.Last;
  session_.SelEndRow = range.Last;
  view_.SetCurrentRow(modRes::EndLabelSlot(range.Last));
}

int frmDay::BookedRowsInSelection() const {
  const auto first = MSFlexGrid1_.Guest.begin() + session_.SelFirstSlot;
  const auto end = MSFlexGrid1_.Guest.begin() + session_.SelLastSlot + 1;
  return static_cast<int>(std::count_if(first, end, IsBooked));
}

void frmDay::BookSelection() {
  const std::string name = Combo1_.Text.empty() ? modRes::kNoTitle : Combo1_.Text;
  const Answer answer = dialogs_.MsgBox(
      {.Text = "Reservation for " + name + " From " +
               modRes::LabelOf(session_.SlotLabel, session_.SelFirstSlot) + " To " +
               modRes::LabelOf(session_.SlotLabel, modRes::EndLabelSlot(session_.SelLastSlot)) +
               "." + kLineBreak + "Select OK to Book or Cancel to Cancel",
       .Choice = Buttons::OkCancel,
       .Sign = Icon::Question});
  if (answer != Answer::Ok) {
    return;
  }
  modRes::MakeBookings(session_, Combo1_.Text, MSFlexGrid1_, dialogs_);
  view_.ShowGrid(MSFlexGrid1_);
  modRes::RefreshMonth(session_, clock_, month_, session_.CurMonth);
}

void frmDay::FillGrid() {
  MSFlexGrid1_ = {};
  modRes::FillDayList(session_, MSFlexGrid1_, session_.DayDate);
  view_.ShowGrid(MSFlexGrid1_);
}

}  // namespace veyra
