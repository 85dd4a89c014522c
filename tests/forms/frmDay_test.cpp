#include "forms/day/frmDay.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

#include "logic/date_parser.h"
#include "tests/calendar_folder.h"
#include "tests/fake_clock.h"
#include "tests/fake_dialogs.h"
#include "tests/forms/fake_day_view.h"
#include "tests/forms/fake_windows.h"
#include "tests/logic/fake_screens.h"

namespace veyra {
namespace {

using Boxes = std::vector<std::string>;

class FrmDayTest : public testing::Test {
 protected:
  FrmDayTest() {
    folder_.AddRoom("Pool", true);
    folder_.AddGuest(std::string("Ann"));
  }

  void OpenDay(const std::string& day = "4/6/2014") {
    if (!session_) {
      session_ = folder_.OpenSession();
    }
    session_->CurRmID = 1;
    session_->CurMonth = 4;
    session_->CurYear = 2014;
    session_->CurrentColors = {"0", "0", "0", "0", "0"};
    session_->DayDate = ParseDate(day, clock_.Today()).value();
    session_->DayCellIndex = 8;
    day_ = std::make_unique<frmDay>(*session_, view_, modRes::Listings{screens_, screens_, clock_},
                                    plan_, windows_, dialogs_);
    day_->Form_Load();
  }

  void Drag(int pressed, int released) {
    day_->MSFlexGrid1_MouseDown(pressed, 1);
    day_->MSFlexGrid1_Click(released, 1);
  }
  void Click(int row) { Drag(row, row); }

  static bool IsLimited() { return TestedStoreKind() == StoreKind::Access; }
  void AnswerNext(Answer answer) { dialogs_.AnswerNext(answer); }
  std::string Question() const { return dialogs_.Boxes().empty() ? "" : dialogs_.Boxes().front(); }
  std::string Bookings() { return folder_.Bookings(); }
  std::string Grid() const { return Rendered(view_.MSFlexGrid1); }

  /// As if the multiple-day window had been closed with this plan.
  void Plan(const std::string& from, const std::string& to, std::vector<std::size_t> weekdays) {
    plan_ = {{from, to}, {}};
    for (const std::size_t weekday : weekdays) {
      plan_.Days[weekday] = true;
    }
    session_->PlannedDayCount =
        modRes::CountPlannedDates(modRes::RangeOfPlan(plan_, clock_.Today()));
    day_->Book_Click(1);
  }

