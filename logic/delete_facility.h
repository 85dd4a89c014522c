#pragma once

#include <string>

#include "logic/clock.h"
#include "logic/dialogs.h"
#include "logic/name_box.h"
#include "logic/session.h"

namespace veyra::modRes {

/// Deletes every booking of facility CurRmID, its entry in Combo1 (the one that equals Combo1's
/// text) and its row. The first facility left becomes active, CurRmID, Combo1's text and lblRoom;
/// when none is left Combo1's text is empty and CurRmID and lblRoom stay.
/// A deletion that halts half-way asks as CarryOut does; when the operator does not go on to its
/// end the facility stays, and so do Combo1 and lblRoom.
/// Throws DatabaseError.
void DeleteFacility(Session& session, NameBox& Combo1, std::string& lblRoom, Dialogs& dialogs);

/// What the question about it says below its text: how many bookings the facility has, and how many
/// of them are of today or later. Throws DatabaseError.
Phrase FacilityDetails(Session& session, const Clock& clock);

}  // namespace veyra::modRes
