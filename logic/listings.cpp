#include "logic/listings.h"

#include <utility>

#include "data/errors.h"
#include "data/shown_name.h"
#include "logic/slots.h"

namespace veyra::modRes {
namespace {

constexpr std::array<const char*, 12> kMonthNames = {
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};

/// Days of each month, less 30.
constexpr std::array<int, 12> kDaysInMonthOffset = {1, -2, 1, 0, 1, 0, 1, 1, 0, 1, 0, 1};

constexpr int kFebruary = 2;

bool IsMonth(int month) {
  return month >= 1 && month <= 12;
}

/// A month outside 1 to 12 has no name and 30 days. This is meant.
int DaysInMonth(int year, int month) {
  if (!IsMonth(month)) {
    return 30;
  }
  if (month == kFebruary && MakeDate(year, month, 29)) {
    return 29;
  }
  return 30 + kDaysInMonthOffset.at(static_cast<std::size_t>(month) - 1);
}

/// Month 13 begins with the January of the next year, month 0 with the December of the last.
Date FirstDayOf(int year, int month) {
  const std::int64_t months = std::int64_t{year} * 12 + month - 1;
  const auto first_day =
      MakeDate(static_cast<int>(months / 12), static_cast<int>(months % 12) + 1, 1);
  if (!first_day) {
    throw ValueError({"", Phrase::Tr("There is no month %1 of the year %2.", month, year),
                      Phrase::Tr("Turn to another month.")});
  }
  return *first_day;
}

/// The day's bookings of the current facility, in the order of their first slots.
std::string SelectDay(const Session& session, Date day) {
  return "SELECT * FROM Reserv Where RmID = " + std::to_string(session.CurRmID) +
         " And DateOfRes = #" + DateText(day) + "# Order By TimeFrom;";
}

std::unique_ptr<Recordset> OpenDay(Session& session, Date day) {
  return session.ResCon->Open(SelectDay(session, day), CursorType::ForwardOnlyReadOnly);
}

/// So many days from the first one on, a query for each.
std::vector<std::unique_ptr<Recordset>> OpenDays(Session& session, Date first_day, int count) {
  std::vector<std::string> queries;
  for (int day = 0; day < count; ++day) {
    queries.push_back(SelectDay(session, AddDays(first_day, day)));
  }
  return session.ResCon->OpenAll(queries);
}

SlotRange RangeOf(Recordset& booking) {
  return {SlotOf(booking.Field("TimeFrom")), SlotOf(booking.Field("TimeTo"))};
}

std::string ListingLine(const Session& session, Recordset& booking) {
  return RangeLabel(session.SlotLabel, RangeOf(booking)) + " " +
         ShownName(ToText(booking.Field("Event")));
}

DayLines LinesOf(const Session& session, Recordset& bookings) {
  DayLines lines;
  for (; !bookings.AtEnd(); bookings.MoveNext()) {
    lines.push_back(ListingLine(session, bookings));
  }
  return lines;
}

DayLines LinesOfDay(Session& session, Date day) {
  return LinesOf(session, *OpenDay(session, day));
}

/// Nothing of a booking that belongs to no group. A calendar to which the column could not be added
/// at the start has none that does: its days are shown all the same.
std::optional<double> GroupOf(Recordset& booking) {
  try {
    const double key = ToDouble(booking.Field("MultKey")).value_or(0);
    return key > 0 ? std::optional(key) : std::nullopt;
  } catch (const MissingItemError&) {
    return std::nullopt;
  }
}

void ColorCell(const ColorSettings& colors, MonthCell& cell) {
  if (!cell.IsToday) {
    cell.NumberColor = ColorNumber(colors.DaysTxtColor, "DaysTxtColor");
    return;
  }
  cell.NumberColor = ColorNumber(colors.TodayColor, "TodayColor");
  cell.ListColor = ColorNumber(colors.TodayBColor, "TodayBColor");
}

MonthCell CellOf(const Session& session, Date day, Date today, Recordset& bookings) {
  MonthCell cell;
  cell.Visible = true;
  cell.Day = day;
  cell.Number = std::to_string(DayOf(day));
  cell.IsToday = day == today;
  ColorCell(session.CurrentColors, cell);
  cell.Lines = LinesOf(session, bookings);
  return cell;
}

}  // namespace

std::string MonthName(int month) {
  return kMonthNames.at(static_cast<std::size_t>(month) - 1);
}

Phrase MonthWord(int month) {
  const std::array<Phrase, 12> words = {
      Phrase::Tr("January"), Phrase::Tr("February"), Phrase::Tr("March"),
      Phrase::Tr("April"),   Phrase::Tr("May"),      Phrase::Tr("June"),
      Phrase::Tr("July"),    Phrase::Tr("August"),   Phrase::Tr("September"),
      Phrase::Tr("October"), Phrase::Tr("November"), Phrase::Tr("December")};
  return words.at(static_cast<std::size_t>(month) - 1);
}

void RefreshMonth(Session& session, const Clock& clock, MonthScreen& screen, int month) {
  MonthPicture picture;
  const int year = session.CurYear;
  const Date first_day = FirstDayOf(year, month);
  if (IsMonth(month)) {
    picture.Title = MonthName(month) + " " + std::to_string(year);
  }
  const int first_cell = WeekdayNumber(first_day);
  const Date today = clock.Today();
  const auto days = OpenDays(session, first_day, DaysInMonth(year, month));
  for (int day = 0; day < static_cast<int>(days.size()); ++day) {
    Recordset& bookings = *days[static_cast<std::size_t>(day)];
    picture.Cells[first_cell + day] = CellOf(session, AddDays(first_day, day), today, bookings);
    bookings.Close();
  }
  screen.ShowMonth(picture);
}

void FillDayCell(Session& session, MonthScreen& screen, int cell_index, Date day) {
  screen.ShowDayCell(cell_index, LinesOfDay(session, day));
}

void FillDayList(Session& session, DayGrid& MSFlexGrid1, Date day) {
  const auto bookings = OpenDay(session, day);
  for (; !bookings->AtEnd(); bookings->MoveNext()) {
    const SlotRange rows = RowsOf(bookings->Field("TimeFrom"), bookings->Field("TimeTo"));
    MSFlexGrid1.Add(rows.First, rows.Last, ToText(bookings->Field("Event")), GroupOf(*bookings));
  }
}

void FillDayList(Session& session, DayListScreen& lstDay, Date day) {
  lstDay.ShowDayList(LinesOfDay(session, day));
}

void RefreshListings(Session& session, const Listings& listings) {
  RefreshMonth(session, listings.Time, listings.Month, session.CurMonth);
  if (session.DayOpener == Opener::DayViewer) {
    FillDayList(session, listings.Viewer, session.DayDate);
  }
}

}  // namespace veyra::modRes
