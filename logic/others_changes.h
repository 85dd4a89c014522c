#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <utility>

#include "data/change_feed.h"
#include "data/date.h"

namespace veyra::modRes {

/// What other desks have changed in a shared calendar and no window shows yet.
class OthersChanges {
 public:
  /// So many days of facilities are told apart; when there are more, anything may be different.
  static constexpr std::size_t kMostDays = 10'000;

  /// What this desk has changed itself is shown already, and left out.
  void Add(const SharedChanges& changes);

  /// From now on anything may be different.
  void AddAnything();

  bool AreThere() const { return may_be_anything_ || facilities_ || !days_.empty(); }

  /// Whether the facilities may be others, or have other names.
  bool AreOfFacilities() const { return may_be_anything_ || facilities_; }

  /// Whether bookings of any facility may be others.
  bool AreOfBookings() const { return may_be_anything_ || !days_.empty(); }

  /// Whether those of that facility may be others on a day from `first` to `last`, both included.
  bool AreOfBookings(std::int64_t facility, Date first, Date last) const;

 private:
  void Add(const SharedChange& change);

  bool may_be_anything_ = false;
  bool facilities_ = false;
  std::set<std::pair<std::int64_t, Date>> days_;  ///< Of which facility, on which day.
};

}  // namespace veyra::modRes
