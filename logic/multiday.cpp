#include "logic/multiday.h"

#include <algorithm>
#include <optional>

#include "data/errors.h"
#include "logic/date_parser.h"

namespace veyra::modRes {
namespace {

/// How many days are walked between two looks at the progress box.
constexpr std::int64_t kDaysPerReport = 64;

Date DateOfText(const std::string& text, Date today) {
  const auto date = ParseDate(text, today);
  if (!date) {
    throw ValueError(
        {"", Phrase::Tr("\"%1\" is not a date.", text),
         Phrase::Tr("Enter the dates of the multiple booking again, for example 3/15/2014.")});
  }
  return *date;
}

/// The clashes found so far.
struct Conflicts {
  std::int64_t Count = 0;
  std::string List;
};

void AddConflict(Conflicts& conflicts, Date day) {
  if (!conflicts.List.empty()) {
    conflicts.List += kLineBreak;
  }
  conflicts.List += WeekdayName(day) + " - " + DateText(day);
  ++conflicts.Count;
}

void CheckDate(Session& session, Date day, Conflicts& conflicts) {
  const auto clashes = session.ResCon->Open(ClashQuery(session, day), CursorType::StaticOptimistic);
  if (!clashes->IsEmpty()) {
    AddConflict(conflicts, ToDate(clashes->Field("DateOfRes")).value_or(day));
  }
}

/// Nothing when the operator cancelled.
std::optional<Conflicts> FindConflicts(Session& session, const PlannedRange& range,
                                       Dialogs& dialogs) {
  const auto progress =
      dialogs.StartProgress(Phrase::Tr("Looking for conflicting bookings ..."), EarlyEnd::Cancel);
  Conflicts conflicts;
  const bool finished =
      ForEachPlannedDate(range, *progress, [&](Date day) { CheckDate(session, day, conflicts); });
  return finished ? std::optional(conflicts) : std::nullopt;
}

void Warn(const Session& session, const Conflicts& conflicts, Dialogs& dialogs) {
  const std::int64_t remaining = session.PlannedDayCount - conflicts.Count;
  if (remaining < 1) {
    dialogs.MsgBox({.Text = "Due to other Booking Conflicts, none of these Bookings can be made.",
                    .Sign = Icon::Exclamation});
    return;
  }
  dialogs.MsgBox({.Text = "There are " + std::to_string(conflicts.Count) + " Conflicts." +
                          kLineBreak + conflicts.List + kLineBreak +
                          "All that will be set are the remaining " + std::to_string(remaining) +
                          " Bookings without Conflicts.",
                  .Sign = Icon::Exclamation});
}

/// The progress of an action too quick to be seen.
class Unseen : public Progress {
 public:
  bool Report(std::int64_t, std::int64_t) override { return true; }
};

}  // namespace

PlannedRange RangeOfPlan(const MultiDayPlan& plan, Date today) {
  return {DateOfText(plan.Text1[0], today), DateOfText(plan.Text1[1], today), plan.Days};
}

std::int64_t DaysInRange(const PlannedRange& range) {
  return std::max<std::int64_t>(0, DaysBetween(range.From, range.To) + 1);
}

bool IsPlanned(const PlannedRange& range, Date day) {
  return range.From <= day && day <= range.To && range.Days[WeekdayNumber(day)];
}

bool ForEachPlannedDate(const PlannedRange& range, Progress& progress,
                        const std::function<void(Date)>& visit) {
  const std::int64_t days = DaysInRange(range);
  for (std::int64_t i = 0; i < days; ++i) {
    if (i % kDaysPerReport == 0 && !progress.Report(i, days)) {
      return false;
    }
    const Date day = AddDays(range.From, i);
    if (IsPlanned(range, day)) {
      visit(day);
    }
  }
  return true;
}

std::vector<Date> PlannedDates(const PlannedRange& range) {
  Unseen unseen;
  std::vector<Date> dates;
  ForEachPlannedDate(range, unseen, [&dates](Date day) { dates.push_back(day); });
  return dates;
}

/// Every whole week holds each ticked weekday once; the days after the last one are walked.
std::int64_t CountPlannedDates(const PlannedRange& range) {
  constexpr std::int64_t kDaysOfWeek = 7;
  const std::int64_t weeks = DaysInRange(range) / kDaysOfWeek;
  std::int64_t count = weeks * std::count(range.Days.begin(), range.Days.end(), true);
  Unseen unseen;
  ForEachPlannedDate({AddDays(range.From, weeks * kDaysOfWeek), range.To, range.Days}, unseen,
                     [&count](Date) { ++count; });
  return count;
}

std::string WeekdayName(Date date) {
  constexpr std::array<const char*, 7> kNames = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                 "Thursday", "Friday", "Saturday"};
  return kNames.at(static_cast<std::size_t>(WeekdayNumber(date)) - 1);
}

Phrase WeekdayWord(int weekday) {
  switch (weekday) {
    case 1:
      return Phrase::Tr("Sunday");
    case 2:
      return Phrase::Tr("Monday");
    case 3:
      return Phrase::Tr("Tuesday");
    case 4:
      return Phrase::Tr("Wednesday");
    case 5:
      return Phrase::Tr("Thursday");
    case 6:
      return Phrase::Tr("Friday");
    default:
      return Phrase::Tr("Saturday");
  }
}

Phrase WeekdayAbbreviation(int weekday) {
  const std::array<Phrase, 7> names = {Phrase::Tr("Sun"), Phrase::Tr("Mon"), Phrase::Tr("Tue"),
                                       Phrase::Tr("Wed"), Phrase::Tr("Thu"), Phrase::Tr("Fri"),
                                       Phrase::Tr("Sat")};
  return names.at(static_cast<std::size_t>(weekday) - 1);
}

std::string ClashQuery(const Session& session, Date day) {
  const auto holds = [](modRes::TimeSlot slot) {
    const std::string number = std::to_string(slot);
    return "(" + number + " >= TimeFrom AND " + number + " <= TimeTo)";
  };
  // No condition on the facility: a booking anywhere at that time counts. This is meant.
  return "SELECT * FROM Reserv Where DateOfRes = #" + DateText(day) + "# And (" +
         holds(session.SelFirstSlot) + " OR " + holds(session.SelLastSlot) + ");";
}

bool Clashes(SlotRange selection, const Value& time_from, const Value& time_to) {
  const auto first = ToDouble(time_from);
  const auto last = ToDouble(time_to);
  const auto holds = [&](TimeSlot slot) {
    return first && last && slot >= *first && slot <= *last;
  };
  return holds(selection.First) || holds(selection.Last);
}

void CheckMultiDayConflicts(Session& session, const MultiDayPlan& plan, const Clock& clock,
                            Dialogs& dialogs) {
  session.MultiBookCount = 0;
  const auto conflicts = FindConflicts(session, RangeOfPlan(plan, clock.Today()), dialogs);
  if (!conflicts) {
    return;
  }
  if (conflicts->Count > 0) {
    Warn(session, *conflicts, dialogs);
  }
  session.MultiBookCount = session.PlannedDayCount - conflicts->Count;
}

}  // namespace veyra::modRes
