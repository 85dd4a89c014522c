#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "data/date.h"
#include "data/one_based.h"
#include "data/value.h"
#include "logic/clock.h"
#include "logic/dialogs.h"
#include "logic/session.h"
#include "logic/slots.h"

namespace veyra {

/// What the multiple-day window holds: the dates of a range that fall on the ticked weekdays.
struct MultiDayPlan {
  std::array<std::string, 2> Text1;  ///< From and To as typed; both ends belong to the range.
  OneBased<bool, 7> Days;            ///< By weekday, 1 for Sunday to 7.

  bool operator==(const MultiDayPlan&) const = default;
};

namespace modRes {

/// The dates of a plan, its texts read.
struct PlannedRange {
  Date From{};
  Date To{};  ///< Included. Before From when the plan has no date.
  OneBased<bool, 7> Days;
};

/// Reads the plan's two texts. Throws ValueError when one is not a date.
PlannedRange RangeOfPlan(const MultiDayPlan& plan, Date today);

/// How many days the range spans, ticked or not; 0 when To lies before From.
std::int64_t DaysInRange(const PlannedRange& range);

/// Whether the plan has that date: it lies from From to To and falls on a ticked weekday.
bool IsPlanned(const PlannedRange& range, Date day);

/// Visits, in their order, the dates from From to To that fall on a ticked weekday, until
/// `progress` tells that the operator has ended it. Counting, checking and booking all walk by this
/// routine. Returns false when it was ended early.
bool ForEachPlannedDate(const PlannedRange& range, Progress& progress,
                        const std::function<void(Date)>& visit);

/// The dates that ForEachPlannedDate would visit.
std::vector<Date> PlannedDates(const PlannedRange& range);

/// How many of them there are. Takes no longer for many of them.
std::int64_t CountPlannedDates(const PlannedRange& range);

/// The English name of the date's weekday.
std::string WeekdayName(Date date);

/// The name of a weekday, 1 for Sunday to 7, in the operator's language.
Phrase WeekdayWord(int weekday);

/// Its name where there is little room, "Sun".
Phrase WeekdayAbbreviation(int weekday);

/// The text of the query for bookings of any facility on `day` that hold the first or the last slot
/// of the selection. A booking that lies strictly inside the selection is not found: this is meant.
std::string ClashQuery(const Session& session, Date day);

/// Whether a booking with these bounds, as stored, is one that ClashQuery finds on its day.
bool Clashes(SlotRange selection, const Value& time_from, const Value& time_to);

/// Looks for clashes on every date of the plan, lists them to the operator, and sets MultiBookCount
/// to PlannedDayCount less the number of dates that clash; to 0 when the operator cancels.
/// Throws DatabaseError, and ValueError when a text of the plan is not a date.
void CheckMultiDayConflicts(Session& session, const MultiDayPlan& plan, const Clock& clock,
                            Dialogs& dialogs);

}  // namespace modRes
}  // namespace veyra
