#pragma once

#include <QWidget>
#include <string>
#include <vector>

#include "data/date.h"

namespace veyra::soak {

/// How the lines of a day in the month window differ from those expected, in any order; empty when
/// they do not. REQUIRES: the month of that day is shown.
std::string WrongLines(QWidget& month, Date day, std::vector<std::string> expected);

/// What is wrong when a window takes no input, or is hidden, and none is there that brings it back;
/// else empty.
std::string StuckWindow();

}  // namespace veyra::soak
