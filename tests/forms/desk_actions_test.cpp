#include "forms/month/desk_actions.h"

#include "tests/forms/month_fixture.h"

namespace veyra {
namespace {

/// On 15 March 2014, a Saturday, in cell 21.
class DeskActionsTest : public MonthFixture {
 protected:
  void StartDesk(const std::vector<std::string>& facilities = {"Pool", "Hall"}) {
    Start(facilities);
    desk_ = std::make_unique<DeskActions>(*calendar_, windows_, dialogs_, clock_);
  }

  std::unique_ptr<DeskActions> desk_;
};

TEST_F(DeskActionsTest, TodayIsChosenInItsMonth) {
  StartDesk();
  calendar_->Command1_Click();
  desk_->ShowToday();
  EXPECT_EQ("March 2014", view_.Picture.Title);
  EXPECT_EQ(21, view_.ChosenCell);
}

TEST_F(DeskActionsTest, TodayIsThatOfTheMomentNotOfTheStart) {
  StartDesk();
  clock_.Set(2014, 4, 1);
  desk_->ShowToday();
  EXPECT_EQ("April 2014", view_.Picture.Title);
  EXPECT_EQ(3, view_.ChosenCell);
}

TEST_F(DeskActionsTest, ADateIsGoneTo) {
  StartDesk();
  dialogs_.TypeNext("Dec 22");
  desk_->GoToDate();
  EXPECT_EQ("[Input Go to a Date] Date, for example 3/15/2014 or March 15 (3/15/2014)",
            dialogs_.OnlyBox());
  EXPECT_EQ("December 2014", view_.Picture.Title);
  EXPECT_EQ(23, view_.ChosenCell);
}

TEST_F(DeskActionsTest, WhatIsNoDateIsToldAndAskedForAgain) {
  StartDesk();
  dialogs_.TypeNext("2/30/2015");
  dialogs_.TypeNext("2/28/2015");
  desk_->GoToDate();
  ASSERT_EQ(3U, dialogs_.Boxes().size());
  EXPECT_EQ(
      "[OK Exclamation] \"2/30/2015\" is not a date.\r\nEnter it again, for example 3/15/2014.",
      dialogs_.Boxes()[1]);
  EXPECT_EQ("[Input Go to a Date] Date, for example 3/15/2014 or March 15 (2/30/2015)",
            dialogs_.Boxes()[2]);
  EXPECT_EQ("February 2015", view_.Picture.Title);
}

TEST_F(DeskActionsTest, ACancelledDateLeavesTheMonth) {
  StartDesk();
  calendar_->Command1_Click();
  dialogs_.TypeNext("");
  desk_->GoToDate();
  EXPECT_EQ("April 2014", view_.Picture.Title);
  EXPECT_EQ(0, view_.ChosenCell);
}

TEST_F(DeskActionsTest, TheLastDayThereIsCanBeGoneTo) {
  StartDesk();
  dialogs_.TypeNext("12/31/9999");
  desk_->GoToDate();
  EXPECT_EQ("December 9999", view_.Picture.Title);
  EXPECT_TRUE(view_.Picture.Cells[view_.ChosenCell].Visible);
  EXPECT_EQ("31", view_.Picture.Cells[view_.ChosenCell].Number);
}

TEST_F(DeskActionsTest, AMonthThatCannotBeReadIsNotGoneTo) {
  StartDesk();
  BreakCalendar();
  dialogs_.TypeNext("4/1/2014");
  EXPECT_THROW(desk_->GoToDate(), DatabaseError);
  EXPECT_EQ(3, session_->CurMonth);
  EXPECT_EQ(0, view_.ChosenCell);
}

TEST_F(DeskActionsTest, AFacilityIsPickedByItsNumber) {
  StartDesk();
  const std::string second = calendar_->FacilityBox().Items.at(1);
  desk_->PickFacility(2);
  EXPECT_EQ(second, view_.lblRoom);
  EXPECT_EQ(second, view_.Combo1.Text);
  EXPECT_NE(std::string::npos, folder_.Rooms().find(second + " active"));
}

TEST_F(DeskActionsTest, ANumberWithoutAFacilityPicksNone) {
  StartDesk();
  desk_->PickFacility(3);
  EXPECT_EQ("Pool", view_.lblRoom);
}

TEST_F(DeskActionsTest, AFacilityThatIsGoneIsNotPicked) {
  StartDesk();
  Remove("Hall");
  desk_->PickFacility(1);
  desk_->PickFacility(2);
  EXPECT_EQ("Pool", view_.lblRoom);
  EXPECT_EQ("Pool", view_.Combo1.Text);
}

TEST_F(DeskActionsTest, TheMonthIsPrintedAsByTheButton) {
  StartDesk();
  desk_->PrintMonth();
  ASSERT_EQ(1U, printer_.Sheets.size());
  EXPECT_EQ("March 2014", printer_.Sheets[0].Title);
  EXPECT_FALSE(view_.ControlsVisible);
}

TEST_F(DeskActionsTest, TheWeekOfTheChosenDayIsPrinted) {
  StartDesk();
  view_.ChosenCell = 12;
  windows_.Log.clear();
  desk_->PrintWeek();
  EXPECT_EQ("print week of 3/6/2014\n", windows_.Log);
}

}  // namespace
}  // namespace veyra
