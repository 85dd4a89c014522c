#include "data/errors.h"
#include "tests/logic/bookings_fixture.h"

namespace veyra::modRes {
namespace {

/// Rows of one action, which are flushed together.
class FlushedTogetherTest : public BookingsFixture {
 protected:
  void BookSundays() { BookSeveral("Choir", 19, 21, "4/6/2014", "5/4/2014", {1}); }

  static void ThrowDiskFailed() {
    throw OutcomeUnknownError({"/desk/Calendar.mdb", "The disk failed.", "Look."});
  }

  /// The first flush of an action is the one before it, which has nothing to do.
  static constexpr int kFlushOfRows = 2;
};

constexpr const char* kNotKnown =
    "[Continue/Undo/Keep Critical] 0 of 5 dates are booked.\r\n"
    "It is not known what became of the booking on 4/6/2014 and 4 others. Look at them in the "
    "calendar.\r\nThen saving them on the disk failed:\r\n/desk/Calendar.mdb\r\nThe disk failed.";

TEST_F(FlushedTogetherTest, WhatIsNotFlushedIsNotKnownThoughItCanBeRead) {
  Desk();
  faults_.Fail(Statement::Flush, kFlushOfRows, 1000, ThrowDiskFailed);
  dialogs_.AnswerNext(Answer::Keep);
  BookSundays();
  EXPECT_EQ(kNotKnown, dialogs_.Boxes().front());
  EXPECT_EQ(
      "[OK Exclamation] 0 Booking(s) Made.\r\nIt is not known what became of the booking on "
      "4/6/2014 and 4 others. Look at them in the calendar.",
      dialogs_.Boxes().back());
}

TEST_F(FlushedTogetherTest, ContinueFlushesWhatWasMade) {
  Desk();
  faults_.Fail(Statement::Flush, kFlushOfRows, 1, ThrowDiskFailed);
  dialogs_.AnswerNext(Answer::Continue);
  BookSundays();
  EXPECT_EQ((Boxes{kNotKnown, "[OK Exclamation] 5 Booking(s) Made."}), dialogs_.Boxes());
}

TEST_F(FlushedTogetherTest, UndoTakesBackWhatWasMade) {
  Desk();
  faults_.Fail(Statement::Flush, kFlushOfRows, 1, ThrowDiskFailed);
  dialogs_.AnswerNext(Answer::Undo);
  BookSundays();
  EXPECT_EQ((Boxes{kNotKnown,
                   "[OK Exclamation] The bookings that were made have been deleted "
                   "again."}),
            dialogs_.Boxes());
  EXPECT_EQ("", folder_.Bookings());
}

TEST_F(FlushedTogetherTest, AHaltIsToldOfOnceWhatWasMadeIsFlushed) {
  Desk();
  bool is_flushed = false;
  faults_.Fail(Statement::Insert, 3);
  faults_.Before(Statement::Flush, kFlushOfRows, [&] { is_flushed = true; });
  dialogs_.WhileShown = [&] { EXPECT_TRUE(is_flushed); };
  dialogs_.AnswerNext(Answer::Keep);
  BookSundays();
  EXPECT_EQ(2U, dialogs_.Boxes().size());
}

/// Where rows are deleted many at a time, one that another program has changed keeps its neighbours
/// from nothing.
TEST_F(FlushedTogetherTest, OneForeignRowAmongManyIsLeftAlone) {
  MeanTheGroup();
  faults_.AddTogether(TestedStoreKind() == StoreKind::Access ? 128 : 1);
  faults_.Before(Statement::Delete, 1, [this] {
    RenameElsewhere("SELECT * FROM Reserv Where DateOfRes = #4/13/2014#", "Theirs");
  });
  dialogs_.AnswerNext(Answer::Continue);
  Delete(20, 20);
  EXPECT_EQ(
      "[OK Exclamation] 2 Bookings Deleted.\r\n"
      "Left alone because another program has changed them: 1.",
      dialogs_.Boxes().back());
  EXPECT_EQ("1 2014-04-13 19-21 Theirs 20140401120000\n2 2014-04-06 19-21 Choir 20140401120000\n",
            folder_.SortedBookings());
}

TEST_F(FlushedTogetherTest, ManyAreRenamedAtATimeAndGetTheirNamesBack) {
  MeanTheGroup();
  faults_.AddTogether(TestedStoreKind() == StoreKind::Access ? 2 : 1);
  faults_.Fail(Statement::Update, TestedStoreKind() == StoreKind::Access ? 2 : 3);
  dialogs_.AnswerNext(Answer::Undo);
  const std::string before = folder_.Bookings();
  Rename(20, 20, "Orchestra");
  EXPECT_EQ(0U, dialogs_.Boxes().at(1).find(
                    "[Continue/Undo/Keep Critical] 2 of 3 bookings have the new name.\r\n"
                    "Then the booking on 4/20/2014 failed:"));
  EXPECT_EQ(before, folder_.Bookings());
}

}  // namespace
}  // namespace veyra::modRes
