#include "forms/month/frmCalendar.h"

#include <stdexcept>

#include "data/errors.h"
#include "tests/forms/month_fixture.h"

namespace veyra {
namespace {

class FrmCalendarTest : public MonthFixture {};

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

TEST_F(FrmCalendarTest, AFacilityNameThatTheCalendarCannotHoldIsRefusedWhileItIsTyped) {
  Start();
  UseShortFacilityNames(*session_, folder_.Folder());
  const bool is_limited = TestedStoreKind() == StoreKind::Access;
  const std::string too_long = "This name is 21 characters long; the calendar holds 20.";
  Type(std::string(21, 'X'));
  EXPECT_EQ(is_limited ? too_long : "", view_.FacilityHint);
  if (is_limited) {
    TypeAndEnter(std::string(21, 'X'));
    EXPECT_EQ("[OK Exclamation] " + too_long, dialogs_.OnlyBox());
  }
  Type(std::string(20, 'X'));
  EXPECT_EQ("", view_.FacilityHint);
}

}  // namespace
}  // namespace veyra
