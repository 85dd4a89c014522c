#pragma once

#include "logic/listings.h"

namespace veyra {

/// The month as the screen shows it, which keeps what it is not told anew: the title, and the
/// background of a list.
class MonthOnScreen {
 public:
  void ShowMonth(const modRes::MonthPicture& picture);

  /// REQUIRES: 1 to 42.
  void ShowLines(int cell_index, const modRes::DayLines& lines);

  /// Every list that was ever given a background has one.
  const modRes::MonthPicture& Picture() const { return picture_; }

 private:
  modRes::MonthPicture picture_;
};

}  // namespace veyra
