#include "tests/forms/day_fixture.h"

namespace veyra {
namespace {

/// The mode for several days.
class DaySeriesTest : public DayFixture {};

TEST_F(DaySeriesTest, MultipleBookingHandsOverToTheMultipleDayWindow) {
  OpenDay();
  day_->Book_Click(1);
  EXPECT_EQ("disable day\nshow several days from 4/6/2014\n", windows_.Log);
}

TEST_F(DaySeriesTest, ADoubleClickHandsOverToo) {
  OpenDay();
  day_->Book_DblClick(1);
  EXPECT_EQ("disable day\nshow several days from 4/6/2014\n", windows_.Log);
}

TEST_F(DaySeriesTest, SingleBookingHandsOverNothing) {
  OpenDay();
  day_->Book_Click(0);
  EXPECT_EQ("", windows_.Log);
}

TEST_F(DaySeriesTest, SeveralDaysAreAskedForWithBothDateTexts) {
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

TEST_F(DaySeriesTest, ConflictsAreToldBeforeTheQuestion) {
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

TEST_F(DaySeriesTest, APlanWithoutADateAsksNothing) {
  OpenDay();
  Plan("4/20/2014", "4/6/2014", {1});
  Drag(19, 21);
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(DaySeriesTest, AfterAMultipleBookingTheGridStillShowsTheDayAsFree) {
  OpenDay();
  Plan("4/6/2014", "4/6/2014", {1});
  AnswerNext(Answer::Ok);
  Drag(19, 21);
  EXPECT_EQ("", Grid());
  OpenDay();
  EXPECT_EQ("19 No Title\n20 No Title\n21 No Title\n", Grid());
}

// An Access calendar books more than a hundred dates of a series at a time.
TEST_F(DaySeriesTest, AfterAStoppedSeriesTheGridShowsWhatIsBooked) {
  OpenDay();
  Plan("4/6/2014", "3/5/2017", {1});
  AnswerNext(Answer::Ok);
  AnswerNext(Answer::Keep);
  dialogs_.WhileShown = [&] {
    if (dialogs_.LastMessage().Choice == Buttons::OkCancel) {
      dialogs_.EndEarlyAfter(135);
    }
  };
  Drag(19, 19);
  EXPECT_EQ("19 No Title\n", Grid());
  EXPECT_EQ((modRes::DayLines{" 9:00A- 9:30A No Title"}), screens_.Picture.Cells[8].Lines);
}

TEST_F(DaySeriesTest, AfterAMultipleBookingAnotherOnTheSameRowsFindsTheConflict) {
  OpenDay();
  Plan("4/6/2014", "4/6/2014", {1});
  AnswerNext(Answer::Ok);
  Drag(19, 21);
  Drag(19, 21);
  EXPECT_EQ("[OK Exclamation] Due to other Booking Conflicts, none of these Bookings can be made.",
            dialogs_.Boxes().back());
}

TEST_F(DaySeriesTest, ChoosingSingleBookingAfterAMultipleBookingFillsTheGridAgain) {
  OpenDay();
  Plan("4/6/2014", "4/6/2014", {1});
  AnswerNext(Answer::Ok);
  Drag(19, 21);
  EXPECT_EQ("", Grid());
  day_->Book_Click(0);
  EXPECT_EQ("19 No Title\n20 No Title\n21 No Title\n", Grid());
}

TEST_F(DaySeriesTest, AfterAMultipleBookingTheSingleModeTrustsTheGrid) {
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

}  // namespace
}  // namespace veyra
