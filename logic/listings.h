#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "data/date.h"
#include "data/one_based.h"
#include "data/phrase.h"
#include "logic/clock.h"
#include "logic/day_grid.h"
#include "logic/session.h"

namespace veyra::modRes {

/// The English name of a month, 1 to 12. Throws std::out_of_range for any other.
std::string MonthName(int month);

/// The same in the operator's language.
Phrase MonthWord(int month);

/// One day's bookings, a line each: "12:00A- 1:30A Meeting".
using DayLines = std::vector<std::string>;

/// One of the 42 cells of the month grid.
struct MonthCell {
  bool Visible = false;  ///< Whether the cell belongs to the month; if not, ignore the rest.
  Date Day{};            ///< The cell's date.
  std::string Number;    ///< lblDate: the day of the month, without padding.
  std::int32_t NumberColor = 0;           ///< lblDate: colour of its text.
  std::optional<std::int32_t> ListColor;  ///< lstDay: its background; nothing leaves it as it is.
  bool IsToday = false;
  DayLines Lines;  ///< lstDay: what it lists.
};

/// What the month grid is to show.
struct MonthPicture {
  std::optional<std::string> Title;  ///< lblMonth: "March 2014"; nothing leaves it as it is.
  OneBased<MonthCell, 42> Cells;     ///< By cell number 1 to 42, Sundays at 1, 8, ... 36.
};

/// The month grid, as the routines here reach it.
class MonthScreen {
 public:
  virtual ~MonthScreen() = default;

  /// Shows the whole month at once.
  virtual void ShowMonth(const MonthPicture& picture) = 0;

  /// Shows these lines in lstDay(cell_index), 1 to 42.
  virtual void ShowDayCell(int cell_index, const DayLines& lines) = 0;
};

/// The day viewer's list.
class DayListScreen {
 public:
  virtual ~DayListScreen() = default;

  /// Shows these lines in place of what the list holds.
  virtual void ShowDayList(const DayLines& lines) = 0;
};

/// Reads the bookings of CurRmID in `month` of CurYear and shows the month. The whole picture is
/// worked out before any of it is shown: a failure leaves the old one standing.
/// A month outside 1 to 12 is counted on from the year's own: 30 days from the first of that month,
/// under the title that stands there.
/// Throws DatabaseError, and ValueError when a colour of CurrentColors is not a number or the month
/// lies outside the calendar.
void RefreshMonth(Session& session, const Clock& clock, MonthScreen& screen, int month);

/// Reads the bookings of CurRmID on `day` and shows them in one cell. Throws DatabaseError.
void FillDayCell(Session& session, MonthScreen& screen, int cell_index, Date day);

/// Mode 1: writes the name of each booking of CurRmID on `day` into the rows of the grid that it
/// covers. Rows without a booking are left as they are. Throws DatabaseError.
void FillDayList(Session& session, DayGrid& MSFlexGrid1, Date day);

/// Mode 2: shows a line for each booking of CurRmID on `day`. Throws DatabaseError.
void FillDayList(Session& session, DayListScreen& lstDay, Date day);

/// The listings that a change of bookings must reach, and the clock by which today is marked.
struct Listings {
  MonthScreen& Month;
  DayListScreen& Viewer;  ///< The day viewer's list; told only while DayOpener is 2.
  const Clock& Time;
};

/// Draws the month again and, while the day viewer is loaded, its list. Throws DatabaseError.
void RefreshListings(Session& session, const Listings& listings);

}  // namespace veyra::modRes
