#pragma once

#include <optional>
#include <string>

#include "data/noting_store.h"
#include "logic/dialogs.h"
#include "logic/journal_actions.h"
#include "logic/session.h"

namespace veyra::modRes {

/// What the desk did last of what it can take back - a booking, a series, a deletion, a renaming,
/// the deletion of a facility - and has not taken back yet: of any run where the calendar keeps a
/// journal, else of this one. Throws DatabaseError.
std::optional<JournalAction> LastDeskAction(Session& session);

/// Asks whether that is to be undone, and does it, whole or not at all. What stands in the way is
/// named, and nothing is changed. Returns what was undone, as ActionLine tells it; nothing when
/// nothing was. Throws DatabaseError.
std::optional<Phrase> UndoLastAction(Session& session, Dialogs& dialogs);

/// What the desk has done, in a line: "Booked: Pool, 3/5/2026,  9:00A-10:30A Smith"; "Deleted: 14
/// dates, Choir"; "Deleted: the facility Pool, with 20 bookings". Empty when it is nothing that it
/// can take back. Throws DatabaseError.
Phrase ActionLine(Session& session, const JournalAction& action);

/// The action as the journal would hold it.
JournalAction AsJournalAction(const NotedAction& noted);

}  // namespace veyra::modRes
