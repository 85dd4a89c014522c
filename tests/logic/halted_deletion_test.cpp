#include "data/errors.h"
#include "tests/logic/bookings_fixture.h"

namespace veyra::modRes {
namespace {

/// The deletion of a group of three, under way.
class HaltedDeletionTest : public BookingsFixture {};

constexpr const char* kOtherPlace = "2 2014-04-06 19-21 Choir 20140401120000\n";

TEST_F(HaltedDeletionTest, WhatNeverBeganIsReportedAsItIs) {
  MeanTheGroup();
  faults_.Fail(Statement::Delete, 1);
  EXPECT_THROW(Delete(20, 20), DatabaseBusyError);
  EXPECT_EQ(1U, dialogs_.Boxes().size());
}

TEST_F(HaltedDeletionTest, KeepLeavesTheRestAndTheGridShowsIt) {
  MeanTheGroup();
  faults_.Fail(Statement::Delete, 3);
  dialogs_.AnswerNext(Answer::Keep);
  Delete(20, 20);
  EXPECT_EQ(
      "[Continue/Undo/Keep Critical] 2 of 3 bookings are deleted.\r\n"
      "Then the booking on 4/20/2014 failed:\r\n/desk/Calendar.mdb\r\n"
      "Another program is using the file.\r\nWait until it has finished.",
      dialogs_.Boxes().at(1));
  EXPECT_EQ("[OK Exclamation] 2 Bookings Deleted.", dialogs_.Boxes().back());
  EXPECT_EQ("1 2014-04-20 19-21 Choir 20140401120000\n" + std::string(kOtherPlace),
            folder_.Bookings());
  EXPECT_EQ("", Rendered(screens_.Grid));
}

TEST_F(HaltedDeletionTest, ContinueDeletesTheRest) {
  MeanTheGroup();
  faults_.Fail(Statement::Delete, 2, 2);
  dialogs_.AnswerNext(Answer::Continue);
  dialogs_.AnswerNext(Answer::Continue);
  Delete(20, 20);
  EXPECT_EQ(kOtherPlace, folder_.Bookings());
  EXPECT_EQ("[OK Exclamation] 3 Bookings Deleted.", dialogs_.Boxes().back());
}

TEST_F(HaltedDeletionTest, UndoPutsTheRowsBackWithAllTheyHeld) {
  MeanTheGroup();
  faults_.Fail(Statement::Delete, 3);
  dialogs_.AnswerNext(Answer::Undo);
  Delete(20, 20);
  EXPECT_EQ(
      "1 2014-04-06 19-21 Choir 20140401120000\n1 2014-04-13 19-21 Choir 20140401120000\n"
      "1 2014-04-20 19-21 Choir 20140401120000\n" +
          std::string(kOtherPlace),
      folder_.SortedBookings());
  EXPECT_EQ("[OK Exclamation] The deleted bookings have been put back.", dialogs_.Boxes().back());
  EXPECT_EQ("19 Choir\n20 Choir\n21 Choir\n", Rendered(screens_.Grid));
}

TEST_F(HaltedDeletionTest, AnUndoThatFailsTellsWhatIsStillGone) {
  MeanTheGroup();
  faults_.Fail(Statement::Delete, 3);
  faults_.Fail(Statement::Insert, 2);
  dialogs_.AnswerNext(Answer::Undo);
  dialogs_.AnswerNext(Answer::Continue);
  Delete(20, 20);
  EXPECT_EQ(0U, dialogs_.Boxes().at(2).find("[Continue/Undo/Keep Critical] 1 of 3 bookings are "
                                            "deleted.\r\nThen the booking on 4/13/2014 failed:"));
  EXPECT_EQ(kOtherPlace, folder_.Bookings());
  EXPECT_EQ("[OK Exclamation] 3 Bookings Deleted.", dialogs_.Boxes().back());
}

TEST_F(HaltedDeletionTest, ARowThatAnotherProgramChangedIsLeftAlone) {
  MeanTheGroup();
  faults_.Before(Statement::Delete, 2, [this] {
    RenameElsewhere("SELECT * FROM Reserv Where DateOfRes = #4/13/2014#", "Theirs");
  });
  dialogs_.AnswerNext(Answer::Continue);
  Delete(20, 20);
  EXPECT_EQ("1 2014-04-13 19-21 Theirs 20140401120000\n" + std::string(kOtherPlace),
            folder_.Bookings());
  EXPECT_EQ(
      "[OK Exclamation] 2 Bookings Deleted.\r\nLeft alone because another program has changed "
      "them: 1.",
      dialogs_.Boxes().back());
}

TEST_F(HaltedDeletionTest, AnUncertainRowThatWentIsCountedAndPutBack) {
  MeanTheGroup();
  faults_.FailWhenDone(Statement::Delete, 2, ThrowUnknown);
  dialogs_.AnswerNext(Answer::Undo);
  Delete(20, 20);
  EXPECT_EQ(0U, dialogs_.Boxes().at(1).find("[Continue/Undo/Keep Critical] 2 of 3 bookings"));
  EXPECT_EQ(
      "1 2014-04-06 19-21 Choir 20140401120000\n1 2014-04-13 19-21 Choir 20140401120000\n"
      "1 2014-04-20 19-21 Choir 20140401120000\n" +
          std::string(kOtherPlace),
      folder_.SortedBookings());
}

TEST_F(HaltedDeletionTest, ARowThatWasPutBackForCertainOrNotIsDeletedByContinue) {
  MeanTheGroup();
  faults_.Fail(Statement::Delete, 3);
  faults_.FailWhenDone(Statement::Insert, 1, ThrowUnknown);
  dialogs_.AnswerNext(Answer::Undo);
  dialogs_.AnswerNext(Answer::Continue);
  Delete(20, 20);
  EXPECT_EQ(kOtherPlace, folder_.Bookings());
}

TEST_F(HaltedDeletionTest, StopLeadsToTheQuestion) {
  MeanTheGroup();
  dialogs_.EndEarlyAfter(1);
  dialogs_.AnswerNext(Answer::Continue);
  Delete(20, 20);
  EXPECT_EQ("[Continue/Undo/Keep Question] 1 of 3 bookings are deleted.\r\nYou stopped it there.",
            dialogs_.Boxes().at(1));
  EXPECT_EQ(kOtherPlace, folder_.Bookings());
}

TEST_F(HaltedDeletionTest, WhatWasDoneIsToldEvenWhenTheGridCannotBeRead) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "Smith");
  Desk();
  faults_.Before(Statement::Delete, 1, [this] { faults_.Fail(Statement::Select, 1, 1000); });
  EXPECT_THROW(Delete(20, 20), DatabaseBusyError);
  EXPECT_EQ("[OK Exclamation] Booking Deleted.", dialogs_.OnlyBox());
}

}  // namespace
}  // namespace veyra::modRes
