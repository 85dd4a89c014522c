#include "forms/month/frmCalendar.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

#include "data/errors.h"
#include "logic/facilities.h"
#include "tests/calendar_folder.h"
#include "tests/fake_clock.h"
#include "tests/fake_dialogs.h"
#include "tests/forms/fake_month_printer.h"
#include "tests/forms/fake_month_view.h"
#include "tests/forms/fake_windows.h"

namespace veyra {
namespace {

using Names = std::vector<std::string>;

constexpr int kEnter = 13;

class FrmCalendarTest : public testing::Test {
 protected:
  /// Starts on March 2014 with these facilities, the first of them active.
  void Start(const Names& facilities = {"Pool"}) {
    for (const std::string& name : facilities) {
      folder_.AddRoom(name, name == facilities.front());
    }
    session_ = folder_.OpenSession();
    session_->CurrentColors = {"-2147483643", "12582912", "0", "255", "65535"};
    calendar_ =
        std::make_unique<frmCalendar>(*session_, view_, windows_, dialogs_, clock_, printer_);
    calendar_->LoadFacilityBox();
    calendar_->ApplyHeaderColors();
    calendar_->SelectActiveFacility();
    calendar_->ShowCurrentMonth();
  }

  void Type(const std::string& text) { calendar_->Combo1_Change(text); }
  void TypeAndEnter(const std::string& text) {
    Type(text);
    calendar_->Combo1_KeyPress(kEnter);
  }

  /// Makes every query on the bookings fail until the table is back.
  void BreakCalendar() { session_->ResCon = std::make_unique<Connection>(EmptyStore()); }

  std::unique_ptr<Store> EmptyStore() {
    return CreateStoreOfKind(TestedStoreKind(), folder_.File("Empty.mdb"));
  }

