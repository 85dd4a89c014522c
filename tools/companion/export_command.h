#pragma once

#include "tools/companion/command.h"
#include "tools/companion/surroundings.h"
#include "tools/exchange/ical_codec.h"

namespace veyra {

/// "export FILE [FOLDER]": writes bookings as iCalendar or as CSV into a new file, which appears
/// whole or not at all, or, for "-", to the ordinary stream. The calendar is only read, and may be
/// open. `stamp`, in UTC, is written into iCalendar files.
Command ExportCommand(Surroundings surroundings, DateTime stamp, IcalSource ical);

}  // namespace veyra
