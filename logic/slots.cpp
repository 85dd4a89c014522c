#include "logic/slots.h"

#include <algorithm>
#include <stdexcept>

namespace veyra::modRes {
namespace {

bool IsSlot(std::int64_t number) {
  return number >= kFirstSlot && number <= kLastSlot;
}

/// The hour on a twelve-hour clock: 12, 1, 2 ... 11 for each half of the day.
int ClockHour(TimeSlot slot) {
  const int hour = (slot - 1) / 2 % 12;
  return hour == 0 ? 12 : hour;
}

const char* ClockMinutes(TimeSlot slot) {
  return slot % 2 == 1 ? "00" : "30";
}

bool IsMorning(TimeSlot slot) {
  return slot <= 24;
}

std::string ShortLabel(TimeSlot slot) {
  const int hour = ClockHour(slot);
  return (hour < 10 ? " " : "") + std::to_string(hour) + ":" + ClockMinutes(slot) +
         (IsMorning(slot) ? "A" : "P");
}

std::string LabelOrUnknown(const SlotLabelTable& labels, TimeSlot slot) {
  return IsSlot(slot) ? LabelOf(labels, slot) : "**:***";
}

}  // namespace

void SlotLabels(SlotLabelTable& labels) {
  for (TimeSlot slot = kFirstSlot; slot <= kLastSlot; ++slot) {
    labels[slot] = ShortLabel(slot);
  }
}

const std::string& LabelOf(const SlotLabelTable& labels, TimeSlot slot) {
  if (!IsSlot(slot)) {
    throw std::out_of_range("There is no time slot " + std::to_string(slot) + ".");
  }
  return labels[slot];
}

TimeSlot EndLabelSlot(TimeSlot last) {
  return last < kLastSlot ? last + 1 : kFirstSlot;
}

std::string LongSlotLabel(TimeSlot slot) {
  if (!IsSlot(slot)) {
    throw std::out_of_range("There is no time slot " + std::to_string(slot) + ".");
  }
  constexpr TimeSlot kNoon = 25;
  if (slot == kNoon) {
    return "12:00 Noon";
  }
  return std::to_string(ClockHour(slot)) + ":" + ClockMinutes(slot) +
         (IsMorning(slot) ? " AM" : " PM");
}

SlotRange RangeOfRows(int row, int other_row) {
  return {std::min(row, other_row), std::max(row, other_row)};
}

TimeSlot SlotOf(const Value& stored) {
  const auto number = ToInteger(stored);
  return number && IsSlot(*number) ? static_cast<TimeSlot>(*number) : 0;
}

SlotRange RowsOf(const Value& time_from, const Value& time_to) {
  constexpr SlotRange kNone{1, 0};
  const auto from = ToInteger(time_from);
  const auto to = ToInteger(time_to);
  if (!from || !to || *from > *to || *from > kLastSlot || *to < kFirstSlot) {
    return kNone;
  }
  return {static_cast<TimeSlot>(std::max<std::int64_t>(*from, kFirstSlot)),
          static_cast<TimeSlot>(std::min<std::int64_t>(*to, kLastSlot))};
}

std::string RangeLabel(const SlotLabelTable& labels, SlotRange range) {
  const TimeSlot end = IsSlot(range.Last) ? EndLabelSlot(range.Last) : 0;
  return LabelOrUnknown(labels, range.First) + "-" + LabelOrUnknown(labels, end);
}

std::string TimesLabel(const SlotLabelTable& labels, SlotRange range) {
  std::string label = RangeLabel(labels, range);
  label.erase(0, label.find_first_not_of(' '));
  return label;
}

Phrase LengthText(int half_hours) {
  const int hours = half_hours / 2;
  if (half_hours % 2 == 0) {
    return Phrase::Tr("%1 h", hours);
  }
  return hours == 0 ? Phrase::Tr("30 min") : Phrase::Tr("%1 h 30 min", hours);
}

}  // namespace veyra::modRes
