#pragma once

#include <vector>

#include "data/phrase.h"
#include "forms/piecework.h"

namespace veyra {

/// What the find window is to show.
struct FindPicture {
  std::vector<Phrase> Upcoming;  ///< The next one first.
  std::vector<Phrase> Past;      ///< Below a line, the last one first.
  Phrase State;                  ///< What is to be said of them.
};

/// What the find window's logic tells its screen. The screen reports gestures to frmFind.
class FindView : public PieceworkView {
 public:
  /// Shows these lines. The chosen one stays chosen where it is among them still.
  virtual void ShowFound(const FindPicture& picture) = 0;

  /// Takes the window off the screen, which is then told to frmFind::Form_Unload.
  virtual void CloseWindow() = 0;
};

}  // namespace veyra
