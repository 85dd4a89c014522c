#pragma once

#include "data/date.h"

namespace veyra {

/// The cell of the month window, 1 to 42, that shows the day in its month.
int CellOf(Date day);

/// The day that the cell stands for while that month is shown. REQUIRES: the month is one that a
/// date can have, and the cell belongs to it.
Date DateOfCell(int year, int month, int index);

}  // namespace veyra
