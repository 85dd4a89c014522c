#pragma once

#include "data/date.h"
#include "data/phrase.h"
#include "logic/multiday.h"
#include "logic/slots.h"
#include "logic/taken_days.h"

namespace veyra {

/// What the multiple-day window says of its plan while it is being made.
struct PlanLine {
  Phrase Text;         ///< "14 dates, 4 of them taken"; empty while the plan lacks something.
  Phrase Note;         ///< What else is to be known of it.
  bool IsOdd = false;  ///< Whether the plan looks like a slip of the hand: Note then says why.

  bool operator==(const PlanLine&) const = default;
};

/// Describes the plan. `taken`: the days that are taken, as far as they have been read; nullptr
/// when no time was chosen, and then they are not counted.
PlanLine DescribePlan(const MultiDayPlan& plan, Date today, const modRes::SlotLabelTable& labels,
                      const modRes::TakenDays* taken);

}  // namespace veyra
