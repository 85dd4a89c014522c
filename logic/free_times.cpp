#include "logic/free_times.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "data/shown_name.h"
#include "logic/multiday.h"

namespace veyra::modRes {
namespace {

using Clock = std::chrono::steady_clock;

/// The days are read a week at first, as the first ones are wanted soon, then more and more at
/// once.
constexpr std::int64_t kFirstLength = 7;
constexpr std::int64_t kMostLength = 512;

/// So many rows are read between two looks at the clock.
constexpr int kRowsBetween = 64;

std::vector<std::int64_t> IdsOf(const std::vector<Facility>& facilities) {
  std::vector<std::int64_t> ids;
  for (const Facility& facility : facilities) {
    ids.push_back(facility.ID);
  }
  return ids;
}

}  // namespace

void TakenSlots::Take(SlotRange rows) {
  for (TimeSlot slot = rows.First; slot <= rows.Last; ++slot) {
    taken_.set(static_cast<std::size_t>(slot));
  }
}

std::vector<SlotRange> TakenSlots::FreeWithin(SlotRange within, int half_hours) const {
  std::vector<SlotRange> free;
  TimeSlot first = within.First;
  for (TimeSlot slot = within.First; slot <= within.Last + 1; ++slot) {
    if (slot <= within.Last && !taken_.test(static_cast<std::size_t>(slot))) {
      continue;
    }
    if (slot - first >= half_hours) {
      free.push_back({first, slot - 1});
    }
    first = slot + 1;
  }
  return free;
}

void FreeTimeFinder::Stop() {
  reader_.reset();
  found_.clear();
  is_looking_ = false;
}

void FreeTimeFinder::LookFor(FreeTimeWish wish) {
  Stop();
  is_looking_ = true;
  wish_ = std::move(wish);
  places_.clear();
  for (std::size_t place = 0; place < wish_.Facilities.size(); ++place) {
    places_.emplace(wish_.Facilities[place].ID, place);
  }
  next_ = wish_.From;
  end_ = wish_.From;
  length_ = kFirstLength;
}

bool FreeTimeFinder::WorkOn(Time budget) {
  const auto end = Clock::now() + budget;
  while (!IsDone()) {
    if (reader_) {
      ReadOn(end);
    } else if (next_ == end_) {
      BeginStretch();
    } else {
      LookAtDay();
    }
    if (Clock::now() >= end) {
      return !IsDone();
    }
  }
  return false;
}

void FreeTimeFinder::BeginStretch() {
  begin_ = end_;
  const std::int64_t days = std::min(length_, DaysBetween(begin_, wish_.To) + 1);
  end_ = AddDays(begin_, days);
  length_ = std::min(2 * length_, kMostLength);
  taken_.assign(static_cast<std::size_t>(days) * wish_.Facilities.size(), {});
  reader_ = std::make_unique<BookingReader>(
      store_, BookingsQuery({begin_, AddDays(end_, -1)}, IdsOf(wish_.Facilities)));
}

void FreeTimeFinder::ReadOn(Clock::time_point end) {
  Booking booking;
  for (int read = 1;; ++read) {
    if (!reader_->Next(booking)) {
      reader_.reset();
      return;
    }
    Take(booking);
    if (read % kRowsBetween == 0 && Clock::now() >= end) {
      return;
    }
  }
}

void FreeTimeFinder::Take(const Booking& booking) {
  const auto place = places_.find(booking.RmID);
  if (place == places_.end() || !booking.Day || *booking.Day < begin_ || *booking.Day >= end_) {
    return;
  }
  const auto day = static_cast<std::size_t>(DaysBetween(begin_, *booking.Day));
  taken_.at(day * wish_.Facilities.size() + place->second).Take(booking.Rows);
}

void FreeTimeFinder::LookAtDay() {
  const Date day = std::exchange(next_, AddDays(next_, 1));
  if (!wish_.Weekdays[WeekdayNumber(day)]) {
    return;
  }
  const auto row = static_cast<std::size_t>(DaysBetween(begin_, day)) * wish_.Facilities.size();
  std::vector<FreeTime> of_day;
  for (std::size_t place = 0; place < wish_.Facilities.size(); ++place) {
    for (const SlotRange slots : taken_.at(row + place).FreeWithin(wish_.Hours, wish_.HalfHours)) {
      of_day.push_back({place, day, slots});
    }
  }
  std::stable_sort(of_day.begin(), of_day.end(), [](const FreeTime& one, const FreeTime& other) {
    return one.Slots.First < other.Slots.First;
  });
  of_day.resize(std::min(of_day.size(), most_ - found_.size()));
  found_.insert(found_.end(), of_day.begin(), of_day.end());
}

Phrase FreeTimeLine(const SlotLabelTable& labels, const FreeTimeWish& wish, const FreeTime& free) {
  return WeekdayWord(WeekdayNumber(free.Day)) +
         (", " + DateText(free.Day) + ", " + RangeLabel(labels, free.Slots) + ", " +
          ShownName(wish.Facilities.at(free.Place).Name));
}

}  // namespace veyra::modRes
