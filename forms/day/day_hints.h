#pragma once

#include <string>

#include "data/date.h"
#include "data/phrase.h"
#include "logic/day_grid.h"
#include "logic/picked_booking.h"
#include "logic/slots.h"

namespace veyra {

/// What the pointer carries while rows are dragged over: "9:00A-10:30A, 1 h 30 min, free", or who
/// is in the way. `several_days`: the range is meant for a series, of which the grid shows one day.
Phrase RangeHint(const modRes::SlotLabelTable& labels, const DayGrid& grid, modRes::SlotRange rows,
                 bool several_days);

/// Name and times of the booking that the row shows, a line each. REQUIRES: it shows one.
Phrase BookingHint(const modRes::SlotLabelTable& labels, const DayGrid& grid, int row);

/// "one of 8 dates until 12/22"; with the year when that is not the year of `shown`.
Phrase SeriesHint(const modRes::GroupDates& dates, Date shown);

}  // namespace veyra
