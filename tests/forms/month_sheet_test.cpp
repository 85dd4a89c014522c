#include "forms/month/month_sheet.h"

#include <gtest/gtest.h>

#include "forms/month/month_on_screen.h"

namespace veyra {
namespace {

const ColorSettings kColors = {"16777215", "12582912", "0", "255", "65535"};

/// A month whose second cell is the 1st of March.
modRes::MonthPicture March() {
  modRes::MonthPicture march;
  march.Title = "March 2014";
  march.Cells[2].Visible = true;
  march.Cells[2].Day = MakeDate(2014, 3, 1).value();
  march.Cells[2].Number = "1";
  march.Cells[2].NumberColor = 255;
  march.Cells[2].ListColor = 65535;
  march.Cells[2].IsToday = true;
  march.Cells[2].Lines = {"12:00A- 1:30A Meeting"};
  return march;
}

TEST(MonthSheet, HasTheTitleTheFacilityAndTheWeekdays) {
  const Sheet sheet = MonthSheet(March(), "Pool", kColors);
  EXPECT_EQ("March 2014 Pool", NameOf(sheet));
  ASSERT_EQ(7U, sheet.Headers.size());
  EXPECT_EQ("Sunday", sheet.Headers.front());
  EXPECT_EQ("Saturday", sheet.Headers.back());
}

TEST(MonthSheet, IsEnglishInEveryLanguage) {
  const Sheet sheet = MonthSheet(March(), "Pool", kColors);
  const auto another = [](const std::string&) { return std::string("other words"); };
  EXPECT_TRUE(sheet.IsEnglish);
  EXPECT_EQ("March 2014", sheet.Title.TranslatedBy(another));
  EXPECT_EQ("Saturday, March 1", sheet.Days.at(0).Date.TranslatedBy(another));
}

TEST(MonthSheet, HasTheDaysInTheirPlaces) {
  const Sheet sheet = MonthSheet(March(), "Pool", kColors);
  ASSERT_EQ(1U, sheet.Days.size());
  EXPECT_EQ(1, sheet.Days[0].Place);
  EXPECT_EQ("1", sheet.Days[0].Number);
  EXPECT_EQ("Saturday, March 1", sheet.Days[0].Date);
  EXPECT_EQ(modRes::DayLines{"12:00A- 1:30A Meeting"}, sheet.Days[0].Lines);
}

TEST(MonthSheet, HasTheColorsOfTheScreen) {
  const Sheet sheet = MonthSheet(March(), "Pool", kColors);
  EXPECT_EQ(16777215, sheet.BackColor);
  EXPECT_EQ(12582912, sheet.HeaderColor);
  EXPECT_EQ(255, sheet.Days[0].NumberColor);
  EXPECT_EQ(65535, sheet.Days[0].ListColor);
  EXPECT_TRUE(sheet.Days[0].IsToday);
}

TEST(MonthOnScreen, AListThatOnceHadABackgroundKeepsIt) {
  MonthOnScreen screen;
  screen.ShowMonth(March());
  modRes::MonthPicture next = March();
  next.Cells[2].IsToday = false;
  next.Cells[2].ListColor.reset();
  screen.ShowMonth(next);
  EXPECT_EQ(65535, screen.Picture().Cells[2].ListColor);
  EXPECT_FALSE(screen.Picture().Cells[2].IsToday);
}

TEST(MonthOnScreen, AMonthWithoutATitleKeepsTheOneBefore) {
  MonthOnScreen screen;
  screen.ShowMonth(March());
  screen.ShowMonth({});
  EXPECT_EQ("March 2014", screen.Picture().Title);
}

TEST(MonthOnScreen, LinesShownInOneCellAreInThePicture) {
  MonthOnScreen screen;
  screen.ShowMonth(March());
  screen.ShowLines(2, {"other"});
  EXPECT_EQ(modRes::DayLines{"other"}, screen.Picture().Cells[2].Lines);
}

}  // namespace
}  // namespace veyra
