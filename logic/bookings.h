#pragma once

#include <string>

#include "logic/clock.h"
#include "logic/day_grid.h"
#include "logic/dialogs.h"
#include "logic/session.h"

namespace veyra::modRes {

/// The name of a booking for which none was typed.
inline constexpr const char* kNoTitle = "No Title";

/// Books facility CurRmID on DayDate for SelFirstSlot to SelLastSlot, in the name typed in the day
/// window or as "No Title". Writes one row, puts the name into the grid's rows, and reports
/// "1 Booking(s) Made.". Asks nothing: the caller has the operator's consent, and has seen to it
/// that the range is free. The name is stored as typed, whatever its length.
/// Throws DatabaseError; then nothing was written and the grid is as it was.
void MakeBookings(Session& session, const std::string& typed_name, DayGrid& MSFlexGrid1,
                  Dialogs& dialogs);

}  // namespace veyra::modRes
