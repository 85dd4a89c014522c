#pragma once

#include <string>
#include <vector>

#include "data/date.h"
#include "data/store.h"
#include "logic/day_grid.h"

namespace veyra::modRes {

/// One day of one facility.
struct BoardColumn {
  std::string Facility;
  DayGrid Grid;
};

/// One day of all facilities, in the order of the facility box.
struct DayBoard {
  Date Day{};
  std::vector<BoardColumn> Columns;
};

/// Reads the day's bookings at once. Where two cover a half hour, the one is shown that the day
/// window shows. Throws DatabaseError.
DayBoard ReadDayBoard(Store& store, Date day);

}  // namespace veyra::modRes
