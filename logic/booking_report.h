#pragma once

#include <string>

#include "logic/day_grid.h"
#include "logic/dialogs.h"
#include "logic/listings.h"
#include "logic/session.h"

namespace veyra::modRes {

/// What a change of the picked booking came to.
struct BookingChange {
  Phrase Result;         ///< Told to the operator; empty when no booking was found.
  bool Found = false;    ///< A booking was found.
  bool OfGroup = false;  ///< Its whole group was changed, or a part of it.
};

/// Writes `name` into the grid's rows AnchorRow to SelEndRow, shows the day as it is now when a
/// booking was found, tells the result and refreshes the listings. What was done is told even when
/// what is shown cannot be refreshed; the failure is thrown after that.
void ShowAndTell(Session& session, const BookingChange& change, const std::string& name,
                 ShownGrid grid, const Listings& listings, Dialogs& dialogs);

}  // namespace veyra::modRes
