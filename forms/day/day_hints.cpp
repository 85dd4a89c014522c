#include "forms/day/day_hints.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "data/shown_name.h"

namespace veyra {
namespace {

Phrase TimesAndLength(const modRes::SlotLabelTable& labels, modRes::SlotRange rows) {
  return modRes::TimesLabel(labels, rows) + ", " + modRes::LengthText(rows.Last - rows.First + 1);
}

/// Who has booked any of the rows, each booking once.
std::vector<std::string> NamesIn(const DayGrid& grid, modRes::SlotRange rows) {
  std::vector<std::string> names;
  std::vector<int> numbers;
  for (modRes::TimeSlot row = rows.First; row <= rows.Last; ++row) {
    const int number = grid.Number[row];
    if (number != 0 && std::find(numbers.begin(), numbers.end(), number) == numbers.end()) {
      numbers.push_back(number);
      names.push_back(ShownName(grid.Guest[row]));
    }
  }
  return names;
}

Phrase TakenBy(const std::vector<std::string>& names) {
  switch (names.size()) {
    case 1:
      return Phrase::Tr("taken by %1", names.front());
    case 2:
      return Phrase::Tr("taken by %1 and %2", names.front(), names.back());
    default:
      return Phrase::Tr("taken by %1 and %2 others", names.front(), names.size() - 1);
  }
}

}  // namespace

Phrase RangeHint(const modRes::SlotLabelTable& labels, const DayGrid& grid, modRes::SlotRange rows,
                 bool several_days) {
  const std::vector<std::string> names = NamesIn(grid, rows);
  const Phrase free = several_days ? Phrase::Tr("free on this day") : Phrase::Tr("free");
  return TimesAndLength(labels, rows) + ", " + (names.empty() ? free : TakenBy(names));
}

Phrase BookingHint(const modRes::SlotLabelTable& labels, const DayGrid& grid, int row) {
  const GridBooking& booking = *grid.At(row);
  return ShownName(grid.Guest[row]) + "\n" + TimesAndLength(labels, {booking.First, booking.Last});
}

Phrase SeriesHint(const modRes::GroupDates& dates, Date shown) {
  if (dates.Count < 2 || !dates.Last) {
    return Phrase::Tr("the only date left of a series");
  }
  const Date last = *dates.Last;
  const std::string end = YearOf(last) == YearOf(shown)
                              ? std::to_string(MonthOf(last)) + "/" + std::to_string(DayOf(last))
                              : DateText(last);
  return Phrase::Tr("one of %1 dates until %2", dates.Count, end);
}

}  // namespace veyra