  CalendarFolder folder_;
  FakeClock clock_{2014, 4, 1};
  FakeDialogs dialogs_;
  FakeWindows windows_;
  FakeScreens screens_;
  FakeDayView view_;
  MultiDayPlan plan_;
  std::unique_ptr<Session> session_;
  std::unique_ptr<frmDay> day_;
};

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
  session_->DayOpener = 2;
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

TEST_F(FrmDayTest, TwoBookedRowsAreRefusedEvenOfOneBooking) {
  folder_.AddBooking(1, "2014-04-06", 19, 20, "Smith");
  OpenDay();
  Drag(18, 21);
  EXPECT_EQ("[OK Critical] There is already a Booking on 2 of the Time Slot(s).",
            dialogs_.OnlyBox());
}

TEST_F(FrmDayTest, ABookedRowAsksToDeleteThenToRename) {
  folder_.AddBooking(1, "2014-04-06", 19, 19, "Smith");
  OpenDay();
  AnswerNext(Answer::No);
  AnswerNext(Answer::No);
  Click(19);
  EXPECT_EQ((Boxes{"[Yes/No Critical] Do You wand to Delete this Booking for Smith?",
                   "[Yes/No Exclamation] Do You wand to Edit the Booking Name of Smith?"}),
            dialogs_.Boxes());
  EXPECT_EQ("1 2014-04-06 19-19 Smith\n", Bookings());
}

TEST_F(FrmDayTest, TheQuestionsTellWhatTheyTouchAndEnterDeletesNothing) {
  folder_.AddBooking(1, "2014-04-06", 19, 19, "Smith");
  OpenDay();
  std::vector<Message> questions;
  dialogs_.WhileShown = [&] { questions.push_back(dialogs_.LastMessage()); };
  AnswerNext(Answer::No);
  AnswerNext(Answer::No);
  Click(19);
  ASSERT_EQ(2U, questions.size());
  EXPECT_EQ("Pool, Sunday 4/6/2014, 9:00A- 9:30A", questions[0].Details);
  EXPECT_EQ(Answer::No, questions[0].Default);
  EXPECT_EQ("Pool, Sunday 4/6/2014, 9:00A- 9:30A", questions[1].Details);
}

TEST_F(FrmDayTest, OfTwoBookingsInASlotTheOneNamedIsDeleted) {
  folder_.AddBooking(1, "2014-04-06", 19, 20, "below");
  folder_.AddBooking(1, "2014-04-06", 19, 20, "above");
  OpenDay();
  AnswerNext(Answer::Yes);
  Click(19);
  EXPECT_EQ("[Yes/No Critical] Do You wand to Delete this Booking for above?", Question());
  EXPECT_EQ("1 2014-04-06 19-20 below\n", Bookings());
}

TEST_F(FrmDayTest, ABookingIsSeenBehindItsReport) {
  OpenDay();
  AnswerNext(Answer::Ok);
  std::string seen;
  dialogs_.WhileShown = [&] { seen = Grid(); };
  Click(19);
  EXPECT_EQ("19 No Title\n", seen);
}

TEST_F(FrmDayTest, YesDeletesTheWholeBookingAndTheGridShowsIt) {
  folder_.AddBooking(1, "2014-04-06", 19, 21, "Smith");
  folder_.AddBooking(1, "2014-04-06", 30, 30, "Jones");
  OpenDay();
  AnswerNext(Answer::Yes);
  Click(20);
  EXPECT_EQ("1 2014-04-06 30-30 Jones\n", Bookings());
  EXPECT_EQ("30 Jones\n", Grid());
}

TEST_F(FrmDayTest, ANameThatTurnsTheDirectionIsSetApartInQuestions) {
  const std::string name = "Smith \u202Ethe other way";
  const std::string apart = "\u2068" + name + "\u2069";
  folder_.AddBooking(1, "2014-04-06", 19, 19, name);
  OpenDay();
  AnswerNext(Answer::No);
  AnswerNext(Answer::No);
  Click(19);
  EXPECT_EQ((Boxes{"[Yes/No Critical] Do You wand to Delete this Booking for " + apart + "?",
                   "[Yes/No Exclamation] Do You wand to Edit the Booking Name of " + apart + "?"}),
            dialogs_.Boxes());
  EXPECT_EQ("1 2014-04-06 19-19 " + name + "\n", Bookings());
}

TEST_F(FrmDayTest, ASelectionWhoseBookedRowIsNotItsFirstAsksForAnEmptyName) {
  folder_.AddBooking(1, "2014-04-06", 20, 20, "Smith");
  OpenDay();
  AnswerNext(Answer::Yes);
  Drag(19, 20);
  EXPECT_EQ(
      (Boxes{"[Yes/No Critical] Do You wand to Delete this Booking for ?", "[OK Exclamation] "}),
      dialogs_.Boxes());
  EXPECT_EQ("20 Smith\n", Grid());
}

TEST_F(FrmDayTest, RenamingOffersTheOldNameAndShowsTheNewOneOnEveryRow) {
  folder_.AddBooking(1, "2014-04-06", 19, 21, "Smith");
  OpenDay();
  AnswerNext(Answer::No);
  AnswerNext(Answer::Yes);
  dialogs_.TypeNext("Jones");
  Click(20);
  EXPECT_EQ("[Input Booking Name] Enter a New Booking Name (Limited to 50 Characters) (Smith)",
            dialogs_.Boxes()[2]);
  EXPECT_EQ("1 2014-04-06 19-21 Jones\n", Bookings());
  EXPECT_EQ("19 Jones\n20 Jones\n21 Jones\n", Grid());
}

TEST_F(FrmDayTest, AnEmptyNewNameRenamesNothing) {
  folder_.AddBooking(1, "2014-04-06", 19, 19, "Smith");
  OpenDay();
  AnswerNext(Answer::No);
  AnswerNext(Answer::Yes);
  dialogs_.TypeNext("");
  Click(19);
  EXPECT_EQ(3U, dialogs_.Boxes().size());
  EXPECT_EQ("1 2014-04-06 19-19 Smith\n", Bookings());
}

TEST_F(FrmDayTest, RenamingWhatIsNotFoundShowsTheNameOnTheSelectedRows) {
  folder_.AddBooking(1, "2014-04-06", 20, 20, "Smith");
  OpenDay();
  AnswerNext(Answer::No);
  AnswerNext(Answer::Yes);
  dialogs_.TypeNext("ghost");
  Drag(19, 20);
  EXPECT_EQ("19 ghost\n20 ghost\n", Grid());
  EXPECT_EQ("1 2014-04-06 20-20 Smith\n", Bookings());
}

TEST_F(FrmDayTest, MultipleBookingHandsOverToTheMultipleDayWindow) {
  OpenDay();
  day_->Book_Click(1);
  EXPECT_EQ("disable day\nshow several days from 4/6/2014\n", windows_.Log);
}

TEST_F(FrmDayTest, ADoubleClickHandsOverToo) {
  OpenDay();
  day_->Book_DblClick(1);
  EXPECT_EQ("disable day\nshow several days from 4/6/2014\n", windows_.Log);
}

TEST_F(FrmDayTest, SingleBookingHandsOverNothing) {
  OpenDay();
  day_->Book_Click(0);
  EXPECT_EQ("", windows_.Log);
}

TEST_F(FrmDayTest, SeveralDaysAreAskedForWithBothDateTexts) {
  OpenDay();
  Plan("4/6/2014", "4/20/2014", {1});
  AnswerNext(Answer::Cancel);
  Drag(19, 21);
  EXPECT_EQ(
      "[OK/Cancel Question] Reservation for No Title From  9:00A To 10:30A\r\n"
      "for 3 Booking(s) between 4/6/2014 and 4/20/2014\r\n"
      "Select OK to Book or Cancel to Cancel",
      dialogs_.OnlyBox());
  EXPECT_EQ("", Bookings());
}

TEST_F(FrmDayTest, ConflictsAreToldBeforeTheQuestion) {
  folder_.AddBooking(1, "2014-04-13", 20, 20, "taken");
  OpenDay();
  Plan("4/6/2014", "4/20/2014", {1});
  AnswerNext(Answer::Ok);
  Drag(19, 20);
  EXPECT_EQ((Boxes{"[OK Exclamation] There are 1 Conflicts.\r\nSunday - 4/13/2014\r\nAll that will "
                   "be set are the remaining 2 Bookings without Conflicts.",
                   "[OK/Cancel Question] Reservation for No Title From  9:00A To 10:00A\r\n"
                   "for 2 Booking(s) between 4/6/2014 and 4/20/2014\r\n"
                   "Select OK to Book or Cancel to Cancel",
                   "[OK Exclamation] 2 Booking(s) Made."}),
            dialogs_.Boxes());
}

TEST_F(FrmDayTest, APlanWithoutADateAsksNothing) {
  OpenDay();
  Plan("4/20/2014", "4/6/2014", {1});
  Drag(19, 21);
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(FrmDayTest, AfterAMultipleBookingTheGridStillShowsTheDayAsFree) {
  OpenDay();
  Plan("4/6/2014", "4/6/2014", {1});
  AnswerNext(Answer::Ok);
  Drag(19, 21);
  EXPECT_EQ("", Grid());
  OpenDay();
  EXPECT_EQ("19 No Title\n20 No Title\n21 No Title\n", Grid());
}

TEST_F(FrmDayTest, AfterAStoppedSeriesTheGridShowsWhatIsBooked) {
  OpenDay();
  Plan("4/6/2014", "4/20/2014", {1});
  AnswerNext(Answer::Ok);
  AnswerNext(Answer::Keep);
  dialogs_.WhileShown = [&] {
    if (dialogs_.LastMessage().Choice == Buttons::OkCancel) dialogs_.EndEarlyAfter(1);
  };
  Drag(19, 19);
  EXPECT_EQ("19 No Title\n", Grid());
  EXPECT_EQ((modRes::DayLines{" 9:00A- 9:30A No Title"}), screens_.Picture.Cells[8].Lines);
}

TEST_F(FrmDayTest, AfterAMultipleBookingAnotherOnTheSameRowsFindsTheConflict) {
  OpenDay();
  Plan("4/6/2014", "4/6/2014", {1});
  AnswerNext(Answer::Ok);
  Drag(19, 21);
  Drag(19, 21);
  EXPECT_EQ("[OK Exclamation] Due to other Booking Conflicts, none of these Bookings can be made.",
            dialogs_.Boxes().back());
}

TEST_F(FrmDayTest, AfterAMultipleBookingTheSingleModeTrustsTheGrid) {
  OpenDay();
  Plan("4/6/2014", "4/6/2014", {1});
  AnswerNext(Answer::Ok);
  Drag(19, 21);
  day_->SelectSingleBooking();
  AnswerNext(Answer::Ok);
  Drag(19, 21);
  EXPECT_EQ("1 2014-04-06 19-21 No Title 20140401120000\n1 2014-04-06 19-21 No Title\n",
            Bookings());
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
  session_->DayOpener = 2;
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

}  // namespace
}  // namespace veyra
