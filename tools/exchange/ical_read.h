#pragma once

#include <string>
#include <vector>

#include "tools/calendar_rows.h"
#include "tools/exchange/exchanged_booking.h"

namespace veyra {

/// The bookings of an iCalendar file (RFC 5545), each repetition of an event inside `days` a
/// booking of its own. Events that are cancelled are left out. Times of a zone become local ones;
/// whole days are booked whole. The facility is the category or place that is one of `facilities`,
/// else the first category, else the place.
///
/// Throws ValueError when the text is not an iCalendar file or was cut short, when an event has no
/// date that can be read, and when one repeats without end while `days` has none.
Exchanged BookingsOfIcal(const std::string& text, const DayRange& days,
                         const std::vector<std::string>& facilities);

}  // namespace veyra
