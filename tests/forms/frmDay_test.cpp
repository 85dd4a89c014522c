#include "tests/forms/day_fixture.h"

namespace veyra {
namespace {

class FrmDayTest : public DayFixture {};

TEST_F(FrmDayTest, TheWindowOpensPlacedAndScrolledToFive) {
  OpenDay();
  EXPECT_TRUE(view_.Placed);
  EXPECT_EQ(11, view_.TopRow);
}

TEST_F(FrmDayTest, TheWindowOpensInSingleMode) {
  view_.Multiple = true;
  OpenDay();
  EXPECT_FALSE(view_.Multiple);
}

TEST_F(FrmDayTest, TheWindowShowsTheDaysBookings) {
  folder_.AddBooking(1, "2014-04-06", 19, 20, "Smith");
  folder_.AddBooking(1, "2014-04-07", 30, 30, "tomorrow");
  OpenDay();
  EXPECT_EQ("19 Smith\n20 Smith\n", Grid());
}

TEST_F(FrmDayTest, TheWindowOffersTheGuests) {
  folder_.AddGuest(std::string("Zoe"));
  OpenDay();
  EXPECT_EQ((NameBox{{"Ann", "Zoe"}, ""}), view_.Combo1);
}

TEST_F(FrmDayTest, WhileTheMonthIsLaidOutForPrintingTheWindowDoesNothing) {
  session_ = folder_.OpenSession();
  session_->PrintLayoutOn = true;
  OpenDay();
  EXPECT_FALSE(view_.Placed);
  EXPECT_FALSE(day_->Form_Load());
}

TEST_F(FrmDayTest, DraggingUpwardsAsksFromTheUpperRow) {
  OpenDay();
  AnswerNext(Answer::Cancel);
  Drag(30, 26);
  EXPECT_EQ(
      "[OK/Cancel Question] Reservation for No Title From 12:30P To  3:00P.\r\n"
      "Select OK to Book or Cancel to Cancel",
      Question());
}

TEST_F(FrmDayTest, DraggingUpwardsBooksBothEndRows) {
  OpenDay();
  AnswerNext(Answer::Ok);
  Drag(30, 26);
  EXPECT_EQ("1 2014-04-06 26-30 No Title\n", Bookings());
}

TEST_F(FrmDayTest, AClickOnOneFreeRowBooksThatSlot) {
  OpenDay();
  AnswerNext(Answer::Ok);
  Click(19);
  EXPECT_EQ(
      "[OK/Cancel Question] Reservation for No Title From  9:00A To  9:30A.\r\n"
      "Select OK to Book or Cancel to Cancel",
      Question());
  EXPECT_EQ("1 2014-04-06 19-19 No Title\n", Bookings());
}

TEST_F(FrmDayTest, TheLastTwoRowsEndAtMidnight) {
  OpenDay();
  AnswerNext(Answer::Cancel);
  Drag(47, 48);
  EXPECT_EQ(
      "[OK/Cancel Question] Reservation for No Title From 11:00P To 12:00A.\r\n"
      "Select OK to Book or Cancel to Cancel",
      Question());
}

TEST_F(FrmDayTest, TheNameTypedIsAskedForAndBooked) {
  OpenDay();
  day_->Combo1_Change("Ann O'Hara");
  AnswerNext(Answer::Ok);
  Click(19);
  EXPECT_EQ("1 2014-04-06 19-19 Ann O'Hara\n", Bookings());
  EXPECT_EQ("19 Ann O'Hara\n", Grid());
}

TEST_F(FrmDayTest, TheTextOfAnEmptyGuestListIsBookedWhenItIsNotChanged) {
  folder_.RemoveGuest();
  OpenDay();
  AnswerNext(Answer::Ok);
  Click(19);
  EXPECT_EQ("1 2014-04-06 19-19 No Guests in Veyra\n", Bookings());
}

TEST_F(FrmDayTest, CancelBooksNothing) {
  OpenDay();
  AnswerNext(Answer::Cancel);
  Click(19);
  EXPECT_EQ("", Bookings());
  EXPECT_EQ("", Grid());
}

TEST_F(FrmDayTest, ABookingIsReportedAndShownInTheMonth) {
  OpenDay();
  AnswerNext(Answer::Ok);
  Click(19);
  EXPECT_EQ("[OK Exclamation] 1 Booking(s) Made.", dialogs_.Boxes().back());
  EXPECT_EQ((modRes::DayLines{" 9:00A- 9:30A No Title"}), screens_.Picture.Cells[8].Lines);
}

TEST_F(FrmDayTest, ABookingReachesTheViewerWhileItIsLoaded) {
  OpenDay();
  session_->DayOpener = Opener::DayViewer;
  AnswerNext(Answer::Ok);
  Click(19);
  EXPECT_EQ((modRes::DayLines{" 9:00A- 9:30A No Title"}), screens_.ViewerLines);
}

TEST_F(FrmDayTest, TheHeaderRowAndTheTimeColumnDoNothing) {
  OpenDay();
  day_->MSFlexGrid1_MouseDown(19, 1);
  day_->MSFlexGrid1_Click(0, 1);
  day_->MSFlexGrid1_Click(19, 0);
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(FrmDayTest, ADragThatBeganInTheHeaderRowDoesNothing) {
  OpenDay();
  Drag(0, 5);
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(FrmDayTest, TheCurrentRowGoesBelowTheSelection) {
  OpenDay();
  AnswerNext(Answer::Cancel);
  Drag(19, 21);
  EXPECT_EQ(22, view_.CurrentRow);
}

TEST_F(FrmDayTest, TheCurrentRowGoesToTheFirstAfterTheLast) {
  OpenDay();
  AnswerNext(Answer::Cancel);
  Drag(48, 47);
  EXPECT_EQ(1, view_.CurrentRow);
}

TEST_F(FrmDayTest, ThePressKeepsTheTimeOfTheCurrentRow) {
  OpenDay();
  day_->MSFlexGrid1_MouseDown(19, 25);
  EXPECT_EQ(19, session_->AnchorRow);
  EXPECT_EQ("12:00 Noon", session_->AnchorTimeText);
}

TEST_F(FrmDayTest, FallingBackToSingleBookingShowsInTheOptions) {
  OpenDay();
  view_.Multiple = true;
  day_->SelectSingleBooking();
  EXPECT_FALSE(view_.Multiple);
}

TEST_F(FrmDayTest, LeavingTheNameBoxTidiesTheName) {
  OpenDay();
  day_->Combo1_Change("john smith");
  day_->Combo1_LostFocus();
  EXPECT_EQ("John Smith", view_.Combo1.Text);
}

TEST_F(FrmDayTest, ANameTypedAfterABlankKeepsItsFirstWord) {
  OpenDay();
  day_->Combo1_Change(" john smith");
  day_->Combo1_LostFocus();
  EXPECT_EQ("john Smith", view_.Combo1.Text);
}

TEST_F(FrmDayTest, FocusSelectsTheNameWhenThereIsOne) {
  OpenDay();
  day_->Combo1_Change("");
  day_->Combo1_GotFocus();
  EXPECT_EQ(0, view_.TextsSelected);
  day_->Combo1_Change("x");
  day_->Combo1_GotFocus();
  EXPECT_EQ(1, view_.TextsSelected);
}

TEST_F(FrmDayTest, HelpOpensTheHelpFile) {
  OpenDay();
  day_->mnuHelp_Click();
  EXPECT_EQ("help 0\n", windows_.Log);
}

TEST_F(FrmDayTest, CloseClosesTheWindow) {
  OpenDay();
  day_->Command2_Click();
  EXPECT_TRUE(view_.Closed);
}

TEST_F(FrmDayTest, ClosingBringsTheMonthBackWithItsCellFilled) {
  folder_.AddBooking(1, "2014-04-06", 1, 2, "Smith");
  OpenDay();
  session_->PrintLayoutOn = true;
  day_->Form_Unload();
  EXPECT_EQ("show month\n", windows_.Log);
  EXPECT_EQ(8, screens_.CellShown);
  EXPECT_EQ((modRes::DayLines{"12:00A- 1:00A Smith"}), screens_.CellLines);
  EXPECT_FALSE(session_->PrintLayoutOn);
}

TEST_F(FrmDayTest, ClosingBringsTheViewerBackThatOpenedIt) {
  OpenDay();
  session_->DayOpener = Opener::DayViewer;
  day_->Form_Unload();
  EXPECT_EQ("show viewer\n", windows_.Log);
}

// Names that the calendar cannot hold

constexpr const char* kTooLong = "This name is 53 characters long; the calendar holds 50.";

TEST_F(FrmDayTest, ANameIsMeasuredWhileItIsTyped) {
  OpenDay();
  day_->Combo1_Change(std::string(53, 'X'));
  EXPECT_EQ(IsLimited() ? kTooLong : "", view_.NameHint);
  day_->Combo1_LostFocus();
  EXPECT_EQ(IsLimited() ? kTooLong : "", view_.NameHint);
  day_->Combo1_Change(std::string(50, 'X'));
  EXPECT_EQ("", view_.NameHint);
}

TEST_F(FrmDayTest, ANameThatIsTooLongBooksNothingUntilItIsShortened) {
  OpenDay();
  if (!IsLimited()) {
    return;
  }
  day_->Combo1_Change(std::string(53, 'X'));
  Click(19);
  EXPECT_EQ("[OK Exclamation] " + std::string(kTooLong), dialogs_.OnlyBox());
  EXPECT_EQ("", Bookings());
  day_->Combo1_Change("Xavier");
  AnswerNext(Answer::Ok);
  Click(19);
  EXPECT_EQ("1 2014-04-06 19-19 Xavier\n", Bookings());
}

TEST_F(FrmDayTest, ItBooksNoSeriesEither) {
  OpenDay();
  if (!IsLimited()) {
    return;
  }
  Plan("4/6/2014", "4/20/2014", {1});
  day_->Combo1_Change(std::string(53, 'X'));
  Click(19);
  EXPECT_EQ("[OK Exclamation] " + std::string(kTooLong), dialogs_.OnlyBox());
  EXPECT_EQ("", Bookings());
}

TEST_F(FrmDayTest, ItSaysWhichFacilityAndWhichWeekdayItBooks) {
  OpenDay("4/5/2014");
  EXPECT_EQ("Pool, Saturday", view_.Heading);
}

}  // namespace
}  // namespace veyra
