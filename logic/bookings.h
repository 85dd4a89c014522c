#pragma once

#include <string>

#include "logic/clock.h"
#include "logic/day_grid.h"
#include "logic/dialogs.h"
#include "logic/listings.h"
#include "logic/multiday.h"
#include "logic/session.h"

namespace veyra::modRes {

/// The name of a booking for which none was typed.
inline constexpr const char* kNoTitle = "No Title";

/// The longest name that one booking can be renamed to, in characters.
inline constexpr std::size_t kLongestNewName = 50;

/// What the operator has consented to book, beside the selection and the day in the session.
struct BookingRequest {
  std::string TypedName;  ///< As it stands in the day window; empty for "No Title".
  bool Multiple = false;  ///< Book every free date of Plan, not only DayDate.
  MultiDayPlan Plan;      ///< Used when Multiple; both texts must be dates.
};

/// Books facility CurRmID for SelFirstSlot to SelLastSlot and reports how many rows were written.
/// Asks nothing: the caller has the operator's consent. Names are stored as typed, whatever their
/// length.
///
/// A single booking writes one row for DayDate and puts the name into the grid's rows. It looks for
/// no clash: the caller has seen to it that the rows are free.
///
/// A multiple booking writes a row for each date of the plan on which ClashQuery finds nothing, all
/// with one group key: the time at which it began. It leaves the grid as it is, by design.
///
/// Throws DatabaseError, ValueError when a text of the plan is no date. Rows saved before then
/// stay.
void MakeBookings(Session& session, const BookingRequest& request, DayGrid& MSFlexGrid1,
                  const Clock& clock, Dialogs& dialogs);

/// The group key of a multiple booking begun at that time: the fourteen digits yyyymmddhhmmss as a
/// number.
double GroupKey(const DateTime& time);

/// Deletes the booking of CurRmID on DayDate that covers the whole selection or, when it belongs to
/// a group and the operator says so, the group's rows on every date for this facility. Clears the
/// grid's rows AnchorRow to SelEndRow, reports, and refreshes the listings. Finding no booking it
/// clears the rows all the same and reports an empty text: both are meant.
/// Throws DatabaseError; rows deleted before then stay deleted.
void DeleteBookings(Session& session, DayGrid& MSFlexGrid1, const Listings& listings,
                    Dialogs& dialogs);

/// Gives `name` to the booking that DeleteBookings would find, or to its whole group. The name of a
/// single row is cut, in place, to kLongestNewName characters; that of a group is not: this
/// asymmetry is meant. The grid's rows AnchorRow to SelEndRow take the name, found or not. Returns
/// whether a booking was found.
/// REQUIRES: name is not empty. Throws DatabaseError; rows renamed before then stay renamed.
bool RenameBookings(Session& session, std::string& name, DayGrid& MSFlexGrid1,
                    const Listings& listings, Dialogs& dialogs);

}  // namespace veyra::modRes
