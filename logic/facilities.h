#pragma once

#include <string>

#include "logic/dialogs.h"
#include "logic/name_box.h"
#include "logic/session.h"

namespace veyra::modRes {

/// Every routine here works on table Rooms of session.ResCon and throws DatabaseError when that
/// fails. `Combo1` is the month window's facility box.

/// Lists every facility in Combo1, in the table's order, and makes the active one its text; the
/// last one when several are active. Leaves Combo1 alone when there is no facility.
void LoadFacilities(Session& session, NameBox& Combo1);

/// Sets CurRmID to the facility of exactly that name and makes it the only active one. When there
/// is none CurRmID stays and no facility is active; an empty name is nobody's.
void SelectFacility(Session& session, const std::string& FacilityName);

/// Puts the name of facility CurRmID into Combo1's text; leaves it alone when there is none.
void ShowCurrentFacility(Session& session, NameBox& Combo1);

/// Adds a facility named Combo1's text, active, appends it to the list and sets CurRmID to it.
/// The marks of the others stay until the next SelectFacility.
void AddFacility(Session& session, NameBox& Combo1);

/// Deletes every booking of facility CurRmID, its entry in Combo1 (the one that equals Combo1's
/// text) and its row. The first facility left becomes active, CurRmID, Combo1's text and lblRoom;
/// when none is left Combo1's text is empty and CurRmID and lblRoom stay.
void DeleteFacility(Session& session, NameBox& Combo1, std::string& lblRoom, Dialogs& dialogs);

}  // namespace veyra::modRes
