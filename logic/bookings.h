#pragma once

#include <string>

#include "logic/clock.h"
#include "logic/day_grid.h"
#include "logic/dialogs.h"
#include "logic/multiday.h"
#include "logic/session.h"

namespace veyra::modRes {

/// The name of a booking for which none was typed.
inline constexpr const char* kNoTitle = "No Title";

/// What the operator has consented to book, beside the selection and the day in the session.
struct BookingRequest {
  std::string TypedName;  ///< As it stands in the day window; empty for "No Title".
  bool Multiple = false;  ///< Book every free date of Plan, not only DayDate.
  MultiDayPlan Plan;      ///< Used when Multiple; both texts must be dates.
};

enum class BookingOutcome {
  Shown,    ///< The grid shows what was done, or by design does not.
  Halted,   ///< It came to no end: the caller is to fill the grid anew.
  Refused,  ///< Nothing was booked: another desk came first.
};

/// Books facility CurRmID for SelFirstSlot to SelLastSlot and reports how many rows were written.
/// Asks nothing: the caller has the operator's consent. Names are stored as typed, or refused.
///
/// A single booking writes one row for DayDate, puts the name into the grid's rows and shows them.
/// It looks for no clash: the caller has seen to it that the rows are free. When another desk has
/// booked them since this one looked, the grid is filled anew, the operator reads who, and nothing
/// is booked.
///
/// A multiple booking writes a row for each date of the plan on which ClashQuery finds nothing and
/// no other desk comes first, all with one group key: the time at which it began. It leaves the
/// grid as it is, by design. One that halts half-way asks as CarryOut does.
///
/// Throws, nothing having been written: DatabaseError, NameTooLongError when the calendar cannot
/// hold the name, ValueError when a text of the plan is not a date.
BookingOutcome MakeBookings(Session& session, const BookingRequest& request, ShownGrid grid,
                            const Clock& clock, Dialogs& dialogs);

/// The group key of a multiple booking begun at that time: the fourteen digits yyyymmddhhmmss as a
/// number.
double GroupKey(const DateTime& time);

}  // namespace veyra::modRes
