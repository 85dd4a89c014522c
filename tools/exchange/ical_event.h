#pragma once

#include <libical/ical.h>

#include <ctime>
#include <string>
#include <vector>

#include "data/errors.h"
#include "tools/calendar_rows.h"

namespace veyra {

/// A moment of an event: seconds since 1970, counted in UTC or, for a floating time, as if its
/// clock were UTC's.
struct IcalMoment {
  std::time_t Seconds = 0;
  bool IsFloating = false;
};

/// When an event takes place once.
struct IcalOccurrence {
  IcalMoment From;
  IcalMoment To;  ///< Not included.
};

/// An event of an iCalendar file, to which it must not outlive.
class IcalEvent {
 public:
  /// `component` is a VEVENT of the calendar that it belongs to.
  explicit IcalEvent(icalcomponent* component) : component_(component) {}

  std::string Uid() const;
  std::string Summary() const;

  /// What its categories and its place say, in that order.
  std::vector<std::string> Places() const;

  /// What it is related to.
  std::vector<std::string> Relations() const;

  bool IsCancelled() const;

  /// The occurrence of a repeated event that this one stands for, if any.
  std::optional<std::time_t> Replaced() const;

  /// Every occurrence that may touch `days`, but for those that begin at the `replaced` times.
  /// Throws ValueError when its times cannot be read, or when it repeats without end while `days`
  /// has none.
  std::vector<IcalOccurrence> Occurrences(const DayRange& days,
                                          const std::vector<std::time_t>& replaced) const;

 private:
  std::string Name() const;
  std::vector<icaltimetype> Starts(const icaltimetype& first, const DayRange& days) const;
  void Repeat(icalrecurrencetype rule, const icaltimetype& first, const DayRange& days,
              std::vector<icaltimetype>& starts) const;
  std::time_t Length(const icaltimetype& first) const;
  std::vector<std::time_t> Excluded() const;

  icalcomponent* component_;
};

/// The moment that a time of the file names.
IcalMoment MomentOf(const icaltimetype& time);

}  // namespace veyra
