#pragma once

#include "logic/day_grid.h"
#include "logic/dialogs.h"
#include "logic/listings.h"
#include "logic/session.h"

namespace veyra::modRes {

/// Deletes the booking of CurRmID on DayDate that covers the whole selection or, when it belongs to
/// a group and the operator says so, the group's rows on every date for this facility. Clears the
/// grid's rows AnchorRow to SelEndRow and shows the day as it is now; then reports, and refreshes
/// the listings. Finding no booking it clears the rows all the same and reports an empty text: both
/// are meant. A group of which a part was deleted asks as CarryOut does.
/// Throws DatabaseError: before the report when nothing was deleted, after it when what is shown
/// could not be refreshed.
void DeleteBookings(Session& session, ShownGrid grid, const Listings& listings, Dialogs& dialogs);

}  // namespace veyra::modRes
