#include "forms/month/month_cells.h"

namespace veyra {

namespace {

/// The first row begins with a Sunday.
int FirstCellOf(int year, int month) {
  return WeekdayNumber(MakeDate(year, month, 1).value());
}

}  // namespace

int CellOf(Date day) {
  return FirstCellOf(YearOf(day), MonthOf(day)) + DayOf(day) - 1;
}

Date DateOfCell(int year, int month, int index) {
  return AddDays(MakeDate(year, month, 1).value(), index - FirstCellOf(year, month));
}

}  // namespace veyra
