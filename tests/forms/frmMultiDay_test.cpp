#include "forms/multiday/frmMultiDay.h"

#include <gtest/gtest.h>

#include "tests/fake_clock.h"
#include "tests/fake_dialogs.h"
#include "tests/forms/fake_multiday_view.h"
#include "tests/forms/fake_windows.h"

namespace veyra {
namespace {

class FrmMultiDayTest : public testing::Test {
 protected:
  FrmMultiDayTest() {
    window_.Form_Load();
    window_.Open("3/17/2014", {});
  }

  void Plan(const std::string& from, const std::string& to, const std::vector<std::size_t>& days) {
    window_.Text1_Change(0, from);
    window_.Text1_Change(1, to);
    for (const std::size_t day : days) {
      window_.Days_Click(day, true);
    }
  }

  /// Closes the window and returns the count that it left behind.
  std::int64_t Close() {
    window_.Command1_Click();
    return session_.PlannedDayCount;
  }

  Session session_;
  FakeClock clock_{2014, 3, 15};
  FakeDialogs dialogs_;
  FakeWindows windows_;
  FakeMultiDayView view_;
  frmMultiDay window_{session_, view_, windows_, dialogs_, clock_};
};

TEST_F(FrmMultiDayTest, ItOpensOnTheDayItIsGiven) {
  EXPECT_TRUE(view_.Visible);
  EXPECT_EQ("3/17/2014", view_.Plan.Text1[0]);
}

TEST_F(FrmMultiDayTest, OneTickedDateIsPlanned) {
  Plan("3/17/2014", "3/17/2014", {2});
  EXPECT_EQ(1, Close());
  EXPECT_EQ("[OK Information] 1 Days will be Scheduled for the Times Selected.",
            dialogs_.OnlyBox());
}

TEST_F(FrmMultiDayTest, OneUntickedDateIsNotAndNothingIsSaid) {
  Plan("3/17/2014", "3/17/2014", {3});
  EXPECT_EQ(0, Close());
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(FrmMultiDayTest, MondaysOfFourteenDaysAreTwo) {
  Plan("3/18/2014", "3/31/2014", {2});
  EXPECT_EQ(2, Close());
}

TEST_F(FrmMultiDayTest, MondaysFromMondayToMondayAreThree) {
  Plan("3/17/2014", "3/31/2014", {2});
  EXPECT_EQ(3, Close());
}

TEST_F(FrmMultiDayTest, AllDaysOfMarchAre31) {
  Plan("2014-03-01", "2014-03-31", {});
  window_.Command2_Click();
  EXPECT_EQ(31, Close());
  EXPECT_EQ("[OK Information] 31 Days will be Scheduled for the Times Selected.",
            dialogs_.OnlyBox());
}

TEST_F(FrmMultiDayTest, CheckAllTicksEveryDayAndUnticksNone) {
  window_.Days_Click(3, true);
  window_.Command2_Click();
  window_.Command2_Click();
  for (std::size_t day = 1; day <= 7; ++day) {
    EXPECT_TRUE(view_.Plan.Days[day]) << day;
  }
}

TEST_F(FrmMultiDayTest, AReversedRangePlansNothingButIsNoFallBack) {
  Plan("3/31/2014", "3/1/2014", {2});
  EXPECT_EQ(0, Close());
  EXPECT_EQ("enable day\n", windows_.Log);
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(FrmMultiDayTest, WithoutAWeekdayItFallsBackToASingleBooking) {
  Plan("3/17/2014", "3/31/2014", {});
  EXPECT_EQ(0, Close());
  EXPECT_EQ("single booking\nenable day\n", windows_.Log);
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(FrmMultiDayTest, ATextThatIsNoDateFallsBackToASingleBooking) {
  Plan("3/17/2014", "some day", {2});
  Close();
  EXPECT_EQ("single booking\nenable day\n", windows_.Log);
}

TEST_F(FrmMultiDayTest, EachCloseCountsAnew) {
  Plan("3/17/2014", "3/31/2014", {2});
  Close();
  window_.Text1_Change(1, "");
  EXPECT_EQ(0, Close());
}

TEST_F(FrmMultiDayTest, CloseHidesTheWindowAndEnablesTheDay) {
  Close();
  EXPECT_FALSE(view_.Visible);
}

TEST_F(FrmMultiDayTest, ReopeningKeepsToAndWeekdaysAndTakesANewFrom) {
  Plan("3/17/2014", "3/31/2014", {2, 4});
  Close();
  window_.Open("5/1/2014", {});
  EXPECT_EQ((std::array<std::string, 2>{"5/1/2014", "3/31/2014"}), view_.Plan.Text1);
  EXPECT_TRUE(view_.Plan.Days[2]);
  EXPECT_TRUE(view_.Plan.Days[4]);
  EXPECT_FALSE(view_.Plan.Days[3]);
}

TEST_F(FrmMultiDayTest, ThePickerForToStandsLeft) {
  window_.Text1_DblClick(1);
  ASSERT_TRUE(view_.Picker);
  EXPECT_EQ(240, view_.Picker->PickerLeft);
  EXPECT_EQ(120, view_.Picker->PickerTop);
  EXPECT_EQ(3960, view_.Picker->CloseLeft);
}

TEST_F(FrmMultiDayTest, ThePickerForFromStandsRight) {
  window_.Text1_DblClick(0);
  ASSERT_TRUE(view_.Picker);
  EXPECT_EQ(2160, view_.Picker->PickerLeft);
  EXPECT_EQ(120, view_.Picker->PickerTop);
  EXPECT_EQ(120, view_.Picker->CloseLeft);
}

TEST_F(FrmMultiDayTest, ThePickerOpensOnTheDateOfItsField) {
  window_.Text1_Change(1, "5/2/2014");
  window_.Text1_DblClick(1);
  EXPECT_EQ(MakeDate(2014, 5, 2).value(), view_.Selected);
}

TEST_F(FrmMultiDayTest, ThePickerOfAFieldWithoutADateOpensOnToday) {
  window_.Text1_DblClick(1);
  EXPECT_EQ(clock_.Today(), view_.Selected);
}

TEST_F(FrmMultiDayTest, ADatePickedGoesIntoTheFieldThatAskedForIt) {
  window_.Text1_DblClick(1);
  window_.Calendar1_DblClick(MakeDate(2014, 4, 9).value());
  EXPECT_EQ((std::array<std::string, 2>{"3/17/2014", "4/9/2014"}), view_.Plan.Text1);
  EXPECT_FALSE(view_.Picker);
  EXPECT_FALSE(view_.CloseButton);
}

TEST_F(FrmMultiDayTest, DismissingThePickerLeavesItsCloseButton) {
  window_.Text1_DblClick(1);
  window_.Calendar1_Dismiss();
  EXPECT_FALSE(view_.Picker);
  EXPECT_TRUE(view_.CloseButton);
}

TEST_F(FrmMultiDayTest, CloseCalendarHidesBoth) {
  window_.Text1_DblClick(1);
  window_.Command3_Click();
  EXPECT_FALSE(view_.Picker);
  EXPECT_FALSE(view_.CloseButton);
}

TEST_F(FrmMultiDayTest, AllDatesThereAreCanBeCounted) {
  Plan("1/1/100", "12/31/9999", {});
  window_.Command2_Click();
  EXPECT_EQ(3615900, Close());
}

TEST_F(FrmMultiDayTest, APickerLeftOpenGoesWithTheWindow) {
  window_.Text1_DblClick(1);
  Close();
  EXPECT_FALSE(view_.Picker);
  EXPECT_FALSE(view_.CloseButton);
}

TEST_F(FrmMultiDayTest, TheHelpKeyOpensTheHelpFile) {
  window_.HelpKey();
  EXPECT_EQ("help 0\n", windows_.Log);
}

TEST_F(FrmMultiDayTest, WhileDatesAndWeekdaysChangeItSaysHowManyDatesThereAre) {
  EXPECT_EQ("", view_.Line.Text);
  window_.Text1_Change(1, "3/31/2014");
  EXPECT_EQ("", view_.Line.Text);
  window_.Days_Click(2, true);
  EXPECT_EQ("3 dates", view_.Line.Text);
  window_.Text1_Change(1, "3/17/2014");
  EXPECT_EQ("1 date", view_.Line.Text);
  window_.Command2_Click();
  window_.Text1_Change(0, "3/14/2014");
  EXPECT_EQ("4 dates", view_.Line.Text);
  window_.Text1_Change(1, "soon");
  EXPECT_EQ("", view_.Line.Text);
}

TEST_F(FrmMultiDayTest, ItSaysWhyThereIsNoDate) {
  Plan("3/17/2014", "3/17/2014", {3});
  EXPECT_EQ("No dates: none of them falls on a ticked weekday.", view_.Line.Text);
  window_.Text1_Change(1, "3/16/2014");
  EXPECT_EQ("No dates: they end before they begin.", view_.Line.Text);
}

TEST_F(FrmMultiDayTest, ADateFromThePickerCountsToo) {
  Plan("3/17/2014", "", {2});
  window_.Text1_DblClick(1);
  window_.Calendar1_DblClick(MakeDate(2014, 3, 24).value());
  EXPECT_EQ("2 dates", view_.Line.Text);
}

TEST_F(FrmMultiDayTest, WithoutAChosenTimeItSaysHowToCountWhatIsTaken) {
  Plan("3/17/2014", "3/17/2014", {2});
  EXPECT_EQ("Choose a time in the day first to count those taken.", view_.Line.Note);
  EXPECT_FALSE(view_.Works);
}

TEST_F(FrmMultiDayTest, MoreThanFourHundredDatesAreMarked) {
  Plan("3/17/2014", "4/20/2015", {});
  window_.Command2_Click();
  EXPECT_EQ("400 dates", view_.Line.Text);
  EXPECT_FALSE(view_.Line.IsOdd);
  window_.Text1_Change(1, "4/21/2015");
  EXPECT_EQ("401 dates", view_.Line.Text);
  EXPECT_TRUE(view_.Line.IsOdd);
  EXPECT_EQ("Is this meant? So many dates.", view_.Line.Note);
}

TEST_F(FrmMultiDayTest, APlanThatEndsMoreThanThreeYearsAwayIsMarked) {
  Plan("3/17/2014", "3/15/2017", {7});
  EXPECT_FALSE(view_.Line.IsOdd);
  window_.Text1_Change(1, "3/16/2017");
  EXPECT_TRUE(view_.Line.IsOdd);
  window_.Text1_Change(1, "3/29/2226");
  EXPECT_EQ("Is this meant? It ends in 2226.", view_.Line.Note);
}

TEST_F(FrmMultiDayTest, ThreeYearsFromTheLeapDayEndWithFebruary) {
  clock_.Set(2016, 2, 29);
  Plan("2/1/2019", "2/28/2019", {5});
  EXPECT_EQ("4 dates", view_.Line.Text);
  EXPECT_FALSE(view_.Line.IsOdd);
  window_.Text1_Change(1, "3/1/2019");
  EXPECT_TRUE(view_.Line.IsOdd);
}

}  // namespace
}  // namespace veyra
