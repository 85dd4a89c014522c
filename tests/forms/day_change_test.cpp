#include "tests/forms/day_fixture.h"

namespace veyra {
namespace {

/// A click on a row that is booked.
class DayChangeTest : public DayFixture {};

TEST_F(DayChangeTest, TwoBookedRowsAreRefusedEvenOfOneBooking) {
  folder_.AddBooking(1, "2014-04-06", 19, 20, "Smith");
  OpenDay();
  Drag(18, 21);
  EXPECT_EQ("[OK Critical] There is already a Booking on 2 of the Time Slot(s).",
            dialogs_.OnlyBox());
}

TEST_F(DayChangeTest, ABookedRowAsksToDeleteThenToRename) {
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

TEST_F(DayChangeTest, TheQuestionsTellWhatTheyTouchAndEnterDeletesNothing) {
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

TEST_F(DayChangeTest, OfTwoBookingsInASlotTheOneNamedIsDeleted) {
  folder_.AddBooking(1, "2014-04-06", 19, 20, "below");
  folder_.AddBooking(1, "2014-04-06", 19, 20, "above");
  OpenDay();
  AnswerNext(Answer::Yes);
  Click(19);
  EXPECT_EQ("[Yes/No Critical] Do You wand to Delete this Booking for above?", Question());
  EXPECT_EQ("1 2014-04-06 19-20 below\n", Bookings());
}

TEST_F(DayChangeTest, ABookingIsSeenBehindItsReport) {
  OpenDay();
  AnswerNext(Answer::Ok);
  std::string seen;
  dialogs_.WhileShown = [&] { seen = Grid(); };
  Click(19);
  EXPECT_EQ("19 No Title\n", seen);
}

TEST_F(DayChangeTest, YesDeletesTheWholeBookingAndTheGridShowsIt) {
  folder_.AddBooking(1, "2014-04-06", 19, 21, "Smith");
  folder_.AddBooking(1, "2014-04-06", 30, 30, "Jones");
  OpenDay();
  AnswerNext(Answer::Yes);
  Click(20);
  EXPECT_EQ("1 2014-04-06 30-30 Jones\n", Bookings());
  EXPECT_EQ("30 Jones\n", Grid());
}

TEST_F(DayChangeTest, ANameThatTurnsTheDirectionIsSetApartInQuestions) {
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

TEST_F(DayChangeTest, ASelectionWhoseBookedRowIsNotItsFirstAsksForAnEmptyName) {
  folder_.AddBooking(1, "2014-04-06", 20, 20, "Smith");
  OpenDay();
  AnswerNext(Answer::Yes);
  Drag(19, 20);
  EXPECT_EQ(
      (Boxes{"[Yes/No Critical] Do You wand to Delete this Booking for ?", "[OK Exclamation] "}),
      dialogs_.Boxes());
  EXPECT_EQ("20 Smith\n", Grid());
}

TEST_F(DayChangeTest, RenamingOffersTheOldNameAndShowsTheNewOneOnEveryRow) {
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

TEST_F(DayChangeTest, AnEmptyNewNameRenamesNothing) {
  folder_.AddBooking(1, "2014-04-06", 19, 19, "Smith");
  OpenDay();
  AnswerNext(Answer::No);
  AnswerNext(Answer::Yes);
  dialogs_.TypeNext("");
  Click(19);
  EXPECT_EQ(3U, dialogs_.Boxes().size());
  EXPECT_EQ("1 2014-04-06 19-19 Smith\n", Bookings());
}

TEST_F(DayChangeTest, RenamingWhatIsNotFoundShowsTheNameOnTheSelectedRows) {
  folder_.AddBooking(1, "2014-04-06", 20, 20, "Smith");
  OpenDay();
  AnswerNext(Answer::No);
  AnswerNext(Answer::Yes);
  dialogs_.TypeNext("ghost");
  Drag(19, 20);
  EXPECT_EQ("19 ghost\n20 ghost\n", Grid());
  EXPECT_EQ("1 2014-04-06 20-20 Smith\n", Bookings());
}

}  // namespace
}  // namespace veyra
