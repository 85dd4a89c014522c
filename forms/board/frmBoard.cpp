#include "forms/board/frmBoard.h"

#include <string>
#include <utility>

#include "logic/help_viewer.h"
#include "logic/multiday.h"

namespace veyra {

frmBoard::frmBoard(Session& session, BoardView& view, Windows& windows, const Clock& clock)
    : session_(session), view_(view), windows_(windows), clock_(clock) {}

void frmBoard::Form_Load(Date day) {
  TurnTo(day);
}

void frmBoard::Command1_Click() {
  TurnTo(AddDays(board_.Day, 1));
}

void frmBoard::Command2_Click() {
  TurnTo(AddDays(board_.Day, -1));
}

void frmBoard::TodayKey() {
  TurnTo(clock_.Today());
}

void frmBoard::HelpKey() {
  windows_.ShowHelp(kHelpFile);
}

/// By value: the board may be filled anew meanwhile.
void frmBoard::Cell_Chosen(int row, std::size_t column) {
  const std::string facility = board_.Columns.at(column).Facility;
  view_.HideWindow();
  windows_.EnableMonthWindow(true);
  awaits_day_ = windows_.OpenDayOf(facility, board_.Day);
  if (awaits_day_) {
    windows_.ChooseRows({row, row});
  }
}

void frmBoard::DayClosed() {
  if (std::exchange(awaits_day_, false)) {
    Fill();
    windows_.EnableMonthWindow(false);
    view_.ShowWindow();
  }
}

void frmBoard::Fill() {
  TurnTo(board_.Day);
}

void frmBoard::Form_Unload() {
  windows_.EnableMonthWindow(true);
}

/// Before the first and after the last day that a date can have there is none.
void frmBoard::TurnTo(Date day) {
  if (YearOf(day) < kFirstYear || YearOf(day) > kLastYear) {
    return;
  }
  board_ = modRes::ReadDayBoard(session_.ResCon->Rows(), day);
  view_.ShowBoard(modRes::WeekdayWord(WeekdayNumber(day)) + ", " + DateText(day), board_);
}

}  // namespace veyra
