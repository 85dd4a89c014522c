#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "data/date.h"

namespace veyra {

/// What became of a row of a calendar that several desks share.
struct SharedChange {
  enum class Kind { Added, Set, Removed };

  std::string Table;  ///< "Rooms", "Reserv" or "Settings".
  Kind What = Kind::Added;
  std::optional<std::int64_t> Facility;  ///< Of a booking, or the facility itself.
  std::optional<Date> Day;               ///< Of a booking. One that is moved is told for both days.
  bool IsOwn = false;                    ///< This desk has made it.
};

struct SharedChanges {
  std::vector<SharedChange> Rows;  ///< In the order in which they were saved.

  /// Some were missed: anything may be different now.
  bool MayBeAnything = false;
};

/// Tells what is changed in a calendar that several desks share. Used from the thread that uses its
/// store, also in the middle of a call to that, by its WaitObserver.
class ChangeFeed {
 public:
  virtual ~ChangeFeed() = default;

  /// A descriptor that can be read as long as there may be something to take, and that stays the
  /// same. It is only to be waited on.
  virtual int Descriptor() const = 0;

  /// What was told since the last call. Never waits, and connects to nothing: a connection that was
  /// lost is made anew by the next call to the store, and then anything may be different.
  virtual SharedChanges TakeChanges() = 0;
};

}  // namespace veyra
