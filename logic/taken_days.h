#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <set>

#include "data/date.h"
#include "data/store.h"
#include "logic/multiday.h"
#include "logic/slots.h"

namespace veyra::modRes {

/// Finds the days on which a series over these slots would clash, as ClashQuery finds them, piece
/// by piece, so that a window goes on answering meanwhile.
class TakenDays {
 public:
  using Time = std::chrono::steady_clock::duration;

  /// `store` must outlive it, and no booking may be changed while it works. Throws DatabaseError.
  TakenDays(Store& store, SlotRange slots);

  /// Reads on for about so long. Returns whether anything is left to be read. Throws DatabaseError.
  bool WorkOn(Time budget);

  /// Whether all bookings have been read.
  bool IsDone() const { return rows_ == nullptr; }

  SlotRange Slots() const { return slots_; }

  /// How many of the planned dates are taken, as far as the bookings have been read.
  std::int64_t CountIn(const PlannedRange& range) const;

 private:
  void Take(const Row& row);

  SlotRange slots_;
  std::size_t day_column_;
  std::size_t from_column_;
  std::size_t to_column_;
  std::unique_ptr<RowSource> rows_;
  std::set<Date> days_;
};

}  // namespace veyra::modRes
