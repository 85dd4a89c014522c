#pragma once

#include <string_view>

#include "tools/exchange/exchanged_booking.h"

namespace veyra {

/// The head of a CSV file of bookings, and a line for each: Facility, Date, From, To, Name, Series.
/// Texts that a spreadsheet would take for formulas are defused.
std::string CsvHead();
std::string CsvOf(const ExchangedBooking& booking);

/// The bookings of a CSV file. Its first record names the columns, in any order and letter case;
/// Date, From, To and Name must be there. Times within a half hour are rounded outwards, and said
/// so. A time that runs over midnight is taken as two bookings.
/// Throws ValueError, naming the line.
Exchanged BookingsOfCsv(std::string_view text, Date today);

}  // namespace veyra
