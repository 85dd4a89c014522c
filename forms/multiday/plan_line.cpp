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

std::string Dates(std::int64_t count) {
  return std::to_string(count) + (count == 1 ? " date" : " dates");
}

std::string Taken(const modRes::PlannedRange& range, const modRes::TakenDays& taken) {
  if (!taken.IsDone()) {
    return ", counting those taken ...";
  }
  const std::int64_t count = taken.CountIn(range);
  return ", " + (count == 0 ? "none" : std::to_string(count)) + " of them taken";
}

std::string OddNote(const modRes::PlannedRange& range, std::int64_t count, Date today) {
  if (count > 0 && IsFarAway(range.To, today)) {
    return "Is this meant? It ends in " + std::to_string(YearOf(range.To)) + ".";
  }
  return count > kManyDates ? "Is this meant? So many dates." : "";
}

std::string TimeNote(const modRes::SlotLabelTable& labels, const modRes::TakenDays* taken) {
  if (taken == nullptr) {
    return "Choose a time in the day first to count those taken.";
  }
  return "Counted for " + modRes::TimesLabel(labels, taken->Slots()) + ", the time chosen last.";
}

}  // namespace

PlanLine DescribePlan(const MultiDayPlan& plan, Date today, const modRes::SlotLabelTable& labels,
                      const modRes::TakenDays* taken) {
  if (!HasWeekday(plan) || !ParseDate(plan.Text1[0], today) || !ParseDate(plan.Text1[1], today)) {
    return {};
  }
  const modRes::PlannedRange range = modRes::RangeOfPlan(plan, today);
  if (range.To < range.From) {
    return {"No dates: they end before they begin.", ""};
  }
  const std::int64_t count = modRes::CountPlannedDates(range);
  if (count == 0) {
    return {"No dates: none of them falls on a ticked weekday.", ""};
  }
  const std::string text = Dates(count) + (taken == nullptr ? "" : Taken(range, *taken));
  const std::string odd = OddNote(range, count, today);
  return odd.empty() ? PlanLine{text, TimeNote(labels, taken)} : PlanLine{text, odd, true};
}

}  // namespace veyra
