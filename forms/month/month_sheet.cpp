#include "forms/month/month_sheet.h"

#include "forms/print/day_sheets.h"

namespace veyra {
namespace {

SheetDay SheetDayOf(const modRes::MonthCell& cell, int index) {
  return {.Place = index - 1,
          .Number = cell.Number,
          .Date = DateWords(cell.Day).English(),
          .NumberColor = cell.NumberColor,
          .ListColor = cell.ListColor,
          .IsToday = cell.IsToday,
          .Lines = cell.Lines};
}

}  // namespace

Sheet MonthSheet(const modRes::MonthPicture& shown, const std::string& room,
                 const ColorSettings& colors) {
  Sheet sheet;
  sheet.Title = shown.Title.value_or("");
  sheet.Room = room;
  sheet.IsEnglish = true;
  sheet.Headers = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
  sheet.BackColor = ColorNumber(colors.BkGrnd, "BkGrnd");
  sheet.HeaderColor = ColorNumber(colors.HeaderTxt, "HeaderTxt");
  sheet.Again = Phrase::Tr("Click on the month to get the buttons back, then print again");
  for (int index = 1; index <= 42; ++index) {
    if (shown.Cells[index].Visible) {
      sheet.Days.push_back(SheetDayOf(shown.Cells[index], index));
    }
  }
  return sheet;
}

}  // namespace veyra
