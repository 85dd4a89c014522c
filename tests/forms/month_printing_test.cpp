#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include "forms/handler_guard.h"
#include "forms/month/frmCalendar.h"
#include "forms/print/sheet_printer.h"
#include "tests/calendar_folder.h"
#include "tests/fake_clock.h"
#include "tests/fake_dialogs.h"
#include "tests/forms/fake_month_view.h"
#include "tests/forms/fake_sheet_printer.h"
#include "tests/forms/fake_windows.h"

namespace veyra {
namespace {

/// A month view whose controls refuse to go.
class StubbornMonthView : public FakeMonthView {
 public:
  bool Stubborn = false;

  void ShowControls(bool visible) override {
    if (Stubborn && !visible) {
      throw std::runtime_error("the controls stay");
    }
    FakeMonthView::ShowControls(visible);
  }
};

class MonthPrintingTest : public testing::Test {
 protected:
  MonthPrintingTest() {
    folder_.AddRoom("Pool", true);
    session_ = folder_.OpenSession();
    session_->CurrentColors = {"16777215", "0", "0", "255", "16777215"};
    calendar_.emplace(*session_, view_, windows_, dialogs_, clock_, printer_);
    calendar_->LoadFacilityBox();
    calendar_->SelectActiveFacility();
    calendar_->ShowCurrentMonth();
    session_->IsLoading = false;
  }

  void Print() { calendar_->Command3_Click(); }

  /// The operator's click on the button, as the window reports it.
  void PrintGuarded() {
    HandlerGuard(dialogs_).Run([this] { Print(); });
  }

  void PrintAndForget() {
    Print();
    windows_.Log.clear();
  }

  void Cancel() {
    printer_.DialogFailure = [] { throw PrinterDialogError(PrinterDialogError::kCancelled); };
  }

  /// A left click on the cell of 5 March 2014.
  void ClickDay() { calendar_->lstDay_MouseDown(11, MouseButton::Left); }

