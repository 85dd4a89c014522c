#include "forms/print/day_sheets.h"

#include <utility>

#include "data/color_settings.h"
#include "logic/facilities.h"
#include "logic/listings.h"
#include "logic/multiday.h"

namespace veyra {
namespace {

constexpr int kDaysOfWeek = 7;

/// Keeps the lines of a day.
class KeptLines : public modRes::DayListScreen {
 public:
  modRes::DayLines Lines;

  void ShowDayList(const modRes::DayLines& lines) override { Lines = lines; }
};

Phrase Weekday(Date date) {
  return modRes::WeekdayWord(WeekdayNumber(date));
}

Phrase Month(Date date) {
  return modRes::MonthWord(MonthOf(date));
}

Phrase WithYear(Date date) {
  return Phrase::Tr("%1 %2, %3", Month(date), DayOf(date), YearOf(date));
}

SheetDay ReadDay(Session& session, Date day, Date today) {
  const ColorSettings& colors = session.CurrentColors;
  SheetDay read;
  read.Date = DateWords(day);
  read.IsToday = day == today;
  read.NumberColor = read.IsToday ? ColorNumber(colors.TodayColor, "TodayColor")
                                  : ColorNumber(colors.DaysTxtColor, "DaysTxtColor");
  if (read.IsToday) {
    read.ListColor = ColorNumber(colors.TodayBColor, "TodayBColor");
  }
  KeptLines list;
  modRes::FillDayList(session, list, day);
  read.Lines = list.Lines;
  return read;
}

Sheet EmptySheet(Session& session) {
  Sheet sheet;
  sheet.Room = modRes::CurrentFacility(session).value_or("");
  sheet.BackColor = ColorNumber(session.CurrentColors.BkGrnd, "BkGrnd");
  sheet.HeaderColor = ColorNumber(session.CurrentColors.HeaderTxt, "HeaderTxt");
  sheet.Again = Phrase::Tr("Print again");
  return sheet;
}

/// "March 2 to 8, 2014", with as much of the first date as the last one does not say.
Phrase WeekTitle(Date first, Date last) {
  if (YearOf(first) != YearOf(last)) {
    return Phrase::Tr("%1 to %2", WithYear(first), WithYear(last));
  }
  if (MonthOf(first) != MonthOf(last)) {
    return Phrase::Tr("%1 %2 to %3", Month(first), DayOf(first), WithYear(last));
  }
  return Phrase::Tr("%1 %2 to %3, %4", Month(first), DayOf(first), DayOf(last), YearOf(last));
}

}  // namespace

Phrase DateWords(Date date) {
  return Phrase::Tr("%1, %2 %3", Weekday(date), Month(date), DayOf(date));
}

Sheet DaySheet(Session& session, Date day, Date today) {
  Sheet sheet = EmptySheet(session);
  sheet.Title = Phrase::Tr("%1, %2", Weekday(day), WithYear(day));
  sheet.Columns = 1;
  sheet.UprightColumns = 1;
  sheet.IsUpright = true;
  sheet.LargestLine = 20;
  sheet.Days.push_back(ReadDay(session, day, today));
  return sheet;
}

Sheet WeekSheet(Session& session, Date day, Date today) {
  const Date first = AddDays(day, 1 - WeekdayNumber(day));
  Sheet sheet = EmptySheet(session);
  sheet.Title = WeekTitle(first, AddDays(first, kDaysOfWeek - 1));
  sheet.UprightColumns = 1;
  sheet.LargestLine = 12;
  for (int place = 0; place < kDaysOfWeek; ++place) {
    const Date date = AddDays(first, place);
    if (YearOf(date) < kFirstYear || YearOf(date) > kLastYear) {
      continue;
    }
    SheetDay read = ReadDay(session, date, today);
    read.Place = place;
    read.Number = Phrase::Tr("%1 %2", Weekday(date), DayOf(date));
    sheet.Days.push_back(std::move(read));
  }
  return sheet;
}

}  // namespace veyra
