#pragma once

#include "logic/name_box.h"
#include "logic/session.h"

namespace veyra::modRes {

/// Lists the name of every guest in Combo1 (the day window's), in the table's own order, duplicates
/// included and null names left out. With no guest at all the list is empty and the text is
/// "No Guests in Veyra"; otherwise the text stays. Throws DatabaseError.
void LoadGuestNames(Session& session, NameBox& Combo1);

}  // namespace veyra::modRes
