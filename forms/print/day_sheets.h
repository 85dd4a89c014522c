#pragma once

#include <string>

#include "data/date.h"
#include "forms/print/sheet.h"
#include "logic/clock.h"
#include "logic/session.h"

namespace veyra {

/// A date as it stands over lines: "Wednesday, March 5".
Phrase DateWords(Date date);

/// Sheets for the door of the facility whose ID is CurRmID, read from the calendar. `today` is
/// marked. Throws DatabaseError, and ValueError when a colour of CurrentColors is not a number.
Sheet DaySheet(Session& session, Date day, Date today);

/// The week that holds the day, from Sunday to Saturday.
Sheet WeekSheet(Session& session, Date day, Date today);

}  // namespace veyra
