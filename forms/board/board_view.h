#pragma once

#include <string>

#include "logic/day_board.h"

namespace veyra {

/// What the day board's logic tells its screen. The screen reports gestures to frmBoard.
class BoardView {
 public:
  virtual ~BoardView() = default;

  /// Shows the day, also in the window's title. The chosen cell stays chosen, and what is in sight
  /// stays there.
  virtual void ShowBoard(const Phrase& day, const modRes::DayBoard& board) = 0;

  /// Brings the window to the screen, or takes it off; it keeps what it shows.
  virtual void ShowWindow() = 0;
  virtual void HideWindow() = 0;
};

}  // namespace veyra
