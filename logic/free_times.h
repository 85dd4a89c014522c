#pragma once

#include <bitset>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "data/date.h"
#include "data/one_based.h"
#include "data/store.h"
#include "logic/calendar_rows.h"
#include "logic/slots.h"

namespace veyra::modRes {

/// What is looked for: a length of time that no booking takes.
struct FreeTimeWish {
  Date From{};
  Date To{};                                  ///< Included.
  OneBased<bool, 7> Weekdays = {};            ///< 1 for Sunday to 7.
  SlotRange Hours = {kFirstSlot, kLastSlot};  ///< Of each day: nothing outside them counts.
  int HalfHours = 1;                          ///< The least length.
  std::vector<Facility> Facilities = {};
};

/// A time of one facility that no booking takes, as long as it goes on within the hours asked for.
struct FreeTime {
  std::size_t Place = 0;  ///< Of its facility among those of the wish.
  Date Day{};
  SlotRange Slots = {};
};

/// The half hours of a day that are taken.
class TakenSlots {
 public:
  /// REQUIRES: the range is empty or lies within the day.
  void Take(SlotRange rows);

  /// The stretches of `within` that are not taken and last at least so long, the first one first.
  std::vector<SlotRange> FreeWithin(SlotRange within, int half_hours) const;

 private:
  std::bitset<kLastSlot + 1> taken_;
};

/// Looks for free times piece by piece, so that a window goes on answering meanwhile.
class FreeTimeFinder {
 public:
  using Time = std::chrono::steady_clock::duration;

  /// Finds at most `most`, of nothing at first. `store` must outlive it, and not be changed while
  /// it works.
  FreeTimeFinder(Store& store, std::size_t most) : store_(store), most_(most) {}

  /// Looks for this from now on. What was found before is gone.
  void LookFor(FreeTimeWish wish);

  /// Looks for nothing from now on, and forgets what was found.
  void Stop();

  /// Reads and looks on for about so long. Returns whether anything is left to be done. Throws
  /// DatabaseError.
  bool WorkOn(Time budget);

  const FreeTimeWish& Wish() const { return wish_; }

  /// Day by day, those of a day by the time at which they begin.
  const std::vector<FreeTime>& Found() const { return found_; }

  bool IsDone() const { return !is_looking_ || next_ > wish_.To || IsFull(); }

  /// Whether as many were found as it may find: there may be more.
  bool IsFull() const { return found_.size() >= most_; }

 private:
  void BeginStretch();
  void ReadOn(std::chrono::steady_clock::time_point end);
  void Take(const Booking& booking);
  void LookAtDay();

  Store& store_;
  std::size_t most_;
  bool is_looking_ = false;
  FreeTimeWish wish_;
  std::map<std::int64_t, std::size_t> places_;  ///< By ID, of the wish's facilities.
  std::vector<FreeTime> found_;
  Date next_{};                    ///< The day that is looked at next.
  Date begin_{};                   ///< The days that are being read, or have been:
  Date end_{};                     ///< not included.
  std::int64_t length_ = 0;        ///< How many there are of them, at most.
  std::vector<TakenSlots> taken_;  ///< By day and facility.
  std::unique_ptr<BookingReader> reader_;
};

/// "Saturday, 3/15/2014,  9:00A-10:30A, Main Hall"
Phrase FreeTimeLine(const SlotLabelTable& labels, const FreeTimeWish& wish, const FreeTime& free);

}  // namespace veyra::modRes
