#pragma once

#include <string>
#include <vector>

#include "data/store.h"
#include "logic/journal_actions.h"
#include "logic/journal_words.h"

namespace veyra::modRes {

/// How an action of the journal is to be taken back: whole, or not at all.
struct UndoPlan {
  std::int64_t Number = 0;                  ///< The action's.
  std::vector<JournalledChange> TakenBack;  ///< What it did, row by row.
  std::vector<Phrase> Obstacles;            ///< Why it cannot be: sentences that name what stands
                                            ///< there now. None when it can be taken back.
  std::vector<RowChange> Changes;           ///< What takes it back.
  std::vector<QueryResult> Seen;            ///< What that rests on.
};

/// Rows that the action added must still be as it left them, and go; rows that it changed must
/// still be so, and get their old values; rows that it deleted come back, where nothing else has
/// been booked since and their facility is there. Of a facility that comes back the number and the
/// name must be free; one that goes must have no bookings by now. Changes nothing.
/// Throws DatabaseError.
UndoPlan PlanUndo(Store& store, const JournalAction& action, const JournalWords& words);

/// Takes the action back, which is an action of the journal itself. Throws RowChangedError when
/// what the plan rests on was changed since: then nothing was done, and it may be planned anew.
/// REQUIRES: there are changes and no obstacles.
void CarryOutUndo(Store& store, const UndoPlan& plan);

}  // namespace veyra::modRes
