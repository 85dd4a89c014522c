#pragma once

#include <cstdint>
#include <string>

#include "tools/exchange/exchanged_booking.h"

namespace veyra {

/// The first and the last lines of an iCalendar file (RFC 5545).
std::string IcalHead();
std::string IcalEnd();

/// A booking as an event in floating local time, with the facility as its category and its place,
/// and a relation that the bookings of one series share. `copies` counts the bookings before it
/// that are just like it. `stamp` is the time of the export in UTC.
///
/// The UID follows from what the booking is, so that it is the same in every export, of every copy
/// of the calendar.
std::string IcalOf(const ExchangedBooking& booking, int copies, const DateTime& stamp);

}  // namespace veyra
