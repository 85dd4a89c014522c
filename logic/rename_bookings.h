#pragma once

#include <cstddef>
#include <string>

#include "logic/day_grid.h"
#include "logic/dialogs.h"
#include "logic/listings.h"
#include "logic/session.h"

namespace veyra::modRes {

/// The longest name that one booking can be renamed to, in characters.
inline constexpr std::size_t kLongestNewName = 50;

/// Gives `name` to the booking that DeleteBookings would find, or to its whole group. The name of a
/// single row is cut, in place, to kLongestNewName characters; that of a group is not: this
/// asymmetry is meant. The grid's rows AnchorRow to SelEndRow take the name, found or not. Returns
/// whether a booking was found. Shows, reports, asks and throws as DeleteBookings does.
/// REQUIRES: name is not empty. Throws NameTooLongError, too, having written nothing, when the
/// calendar cannot hold the name.
bool RenameBookings(Session& session, std::string& name, ShownGrid grid, const Listings& listings,
                    Dialogs& dialogs);

}  // namespace veyra::modRes
