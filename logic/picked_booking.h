#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "logic/dialogs.h"
#include "logic/session.h"
#include "logic/stored_row.h"

namespace veyra::modRes {

/// The booking of CurRmID on DayDate that covers the whole selection, to be changed; a record set
/// at its end when there is none. Of several it is the one whose name the day grid shows: the last
/// in the order of the listings.
Rows FindPicked(Session& session);

/// Every date of a group, for facility CurRmID, to be changed.
Rows FindGroup(Session& session, const Value& group_key);

/// The dates of a group, for facility CurRmID.
struct GroupDates {
  std::size_t Count = 0;
  std::optional<Date> First;  ///< Nothing when none of its rows has a date.
  std::optional<Date> Last;
};

/// Throws DatabaseError.
GroupDates DatesOfGroup(Session& session, const Value& group_key);

/// Whether a booking with that MultKey belongs to a group.
bool IsGroupKey(const Value& key);

/// Whether the operator means all of the group: asks the question, with GroupDetails below it. Asks
/// nothing, and returns false, for a booking that belongs to no group.
bool IsGroupMeant(Session& session, const Value& group_key, Message question, Dialogs& dialogs);

/// What a question about the picked booking says below its text: facility, date and times, and of a
/// group the number of its dates, the first and the last of them. `name` is what the question calls
/// it; a booking that has another name by now is called by that too.
/// Throws DatabaseError.
Phrase PickedDetails(Session& session, const std::string& name);

/// The same for a question about a whole group.
Phrase GroupDetails(Session& session, const Value& group_key);

}  // namespace veyra::modRes
