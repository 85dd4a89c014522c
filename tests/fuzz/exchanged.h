#pragma once

#include <string>

#include "tools/exchange/exchanged_booking.h"

namespace veyra {

/// Ends the process unless each of the bookings is one that a calendar can hold.
void RequireBookable(const Exchanged& exchanged);

/// The bookings, all that is said of them but where in the file they stand.
std::string TextOf(const Exchanged& exchanged);

}  // namespace veyra