  CalendarFolder folder_;
  FakeClock clock_{2014, 3, 15};
  FakeDialogs dialogs_;
  FakeWindows windows_;
  FakeMonthView view_;
  FakeMonthPrinter printer_;
  std::unique_ptr<Session> session_;
  std::unique_ptr<frmCalendar> calendar_;
};

TEST_F(FrmCalendarTest, NextAfterDecemberIsJanuaryOfTheNextYear) {
  clock_.Set(2014, 12, 1);
  Start();
  calendar_->Command1_Click();
  EXPECT_EQ("January 2015", view_.Picture.Title);
}

TEST_F(FrmCalendarTest, PreviousBeforeJanuaryIsDecemberOfTheYearBefore) {
  clock_.Set(2015, 1, 1);
  Start();
  calendar_->Command2_Click();
  EXPECT_EQ("December 2014", view_.Picture.Title);
}

TEST_F(FrmCalendarTest, PagingEndsTheLoadingState) {
  Start();
  session_->IsLoading = true;
  calendar_->Command2_Click();
  EXPECT_FALSE(session_->IsLoading);
}

TEST_F(FrmCalendarTest, PagingStopsAtTheLastMonthThereIs) {
  clock_.Set(9999, 12, 1);
  Start();
  calendar_->Command1_Click();
  EXPECT_EQ("December 9999", view_.Picture.Title);
  EXPECT_EQ(9999, session_->CurYear);
}

TEST_F(FrmCalendarTest, PagingStopsAtTheFirstMonthThereIs) {
  clock_.Set(100, 1, 1);
  Start();
  calendar_->Command2_Click();
  EXPECT_EQ("January 100", view_.Picture.Title);
}

TEST_F(FrmCalendarTest, APageThatCannotBeReadLeavesTheMonthAsItStands) {
  Start();
  BreakCalendar();
  EXPECT_THROW(calendar_->Command1_Click(), DatabaseError);
  EXPECT_EQ(3, session_->CurMonth);
  EXPECT_EQ("March 2014", view_.Picture.Title);
}

TEST_F(FrmCalendarTest, ACellThatOnceShowedTodayKeepsItsListBackground) {
  Start();
  calendar_->Command1_Click();
  EXPECT_EQ(65535, view_.ListBackground[21]);
}

TEST_F(FrmCalendarTest, ALeftClickOpensTheDayForBooking) {
  clock_.Set(2014, 3, 1);
  Start();
  calendar_->lstDay_MouseDown(11, MouseButton::Left);
  EXPECT_EQ("hide month\nopen day \"  3/5/2014 Bookings\"\n", windows_.Log);
  EXPECT_EQ(MakeDate(2014, 3, 5).value(), session_->DayDate);
  EXPECT_EQ(11, session_->DayCellIndex);
  EXPECT_TRUE(view_.PrintButtonFocused);
}

TEST_F(FrmCalendarTest, AClickOpensTheDayOfTheMonthShown) {
  Start();
  calendar_->Command1_Click();
  calendar_->lstDay_MouseDown(3, MouseButton::Left);
  EXPECT_EQ(MakeDate(2014, 4, 1).value(), session_->DayDate);
}

TEST_F(FrmCalendarTest, ADayThatFailsToOpenBringsTheMonthBack) {
  Start();
  windows_.WhileLoading = [] { throw std::runtime_error("no guests today"); };
  EXPECT_THROW(calendar_->lstDay_MouseDown(11, MouseButton::Left), std::runtime_error);
  EXPECT_EQ("hide month\nshow month\n", windows_.Log);
}

TEST_F(FrmCalendarTest, WithoutAFacilityALeftClickOpensNothing) {
  Start({});
  calendar_->lstDay_MouseDown(11, MouseButton::Left);
  EXPECT_EQ("[OK Critical] There is no Facility Selected", dialogs_.OnlyBox());
  EXPECT_EQ("Veyra Calendar", dialogs_.LastMessage().Title);
  EXPECT_EQ("", windows_.Log);
}

TEST_F(FrmCalendarTest, WithoutAFacilityARightClickOpensTheViewer) {
  Start({});
  calendar_->lstDay_MouseDown(11, MouseButton::Right);
  EXPECT_EQ("disable month\nopen viewer \"  3/5/2014 Day Viewer\"\n", windows_.Log);
  EXPECT_EQ(11, session_->DayCellIndex);
}

TEST_F(FrmCalendarTest, AViewerThatFailsToOpenLeavesTheMonthEnabled) {
  Start();
  windows_.WhileLoading = [] { throw std::runtime_error("no bookings today"); };
  EXPECT_THROW(calendar_->lstDay_MouseDown(11, MouseButton::Right), std::runtime_error);
  EXPECT_EQ("disable month\nenable month\n", windows_.Log);
}

TEST_F(FrmCalendarTest, AnyOtherButtonDoesNothing) {
  Start();
  calendar_->lstDay_MouseDown(11, MouseButton::Other);
  EXPECT_EQ("", windows_.Log);
}

TEST_F(FrmCalendarTest, TheFirstClickAfterPrintingOnlyEndsThePrintedLayout) {
  Start();
  session_->PrintLayoutOn = true;
  view_.ControlsVisible = false;
  calendar_->lstDay_MouseDown(11, MouseButton::Left);
  EXPECT_EQ("", windows_.Log);
  EXPECT_FALSE(session_->PrintLayoutOn);
  EXPECT_FALSE(view_.ControlsVisible);
}

TEST_F(FrmCalendarTest, TheSecondClickAfterPrintingRestoresTheControlsAndOpensTheDay) {
  Start();
  session_->PrintLayoutOn = true;
  view_.ControlsVisible = false;
  calendar_->lstDay_MouseDown(11, MouseButton::Left);
  calendar_->lstDay_MouseDown(11, MouseButton::Left);
  EXPECT_TRUE(view_.ControlsVisible);
  EXPECT_EQ("hide month\nopen day \"  3/5/2014 Bookings\"\n", windows_.Log);
}

TEST_F(FrmCalendarTest, AClickDuringLoadingOnlyEndsThatState) {
  Start();
  session_->IsLoading = true;
  view_.ControlsVisible = false;
  calendar_->lstDay_MouseDown(11, MouseButton::Left);
  EXPECT_FALSE(session_->IsLoading);
  EXPECT_TRUE(view_.ControlsVisible);
  EXPECT_EQ("", windows_.Log);
}

TEST_F(FrmCalendarTest, ClosingTheWindowEndsTheProgram) {
  Start();
  calendar_->Form_Unload();
  EXPECT_EQ("end\n", windows_.Log);
}

TEST_F(FrmCalendarTest, AboutAndSettingsDisableTheMonth) {
  Start();
  calendar_->mnuAbout_Click();
  calendar_->mnuSettings_Click();
  EXPECT_EQ("disable month\nopen about\ndisable month\nopen settings\n", windows_.Log);
}

TEST_F(FrmCalendarTest, EachHelpItemOpensItsTopic) {
  Start();
  calendar_->mnuContents_Click();
  calendar_->mnuOver_Click();
  calendar_->mnuCalendar_Click();
  EXPECT_EQ("help 20\nhelp 30\nhelp 60\n", windows_.Log);
}

TEST_F(FrmCalendarTest, PickingAFacilityShowsItsMonth) {
  Start({"Pool", "Hall"});
  folder_.AddBooking(2, "2014-03-05", 1, 2, "Dance");
  session_->IsLoading = true;
  calendar_->Combo1_Click("Hall");
  EXPECT_EQ("Hall", view_.lblRoom);
  EXPECT_EQ(2, session_->CurRmID);
  EXPECT_EQ((modRes::DayLines{"12:00A- 1:00A Dance"}), view_.Picture.Cells[11].Lines);
  EXPECT_FALSE(session_->IsLoading);
}

TEST_F(FrmCalendarTest, AFacilityThatCannotBeSelectedIsNotNamed) {
  Start({"Pool", "Hall"});
  BreakCalendar();
  view_.Combo1.Text = "Hall";
  EXPECT_THROW(calendar_->Combo1_Click("Hall"), DatabaseError);
  EXPECT_EQ("Pool", view_.Combo1.Text);
  EXPECT_EQ("Pool", view_.lblRoom);
  EXPECT_EQ(1, session_->CurRmID);
}

TEST_F(FrmCalendarTest, TypingAListedNameInLowerCaseAdoptsItsSpelling) {
  Start({"Pool", "Hall"});
  TypeAndEnter("hALL");
  EXPECT_EQ("Hall", view_.Combo1.Text);
  EXPECT_TRUE(dialogs_.Boxes().empty());
  EXPECT_EQ(1, view_.MonthsShown);
  EXPECT_EQ("1 Pool active\n2 Hall\n", folder_.Rooms());
}

TEST_F(FrmCalendarTest, CaseIsThatOfEveryScript) {
  Start({"\u00C9t\u00E9"});
  TypeAndEnter("\u00E9T\u00C9");
  EXPECT_EQ("\u00C9t\u00E9", view_.Combo1.Text);
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(FrmCalendarTest, TypingANewNameAsksForItInProperCase) {
  Start();
  dialogs_.AnswerNext(Answer::No);
  TypeAndEnter("main HALL");
  EXPECT_EQ("[Yes/No Exclamation] Do you want to add a new Facility called Main Hall?",
            dialogs_.OnlyBox());
}

TEST_F(FrmCalendarTest, TheProperCaseNameIsSeenBehindTheQuestion) {
  Start();
  dialogs_.AnswerNext(Answer::No);
  std::string seen;
  dialogs_.WhileShown = [&] { seen = view_.Combo1.Text; };
  TypeAndEnter("main hall");
  EXPECT_EQ("Main Hall", seen);
}

TEST_F(FrmCalendarTest, YesAddsTheFacilityAndShowsItsEmptyMonth) {
  Start();
  folder_.AddBooking(1, "2014-03-05", 1, 2, "Swim");
  dialogs_.AnswerNext(Answer::Yes);
  TypeAndEnter("main hall");
  EXPECT_EQ((NameBox{{"Pool", "Main Hall"}, "Main Hall"}), view_.Combo1);
  EXPECT_EQ("Main Hall", view_.lblRoom);
  EXPECT_EQ(2, session_->CurRmID);
  EXPECT_EQ("1 Pool active\n2 Main Hall active\n", folder_.Rooms());
  EXPECT_EQ(2, view_.MonthsShown);
  EXPECT_EQ(modRes::DayLines{}, view_.Picture.Cells[11].Lines);
}

TEST_F(FrmCalendarTest, NoPutsTheCurrentFacilityBack) {
  Start();
  dialogs_.AnswerNext(Answer::No);
  TypeAndEnter("main hall");
  EXPECT_EQ((NameBox{{"Pool"}, "Pool"}), view_.Combo1);
  EXPECT_EQ("1 Pool active\n", folder_.Rooms());
}

TEST_F(FrmCalendarTest, EnterInAnEmptyBoxAsksNothing) {
  Start();
  TypeAndEnter("");
  EXPECT_TRUE(dialogs_.Boxes().empty());
  EXPECT_EQ("1 Pool active\n", folder_.Rooms());
}

TEST_F(FrmCalendarTest, OnlyEnterDoesAnything) {
  Start();
  Type("main hall");
  calendar_->Combo1_KeyPress('x');
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(FrmCalendarTest, AnAddedFacilityIsThereAfterARestart) {
  Start();
  dialogs_.AnswerNext(Answer::Yes);
  TypeAndEnter("main hall");
  NameBox box;
  const auto next_run = folder_.OpenSession();
  modRes::LoadFacilities(*next_run, box);
  EXPECT_EQ("Main Hall", box.Text);
}

TEST_F(FrmCalendarTest, FocusSelectsTheWholeTextWhenThereIsOne) {
  Start();
  calendar_->Combo1_GotFocus();
  EXPECT_EQ(1, view_.TextsSelected);
}

TEST_F(FrmCalendarTest, FocusOnAnEmptyBoxSelectsNothing) {
  Start({});
  calendar_->Combo1_GotFocus();
  EXPECT_EQ(0, view_.TextsSelected);
}

TEST_F(FrmCalendarTest, DeletingAFacilityIsAskedByTheNameAboveTheGrid) {
  Start({"Pool", "Hall"});
  Type("half typed");
  dialogs_.AnswerNext(Answer::No);
  calendar_->Command4_Click();
  EXPECT_EQ(
      "[Yes/No Critical] Are you Sure you want to Delete Pool and All Events associated with it?",
      dialogs_.OnlyBox());
  EXPECT_EQ("1 Pool active\n2 Hall\n", folder_.Rooms());
}

TEST_F(FrmCalendarTest, YesDeletesTheFacilityAndShowsTheFirstLeft) {
  Start({"Pool", "Hall"});
  folder_.AddBooking(1, "2014-03-05", 1, 2, "Swim");
  folder_.AddBooking(2, "2014-03-05", 3, 4, "Dance");
  dialogs_.AnswerNext(Answer::Yes);
  calendar_->Command4_Click();
  EXPECT_EQ((NameBox{{"Hall"}, "Hall"}), view_.Combo1);
  EXPECT_EQ("Hall", view_.lblRoom);
  EXPECT_EQ("2 2014-03-05 3-4 Dance\n", folder_.Bookings());
  EXPECT_EQ((modRes::DayLines{" 1:00A- 2:00A Dance"}), view_.Picture.Cells[11].Lines);
}

TEST_F(FrmCalendarTest, DeletingTheLastFacilityEmptiesTheBoxAndDrawsTheMonth) {
  Start();
  dialogs_.AnswerNext(Answer::Yes);
  calendar_->Command4_Click();
  EXPECT_EQ((NameBox{}), view_.Combo1);
  EXPECT_EQ(1, session_->CurRmID);
  EXPECT_EQ(2, view_.MonthsShown);
}

TEST_F(FrmCalendarTest, RepaintingTakesTheColorsInUse) {
  Start();
  session_->CurrentColors = {"1", "2", "3", "4", "5"};
  calendar_->Repaint();
  EXPECT_EQ(1, view_.Background);
  EXPECT_EQ(2, view_.Header);
  EXPECT_EQ(3, view_.Picture.Cells[20].NumberColor);
  EXPECT_EQ(4, view_.Picture.Cells[21].NumberColor);
  EXPECT_EQ(5, view_.ListBackground[21]);
}

}  // namespace
}  // namespace veyra
