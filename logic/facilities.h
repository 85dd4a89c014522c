#pragma once

#include <optional>
#include <string>

#include "logic/name_box.h"
#include "logic/session.h"

namespace veyra::modRes {

/// Every routine here works on table Rooms of session.ResCon and throws DatabaseError when that
/// fails. `Combo1` is the month window's facility box. Which facility is active the column Active
/// says; on a calendar that several desks share the note of this desk does (data/desk_note.h), and
/// the column only where that names no facility.

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

/// Makes the first facility active, CurRmID, Combo1's text and lblRoom. When there is none Combo1's
/// text is empty, and CurRmID and lblRoom stay.
void SelectFirstFacility(Session& session, NameBox& Combo1, std::string& lblRoom);

/// On a shared calendar: marks the first facility in the column when none is marked there, for
/// whoever makes the calendar a file again. To be called after a facility was deleted.
void KeepMarkOnServer(Session& session);

/// The name of facility CurRmID; nothing when there is no such facility.
std::optional<std::string> CurrentFacility(Session& session);

/// Lists every facility in Combo1, or none when there is none, and makes the name of facility
/// CurRmID its text; empty when there is no such facility.
void ReloadFacilities(Session& session, NameBox& Combo1);

/// The query for the row of facility CurRmID.
std::string CurrentRoomQuery(const Session& session);

}  // namespace veyra::modRes
