#pragma once

#include <map>
#include <string>
#include <vector>

#include "data/phrase.h"
#include "tools/calendar_rows.h"

namespace veyra {

/// How a booking is named to the operator.
class BookingWords {
 public:
  explicit BookingWords(const std::vector<Facility>& facilities);

  /// "Pool, 3/5/2026,  9:00A-10:30A Smith".
  Phrase Of(const Booking& booking) const;

  /// " 9:00A-10:30A Smith".
  std::string TimeAndName(const modRes::SlotRange& slots, const std::string& event) const;

  /// The facility's name, or "no facility (7)".
  Phrase FacilityName(std::int64_t id) const;

 private:
  modRes::SlotLabelTable labels_;
  std::map<std::int64_t, std::string> names_;
};

}  // namespace veyra
