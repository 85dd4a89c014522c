#pragma once

#include "tools/companion/command.h"
#include "tools/companion/surroundings.h"
#include "tools/exchange/ical_codec.h"

namespace veyra {

/// "import FILE [FOLDER]": adds the bookings of an iCalendar or CSV file to the calendar, which may
/// be open: all of them or none. Bookings that are there already are passed over. When the time of
/// any is taken nothing is written, unless --skip-clashes leaves those out.
Command ImportCommand(Surroundings surroundings, IcalSource ical);

}  // namespace veyra