  CalendarFolder folder_;
  std::unique_ptr<Session> session_;
  StubbornMonthView view_;
  FakeWindows windows_;
  FakeDialogs dialogs_;
  FakeClock clock_{2014, 3, 5};
  FakeSheetPrinter printer_;
  std::optional<frmCalendar> calendar_;
};

TEST_F(MonthPrintingTest, PrintsOnePageOnTheChosenPrinter) {
  printer_.Chosen = "Back Office";
  Print();
  EXPECT_EQ(std::vector<std::string>{"Back Office"}, printer_.PagesPrinted);
}

TEST_F(MonthPrintingTest, PrintsTheMonthThatIsShown) {
  view_.ShowDayCell(11, {"12:00A- 1:30A Meeting"});
  Print();
  ASSERT_EQ(1U, printer_.Sheets.size());
  const Sheet& sheet = printer_.Sheets.front();
  EXPECT_EQ("March 2014 Pool", NameOf(sheet));
  ASSERT_EQ(31U, sheet.Days.size());
  EXPECT_EQ(modRes::DayLines{"12:00A- 1:30A Meeting"}, sheet.Days[4].Lines);
}

TEST_F(MonthPrintingTest, SaysHowToGetTheControlsBack) {
  Print();
  EXPECT_EQ("[OK Information] Print Complete, Click on Form to get Controls back.",
            dialogs_.OnlyBox());
}

TEST_F(MonthPrintingTest, TheBoxHasTheProgramsTitle) {
  Print();
  EXPECT_EQ("Veyra Calendar", dialogs_.LastMessage().Title);
}

TEST_F(MonthPrintingTest, TheControlsAreAwayWhileThePageIsPrinted) {
  bool visible = true;
  printer_.WhilePrinting = [&] { visible = view_.ControlsVisible; };
  Print();
  EXPECT_FALSE(visible);
}

TEST_F(MonthPrintingTest, TheControlsAreStillThereWhileThePrinterIsChosen) {
  bool visible = false;
  printer_.DialogFailure = [&] { visible = view_.ControlsVisible; };
  Print();
  EXPECT_TRUE(visible);
}

TEST_F(MonthPrintingTest, TheControlsStayAwayAfterwards) {
  Print();
  EXPECT_FALSE(view_.ControlsVisible);
}

TEST_F(MonthPrintingTest, LeavesTheWindowInItsPrintedLayout) {
  Print();
  EXPECT_TRUE(session_->PrintLayoutOn);
}

TEST_F(MonthPrintingTest, TheCompletionIsToldAfterThePageOnly) {
  std::size_t pages = 0;
  dialogs_.WhileShown = [&] { pages = printer_.PagesPrinted.size(); };
  Print();
  EXPECT_EQ(1U, pages);
}

TEST_F(MonthPrintingTest, CancellingIsSaid) {
  Cancel();
  Print();
  EXPECT_EQ("[OK Exclamation] Calendar Printing Canceled", dialogs_.OnlyBox());
}

TEST_F(MonthPrintingTest, CancellingKeepsTheControls) {
  Cancel();
  Print();
  EXPECT_TRUE(view_.ControlsVisible);
}

TEST_F(MonthPrintingTest, CancellingLeavesTheUsualLayout) {
  Cancel();
  Print();
  EXPECT_FALSE(session_->PrintLayoutOn);
}

TEST_F(MonthPrintingTest, CancellingPrintsNothing) {
  Cancel();
  Print();
  EXPECT_TRUE(printer_.PagesPrinted.empty());
}

TEST_F(MonthPrintingTest, CancellingKeepsThePrinterInUse) {
  Print();
  Cancel();
  printer_.Chosen = "Back Office";
  Print();
  EXPECT_EQ("Front Desk", printer_.Current);
}

TEST_F(MonthPrintingTest, AnotherFailureOfTheDialogIsToldByItsNumber) {
  printer_.DialogFailure = [] { throw PrinterDialogError(28664); };
  Print();
  EXPECT_EQ("[OK Exclamation] A nonCancel Error Occured - 28664", dialogs_.OnlyBox());
}

TEST_F(MonthPrintingTest, AnotherFailureOfTheDialogPrintsNothing) {
  printer_.DialogFailure = [] { throw PrinterDialogError(28664); };
  Print();
  EXPECT_TRUE(printer_.PagesPrinted.empty());
}

TEST_F(MonthPrintingTest, LackOfMemoryInTheDialogHasItsNumber) {
  printer_.DialogFailure = [] { throw std::bad_alloc(); };
  Print();
  EXPECT_EQ("[OK Exclamation] A nonCancel Error Occured - 7", dialogs_.OnlyBox());
}

TEST_F(MonthPrintingTest, AFailureToHideTheControlsIsToldByNumber) {
  view_.Stubborn = true;
  Print();
  EXPECT_EQ("[OK Exclamation] A nonCancel Error Occured - 51", dialogs_.OnlyBox());
}

TEST_F(MonthPrintingTest, AFailureToHideTheControlsPrintsNothing) {
  view_.Stubborn = true;
  Print();
  EXPECT_TRUE(printer_.PagesPrinted.empty());
}

TEST_F(MonthPrintingTest, AFailureToHideTheControlsComesAfterTheChangeOfLayout) {
  view_.Stubborn = true;
  Print();
  EXPECT_TRUE(session_->PrintLayoutOn);
}

TEST_F(MonthPrintingTest, FindsThePrinterInOtherLetterCase) {
  printer_.Chosen = "FRONT desk";
  Print();
  EXPECT_EQ("Front Desk", printer_.Current);
}

TEST_F(MonthPrintingTest, APrinterThatHasVanishedIsReported) {
  printer_.Chosen = "Attic";
  EXPECT_THROW(Print(), PrinterError);
}

TEST_F(MonthPrintingTest, WithoutAnyPrinterTheReportIsShown) {
  printer_.Names.clear();
  PrintGuarded();
  EXPECT_EQ(
      "[OK Critical] The printer \"Front Desk\" is no longer there.\r\n"
      "Click on the month to get the buttons back, then print again on another printer, or into a "
      "PDF file.",
      dialogs_.OnlyBox());
}

TEST_F(MonthPrintingTest, AFailureOfThePrintingIsNotToldByNumber) {
  printer_.WhilePrinting = [] { throw PrinterError({"", "The disk is full.", ""}); };
  PrintGuarded();
  EXPECT_EQ("[OK Critical] The disk is full.", dialogs_.OnlyBox());
}

TEST_F(MonthPrintingTest, AfterAFailureOfThePrintingTheControlsStayAway) {
  printer_.WhilePrinting = [] { throw PrinterError({"", "The disk is full.", ""}); };
  PrintGuarded();
  EXPECT_FALSE(view_.ControlsVisible);
}

TEST_F(MonthPrintingTest, AfterAFailureOfThePrintingAClickBringsTheControlsBack) {
  printer_.WhilePrinting = [] { throw PrinterError({"", "The disk is full.", ""}); };
  PrintGuarded();
  calendar_->Form_Click();
  EXPECT_TRUE(view_.ControlsVisible);
}

TEST_F(MonthPrintingTest, AClickOnTheBackgroundBringsTheControlsBack) {
  Print();
  calendar_->Form_Click();
  EXPECT_TRUE(view_.ControlsVisible);
}

TEST_F(MonthPrintingTest, AClickOnAWeekdayBringsTheControlsBack) {
  Print();
  calendar_->Label2_Click();
  EXPECT_TRUE(view_.ControlsVisible);
}

TEST_F(MonthPrintingTest, AClickOnTheMonthsTitleBringsTheControlsBack) {
  Print();
  calendar_->lblMonth_Click();
  EXPECT_TRUE(view_.ControlsVisible);
}

TEST_F(MonthPrintingTest, AClickOnTheFacilitysNameBringsTheControlsBack) {
  Print();
  calendar_->lblRoom_Click();
  EXPECT_TRUE(view_.ControlsVisible);
}

TEST_F(MonthPrintingTest, BringingTheControlsBackKeepsThePrintedLayout) {
  Print();
  calendar_->Form_Click();
  EXPECT_TRUE(session_->PrintLayoutOn);
}

TEST_F(MonthPrintingTest, TheFirstClickOnADayOpensNothing) {
  PrintAndForget();
  ClickDay();
  EXPECT_EQ("", windows_.Log);
}

TEST_F(MonthPrintingTest, TheFirstClickOnADayOnlyEndsThePrintedLayout) {
  PrintAndForget();
  ClickDay();
  EXPECT_FALSE(session_->PrintLayoutOn);
}

TEST_F(MonthPrintingTest, TheFirstClickOnADayKeepsTheControlsAway) {
  PrintAndForget();
  ClickDay();
  EXPECT_FALSE(view_.ControlsVisible);
}

TEST_F(MonthPrintingTest, TheSecondClickOnADayBringsTheControlsBack) {
  PrintAndForget();
  ClickDay();
  ClickDay();
  EXPECT_TRUE(view_.ControlsVisible);
}

TEST_F(MonthPrintingTest, TheSecondClickOnADayOpensIt) {
  PrintAndForget();
  ClickDay();
  ClickDay();
  EXPECT_EQ("hide month\nopen day \"  3/5/2014 Bookings\"\n", windows_.Log);
}

TEST_F(MonthPrintingTest, AClickOnTheTitleSavesNoClickOnADay) {
  PrintAndForget();
  calendar_->lblMonth_Click();
  ClickDay();
  EXPECT_EQ("", windows_.Log);
}

struct NameCase {
  const char* Behaviour;
  std::vector<std::string> Names;
  std::string Chosen;
  std::optional<std::string> Found;
};

class PrinterNameTest : public testing::TestWithParam<NameCase> {};

TEST_P(PrinterNameTest, IsFound) {
  EXPECT_EQ(GetParam().Found, PrinterNamed(GetParam().Names, GetParam().Chosen));
}

INSTANTIATE_TEST_SUITE_P(
    Names, PrinterNameTest,
    testing::Values(NameCase{"AsSpelled", {"Desk", "Office"}, "Office", "Office"},
                    NameCase{"InUpperCase", {"Desk", "Office"}, "OFFICE", "Office"},
                    NameCase{"InLowerCase", {"DESK", "OFFICE"}, "desk", "DESK"},
                    NameCase{"InGreek", {"Γραφείο"}, "ΓΡΑΦΕΊΟ", "Γραφείο"},
                    NameCase{"InCyrillic", {"ПРИНТЕР"}, "принтер", "ПРИНТЕР"},
                    NameCase{"TheExactOneOfTwins", {"desk", "DESK"}, "DESK", "DESK"},
                    NameCase{"TheFirstOfTwins", {"desk", "DESK"}, "Desk", "desk"},
                    NameCase{"NotByItsBeginning", {"Desk 2"}, "Desk", std::nullopt},
                    NameCase{"NotAmongNone", {}, "Desk", std::nullopt}),
    [](const auto& test) { return test.param.Behaviour; });

}  // namespace
}  // namespace veyra
