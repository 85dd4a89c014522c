#include "forms/print/door_sheets.h"

#include <gtest/gtest.h>

#include "forms/print/day_sheets.h"
#include "tests/calendar_folder.h"
#include "tests/fake_clock.h"
#include "tests/fake_dialogs.h"
#include "tests/forms/fake_sheet_printer.h"

namespace veyra {
namespace {

using Lines = modRes::DayLines;

/// The Pool on Wednesday, 5 March 2014.
class DoorSheetsTest : public testing::Test {
 protected:
  DoorSheetsTest() {
    pool_ = folder_.AddRoom("Pool", true);
    hall_ = folder_.AddRoom("Hall");
    folder_.AddBooking(pool_, "2014-03-05", 30, 31, "late");
    folder_.AddBooking(pool_, "2014-03-05", 19, 21, "early");
    folder_.AddBooking(hall_, "2014-03-05", 1, 1, "elsewhere");
    folder_.AddBooking(pool_, "2014-03-02", 1, 1, "on Sunday");
    folder_.AddBooking(pool_, "2014-03-08", 48, 48, "on Saturday");
    folder_.AddBooking(pool_, "2014-03-09", 1, 1, "next week");
    session_ = folder_.OpenSession();
    session_->CurRmID = pool_;
    session_->CurrentColors = {"1", "2", "3", "4", "5"};
  }

  Sheet Day(int year, int month, int day) {
    return DaySheet(*session_, MakeDate(year, month, day).value(), clock_.Today());
  }
  Sheet Week(int year, int month, int day) {
    return WeekSheet(*session_, MakeDate(year, month, day).value(), clock_.Today());
  }

  DoorSheets Sheets() { return {*session_, printer_, dialogs_, clock_}; }

  void PrintDay() { Sheets().PrintDay(clock_.Today()); }

  CalendarFolder folder_;
  std::int64_t pool_ = 0;
  std::int64_t hall_ = 0;
  std::unique_ptr<Session> session_;
  FakeClock clock_{2014, 3, 5};
  FakeDialogs dialogs_;
  FakeSheetPrinter printer_;
};

TEST_F(DoorSheetsTest, ADayHasItsDateTheFacilityAndItsLinesInTheirOrder) {
  const Sheet sheet = Day(2014, 3, 5);
  EXPECT_EQ("Wednesday, March 5, 2014 Pool", NameOf(sheet));
  ASSERT_EQ(1U, sheet.Days.size());
  EXPECT_EQ((Lines{" 9:00A-10:30A early", " 2:30P- 3:30P late"}), sheet.Days[0].Lines);
  EXPECT_TRUE(sheet.IsUpright);
}

TEST_F(DoorSheetsTest, ADayHasTheColorsOfTheViewer) {
  const Sheet sheet = Day(2014, 3, 5);
  EXPECT_EQ(1, sheet.BackColor);
  EXPECT_EQ(2, sheet.HeaderColor);
  EXPECT_TRUE(sheet.Days[0].IsToday);
  EXPECT_EQ(4, sheet.Days[0].NumberColor);
  EXPECT_EQ(5, sheet.Days[0].ListColor);
  EXPECT_EQ(std::nullopt, Day(2014, 3, 6).Days[0].ListColor);
  EXPECT_FALSE(Day(2014, 3, 6).Days[0].IsToday);
}

TEST_F(DoorSheetsTest, AWeekRunsFromSundayToSaturday) {
  const Sheet sheet = Week(2014, 3, 5);
  EXPECT_EQ("March 2 to 8, 2014", sheet.Title);
  ASSERT_EQ(7U, sheet.Days.size());
  EXPECT_EQ("Sunday 2", sheet.Days[0].Number);
  EXPECT_EQ(Lines{"12:00A-12:30A on Sunday"}, sheet.Days[0].Lines);
  EXPECT_EQ(2U, sheet.Days[3].Lines.size());
  EXPECT_TRUE(sheet.Days[3].IsToday);
  EXPECT_EQ("Saturday 8", sheet.Days[6].Number);
  EXPECT_EQ(6, sheet.Days[6].Place);
  EXPECT_EQ(Lines{"11:30P-12:00A on Saturday"}, sheet.Days[6].Lines);
}

TEST_F(DoorSheetsTest, ASundayAndASaturdayAreOfTheSameWeek) {
  EXPECT_EQ("March 2 to 8, 2014", Week(2014, 3, 2).Title);
  EXPECT_EQ("March 2 to 8, 2014", Week(2014, 3, 8).Title);
}

TEST_F(DoorSheetsTest, AWeekOfTwoMonthsOrYearsNamesBoth) {
  EXPECT_EQ("March 30 to April 5, 2014", Week(2014, 4, 1).Title);
  EXPECT_EQ("December 28, 2014 to January 3, 2015", Week(2015, 1, 1).Title);
}

TEST_F(DoorSheetsTest, TheLastWeekOfAllEndsWithTheLastDay) {
  const Sheet sheet = Week(kLastYear, 12, 31);
  ASSERT_FALSE(sheet.Days.empty());
  EXPECT_EQ("Friday 31", sheet.Days.back().Number);
}

TEST_F(DoorSheetsTest, ADayIsPrintedOnTheChosenPrinterAndSaidToBe) {
  printer_.Chosen = "BACK office";
  PrintDay();
  EXPECT_EQ(std::vector<std::string>{"Back Office"}, printer_.PagesPrinted);
  EXPECT_EQ("Wednesday, March 5, 2014", printer_.Sheets.at(0).Title);
  EXPECT_EQ("[OK Information] Print Complete.", dialogs_.OnlyBox());
}

TEST_F(DoorSheetsTest, AWeekIsPrinted) {
  Sheets().PrintWeek(clock_.Today());
  EXPECT_EQ("March 2 to 8, 2014", printer_.Sheets.at(0).Title);
}

TEST_F(DoorSheetsTest, CancellingPrintsNothingAndSaysSo) {
  printer_.DialogFailure = [] { throw PrinterDialogError(PrinterDialogError::kCancelled); };
  PrintDay();
  EXPECT_TRUE(printer_.Sheets.empty());
  EXPECT_EQ("[OK Exclamation] Calendar Printing Canceled", dialogs_.OnlyBox());
}

TEST_F(DoorSheetsTest, APrinterThatHasVanishedIsReportedWithoutTheMonthsButtons) {
  printer_.Chosen = "Attic";
  try {
    PrintDay();
  } catch (const PrinterError& failure) {
    EXPECT_EQ("Print again on another printer, or into a PDF file.", failure.report().Advice);
    return;
  }
  FAIL() << "the printer was there";
}

TEST_F(DoorSheetsTest, WithoutAFacilityNothingIsPrinted) {
  session_->CurRmID = 0;
  PrintDay();
  Sheets().PrintWeek(clock_.Today());
  EXPECT_TRUE(printer_.Sheets.empty());
  EXPECT_EQ((std::vector<std::string>{"[OK Critical] There is no Facility Selected",
                                      "[OK Critical] There is no Facility Selected"}),
            dialogs_.Boxes());
}

}  // namespace
}  // namespace veyra
