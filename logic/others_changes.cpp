#include "logic/others_changes.h"

#include "data/names.h"

namespace veyra::modRes {

void OthersChanges::Add(const SharedChanges& changes) {
  for (const SharedChange& change : changes.Rows) {
    if (!change.IsOwn) {
      Add(change);
    }
  }
  if (changes.MayBeAnything) {
    AddAnything();
  }
}

/// The colours are read once, when the program starts.
void OthersChanges::Add(const SharedChange& change) {
  if (SameName(change.Table, "Rooms")) {
    facilities_ = true;
  } else if (SameName(change.Table, "Reserv") && !may_be_anything_) {
    if (!change.Facility || !change.Day || days_.size() >= kMostDays) {
      AddAnything();
    } else {
      days_.emplace(*change.Facility, *change.Day);
    }
  }
}

void OthersChanges::AddAnything() {
  may_be_anything_ = true;
  days_.clear();
}

bool OthersChanges::AreOfBookings(std::int64_t facility, Date first, Date last) const {
  const auto found = days_.lower_bound({facility, first});
  return may_be_anything_ || (found != days_.end() && *found <= std::pair(facility, last));
}

}  // namespace veyra::modRes
