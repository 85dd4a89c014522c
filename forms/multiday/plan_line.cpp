#include "forms/multiday/plan_line.h"

#include <algorithm>
#include <cstdint>

#include "logic/date_parser.h"

namespace veyra {
namespace {

/// A plan with more dates, or one that ends later, is hardly meant.
constexpr std::int64_t kManyDates = 400;
constexpr int kYearsAhead = 3;

bool HasWeekday(const MultiDayPlan& plan) {
  return std::find(plan.Days.begin(), plan.Days.end(), true) != plan.Days.end();
}

/// Three years from 29 February end with 28 February.
bool IsFarAway(Date day, Date today) {
  const int year = YearOf(today) + kYearsAhead;
  const auto same_day = MakeDate(year, MonthOf(today), DayOf(today));
  const auto limit = same_day ? same_day : MakeDate(year, MonthOf(today), DayOf(today) - 1);
  return limit && day > *limit;
}

Phrase Dates(std::int64_t count) {
  return count == 1 ? Phrase::Tr("1 date") : Phrase::Tr("%1 dates", count);
}

Phrase WithTaken(const Phrase& dates, std::int64_t taken) {
  return taken == 0 ? Phrase::Tr("%1, none of them taken", dates)
                    : Phrase::Tr("%1, %2 of them taken", dates, taken);
}

Phrase PlanText(const modRes::PlannedRange& range, std::int64_t count,
                const modRes::TakenDays* taken) {
  const Phrase dates = Dates(count);
  if (taken == nullptr) {
    return dates;
  }
  return taken->IsDone() ? WithTaken(dates, taken->CountIn(range))
                         : Phrase::Tr("%1, counting those taken ...", dates);
}

Phrase OddNote(const modRes::PlannedRange& range, std::int64_t count, Date today) {
  if (count > 0 && IsFarAway(range.To, today)) {
    return Phrase::Tr("Is this meant? It ends in %1.", YearOf(range.To));
  }
  return count > kManyDates ? Phrase::Tr("Is this meant? So many dates.") : Phrase();
}

Phrase TimeNote(const modRes::SlotLabelTable& labels, const modRes::TakenDays* taken) {
  if (taken == nullptr) {
    return Phrase::Tr("Choose a time in the day first to count those taken.");
  }
  return Phrase::Tr("Counted for %1, the time chosen last.",
                    modRes::TimesLabel(labels, taken->Slots()));
}

}  // namespace

PlanLine DescribePlan(const MultiDayPlan& plan, Date today, const modRes::SlotLabelTable& labels,
                      const modRes::TakenDays* taken) {
  if (!HasWeekday(plan) || !ParseDate(plan.Text1[0], today) || !ParseDate(plan.Text1[1], today)) {
    return {};
  }
  const modRes::PlannedRange range = modRes::RangeOfPlan(plan, today);
  if (range.To < range.From) {
    return {Phrase::Tr("No dates: they end before they begin."), ""};
  }
  const std::int64_t count = modRes::CountPlannedDates(range);
  if (count == 0) {
    return {Phrase::Tr("No dates: none of them falls on a ticked weekday."), ""};
  }
  const Phrase text = PlanText(range, count, taken);
  const Phrase odd = OddNote(range, count, today);
  return odd.IsEmpty() ? PlanLine{text, TimeNote(labels, taken)} : PlanLine{text, odd, true};
}

}  // namespace veyra
