#pragma once

#include <cstddef>

#include "forms/board/board_view.h"
#include "forms/windows.h"
#include "logic/clock.h"
#include "logic/session.h"

namespace veyra {

/// The day board: one day of all facilities, side by side, to be read. A cell leads to the day of
/// its facility, and when that is closed back to the board.
class frmBoard {
 public:
  /// All of them must outlive the window.
  frmBoard(Session& session, BoardView& view, Windows& windows, const Clock& clock);

  /// Shows that day. Throws DatabaseError.
  void Form_Load(Date day);

  void Command1_Click();  ///< "Next =>": the day after.
  void Command2_Click();  ///< "<= Previous": the day before.
  void TodayKey();        ///< Control and T.
  void HelpKey();         ///< F1

  /// A cell was chosen: `row` 1 to 48, `column` counted from 0. Opens the day of its facility.
  void Cell_Chosen(int row, std::size_t column);

  /// The day window has closed. A board that led to it comes back, filled anew.
  void DayClosed();

  /// Fills the board anew with what the calendar holds. Throws DatabaseError.
  void Fill();

  /// The window goes: the month window takes input again.
  void Form_Unload();

 private:
  void TurnTo(Date day);

  Session& session_;
  BoardView& view_;
  Windows& windows_;
  const Clock& clock_;
  modRes::DayBoard board_;
  bool awaits_day_ = false;  ///< It has led to a day, and is off the screen meanwhile.
};

}  // namespace veyra
