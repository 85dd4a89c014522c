#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "tools/calendar_rows.h"
#include "tools/care/finding.h"

namespace veyra {

/// Looks at every booking: unknown facilities, slots, dates, names too long for `longest_name`
/// characters (0 for no limit), bookings of one facility that overlap, and groups whose rows
/// differ. `read` is told how many were read. Throws DatabaseError.
Findings CheckBookings(Store& store, const std::vector<Facility>& facilities,
                       std::size_t longest_name, const std::function<void(std::int64_t)>& read);

}  // namespace veyra
