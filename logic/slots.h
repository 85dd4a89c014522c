#pragma once

#include <cstdint>
#include <string>

#include "data/one_based.h"
#include "data/phrase.h"
#include "data/value.h"

namespace veyra::modRes {

/// A half hour of the day, 1 to 48. Slot s begins (s - 1) * 30 minutes after midnight: slot 1 is
/// 12:00 AM to 12:30 AM, slot 25 begins at noon, slot 48 ends at midnight. It is row s of the day
/// grid.
using TimeSlot = int;

inline constexpr TimeSlot kFirstSlot = 1;
inline constexpr TimeSlot kLastSlot = 48;

/// The short labels by slot, each six characters such as " 9:30A".
using SlotLabelTable = OneBased<std::string, kLastSlot>;

/// A booked range: from the beginning of First to the end of Last, both included. 9:00 AM to
/// 10:30 AM is 19 to 21; its end label is that of slot 22.
struct SlotRange {
  TimeSlot First = 0;
  TimeSlot Last = 0;
};

/// Fills the table of short labels.
void SlotLabels(SlotLabelTable& labels);

/// The label of a slot. Throws std::out_of_range when there is no such slot.
const std::string& LabelOf(const SlotLabelTable& labels, TimeSlot slot);

/// The slot whose label is the end time of a range that ends with `last`: the one after it, and
/// slot 1 after slot 48.
TimeSlot EndLabelSlot(TimeSlot last);

/// The label of the time column of the day grid, such as "9:30 AM"; slot 25 is "12:00 Noon".
/// Throws std::out_of_range when there is no such slot.
std::string LongSlotLabel(TimeSlot slot);

/// The range that two rows of the day grid enclose, whichever comes first.
SlotRange RangeOfRows(int row, int other_row);

/// The slot that a stored value names, or 0 when it names none of 1 to 48.
TimeSlot SlotOf(const Value& stored);

/// The rows of the day grid that a stored booking covers: those of 1 to 48 between its bounds, both
/// included. Empty, as {1, 0}, when a bound is not a number or the first lies after the last.
SlotRange RowsOf(const Value& time_from, const Value& time_to);

/// "12:00A- 1:30A": the short labels of a range's beginning and end. A bound that is not a slot, as
/// a damaged row may hold, shows as "**:***".
std::string RangeLabel(const SlotLabelTable& labels, SlotRange range);

/// The same without the blank in front of an early hour: "9:00A-10:30A".
std::string TimesLabel(const SlotLabelTable& labels, SlotRange range);

/// "30 min", "2 h" or "1 h 30 min". REQUIRES: at least one half hour.
Phrase LengthText(int half_hours);

}  // namespace veyra::modRes
