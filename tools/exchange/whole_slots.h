#pragma once

#include <cstdint>

#include "tools/exchange/exchanged_booking.h"

namespace veyra {

/// A span of local time, its end not included, in minutes since the midnight that begins `Day`.
struct Span {
  Date Day{};
  std::int64_t From = 0;  ///< 0 to 1439.
  std::int64_t To = 0;    ///< More than From.
};

/// Adds the span to `exchanged` as bookings like `pattern`, one for each day that it touches,
/// rounded outwards to half hours, with a note when it had to be.
void AddSpan(const Span& span, const ExchangedBooking& pattern, Exchanged& exchanged);

}  // namespace veyra
