#include "forms/dayviewer/frmDayViewer.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "data/errors.h"
#include "tests/calendar_folder.h"
#include "tests/fake_clock.h"
#include "tests/fake_dialogs.h"
#include "tests/forms/fake_windows.h"

namespace veyra {
namespace {

using Lines = std::vector<std::string>;

class FakeDayViewerView : public DayViewerView {
 public:
  DayViewerPicture Picture;
  Lines lstDay = {"left over"};

  void ShowDay(const DayViewerPicture& picture) override { Picture = picture; }
  void ShowDayList(const modRes::DayLines& lines) override { lstDay = lines; }
};

class FrmDayViewerTest : public testing::Test {
 protected:
  FrmDayViewerTest() { folder_.AddRoom("Pool", true); }

  void Open(int year, int month, int day) {
    session_ = folder_.OpenSession();
    session_->CurRmID = 1;
    session_->CurrentColors = {"1", "2", "3", "4", "5"};
    session_->DayDate = MakeDate(year, month, day).value();
    viewer_ = std::make_unique<frmDayViewer>(*session_, view_, windows_, dialogs_, clock_);
    viewer_->Form_Load();
  }

  CalendarFolder folder_;
  FakeClock clock_{2014, 3, 15};
  FakeDialogs dialogs_;
  FakeWindows windows_;
  FakeDayViewerView view_;
  std::unique_ptr<Session> session_;
  std::unique_ptr<frmDayViewer> viewer_;
};

TEST_F(FrmDayViewerTest, ItShowsTheWeekdayTheDayAndTheBookings) {
  folder_.AddBooking(1, "2014-03-16", 30, 31, "late");
  folder_.AddBooking(1, "2014-03-16", 19, 21, "early");
  Open(2014, 3, 16);
  EXPECT_EQ("Sunday", view_.Picture.lblDay);
  EXPECT_EQ("16", view_.Picture.lblDate);
  EXPECT_EQ((Lines{" 9:00A-10:30A early", " 2:30P- 3:30P late"}), view_.lstDay);
}

TEST_F(FrmDayViewerTest, ADayWithoutBookingsIsAnEmptyListThatShowsNothing) {
  Open(2014, 3, 16);
  viewer_->lstDay_MouseDown(MouseButton::Left, {});
  EXPECT_EQ(Lines{}, view_.lstDay);
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(FrmDayViewerTest, TodayHasItsOwnColors) {
  Open(2014, 3, 15);
  EXPECT_EQ(1, view_.Picture.BackColor);
  EXPECT_EQ(2, view_.Picture.DayColor);
  EXPECT_EQ(4, view_.Picture.DateColor);
  EXPECT_EQ(5, view_.Picture.ListColor);
}

TEST_F(FrmDayViewerTest, AnotherDayHasTheDayColorAndItsListAsDesigned) {
  Open(2014, 3, 16);
  EXPECT_EQ(3, view_.Picture.DateColor);
  EXPECT_EQ(std::nullopt, view_.Picture.ListColor);
}

TEST_F(FrmDayViewerTest, WhileItIsLoadedItIsTheListingToRefresh) {
  Open(2014, 3, 16);
  EXPECT_EQ(Opener::DayViewer, session_->DayOpener);
}

TEST_F(FrmDayViewerTest, ClosingEnablesTheMonthAndEndsThat) {
  Open(2014, 3, 16);
  viewer_->Form_Unload();
  EXPECT_EQ("enable month\n", windows_.Log);
  EXPECT_EQ(Opener::MonthWindow, session_->DayOpener);
}

TEST_F(FrmDayViewerTest, AFailedLoadIsNoListingToRefresh) {
  Open(2014, 3, 16);
  session_->CurrentColors.HeaderTxt = "blue";
  EXPECT_THROW(viewer_->Form_Load(), ValueError);
  EXPECT_EQ(Opener::MonthWindow, session_->DayOpener);
}

TEST_F(FrmDayViewerTest, ALeftClickShowsEachSelectedLineInTurn) {
  Open(2014, 3, 16);
  viewer_->lstDay_MouseDown(MouseButton::Left, {"first", "second"});
  EXPECT_EQ((Lines{"[OK] first", "[OK] second"}), dialogs_.Boxes());
  EXPECT_EQ("Veyra Calendar", dialogs_.LastMessage().Title);
}

TEST_F(FrmDayViewerTest, ARightClickGoesOnToBookTheDay) {
  Open(2014, 3, 16);
  viewer_->lstDay_MouseDown(MouseButton::Right, {});
  EXPECT_EQ("hide viewer\nopen day \"  3/16/2014 Bookings\"\n", windows_.Log);
  EXPECT_EQ(Opener::DayViewer, session_->DayOpener);
}

TEST_F(FrmDayViewerTest, ARightClickOpensNothingWhileNoDayMayBeOpened) {
  Open(2014, 3, 16);
  windows_.DayMayBeOpened = false;
  viewer_->lstDay_MouseDown(MouseButton::Right, {});
  EXPECT_EQ("", windows_.Log);
}

TEST_F(FrmDayViewerTest, ADayWindowThatFailsToOpenBringsTheViewerBack) {
  Open(2014, 3, 16);
  windows_.WhileLoading = [] { throw std::runtime_error("no guests today"); };
  EXPECT_THROW(viewer_->lstDay_MouseDown(MouseButton::Right, {}), std::runtime_error);
  EXPECT_EQ("hide viewer\nshow viewer\n", windows_.Log);
}

TEST_F(FrmDayViewerTest, HelpOpensItsTopic) {
  Open(2014, 3, 16);
  viewer_->mnuHelp_Click();
  EXPECT_EQ("help 80\n", windows_.Log);
}

TEST_F(FrmDayViewerTest, AnyOtherButtonDoesNothing) {
  Open(2014, 3, 16);
  viewer_->lstDay_MouseDown(MouseButton::Other, {"line"});
  EXPECT_TRUE(dialogs_.Boxes().empty());
  EXPECT_EQ("", windows_.Log);
}

TEST_F(FrmDayViewerTest, ItsKeysPrintTheDayAndItsWeek) {
  Open(2014, 3, 16);
  windows_.Log.clear();
  viewer_->PrintKey();
  viewer_->PrintWeekKey();
  EXPECT_EQ("print day 3/16/2014\nprint week of 3/16/2014\n", windows_.Log);
}

}  // namespace
}  // namespace veyra
