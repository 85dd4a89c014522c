#include "data/errors.h"
#include "tests/logic/bookings_fixture.h"

namespace veyra::modRes {
namespace {

/// The renaming of a group of three, under way.
class HaltedRenamingTest : public BookingsFixture {
 protected:
  /// The names of the group's rows, in the order of their dates.
  std::string Names() {
    const std::string rows = folder_.Bookings();
    std::string names;
    for (std::size_t at = 0; (at = rows.find("19-21 ", at)) != std::string::npos; ++at) {
      names += rows.substr(at + 6, rows.find(' ', at + 6) - at - 5);
    }
    return names;
  }
};

TEST_F(HaltedRenamingTest, KeepLeavesWhatIsRenamed) {
  MeanTheGroup();
  faults_.Fail(Statement::Update, 3);
  dialogs_.AnswerNext(Answer::Keep);
  Rename(20, 20, "Band");
  EXPECT_EQ(
      "[Continue/Undo/Keep Critical] 2 of 3 bookings have the new name.\r\n"
      "Then the booking on 4/20/2014 failed:\r\n/desk/Calendar.mdb\r\n"
      "Another program is using the file.\r\nWait until it has finished.",
      dialogs_.Boxes().at(1));
  EXPECT_EQ("[OK Exclamation] 2 Bookings Name Changed.", dialogs_.Boxes().back());
  EXPECT_EQ("Band Band Choir Choir ", Names());
}

TEST_F(HaltedRenamingTest, ContinueRenamesTheRest) {
  MeanTheGroup();
  faults_.Fail(Statement::Update, 2);
  dialogs_.AnswerNext(Answer::Continue);
  Rename(20, 20, "Band");
  EXPECT_EQ("Band Band Band Choir ", Names());
  EXPECT_EQ("[OK Exclamation] 3 Bookings Name Changed.", dialogs_.Boxes().back());
}

TEST_F(HaltedRenamingTest, UndoGivesEveryRowItsOwnOldName) {
  MeanTheGroup();
  RenameElsewhere("SELECT * FROM Reserv", "Solo");
  faults_.Fail(Statement::Update, 3);
  dialogs_.AnswerNext(Answer::Undo);
  Rename(20, 20, "Band");
  EXPECT_EQ("Solo Choir Choir Choir ", Names());
  EXPECT_EQ("[OK Exclamation] The renamed bookings have their old names again.",
            dialogs_.Boxes().back());
  EXPECT_EQ("19 Solo\n20 Solo\n21 Solo\n", Rendered(screens_.Grid));
}

TEST_F(HaltedRenamingTest, AnUndoThatFailsTellsWhatIsStillRenamed) {
  MeanTheGroup();
  faults_.Fail(Statement::Update, 3, 2);
  dialogs_.AnswerNext(Answer::Undo);
  dialogs_.AnswerNext(Answer::Keep);
  Rename(20, 20, "Band");
  EXPECT_EQ("Band Band Choir Choir ", Names());
  EXPECT_EQ("[OK Exclamation] 2 Bookings Name Changed.", dialogs_.Boxes().back());
}

TEST_F(HaltedRenamingTest, AnUncertainRowThatWasRenamedGetsItsOldNameBack) {
  MeanTheGroup();
  faults_.FailWhenDone(Statement::Update, 2, ThrowUnknown);
  dialogs_.AnswerNext(Answer::Undo);
  Rename(20, 20, "Band");
  EXPECT_EQ("Choir Choir Choir Choir ", Names());
}

TEST_F(HaltedRenamingTest, AnUncertainRowThatWasNotRenamedIsRenamedByContinue) {
  MeanTheGroup();
  faults_.Fail(Statement::Update, 2, 1, ThrowUnknown);
  dialogs_.AnswerNext(Answer::Continue);
  Rename(20, 20, "Band");
  EXPECT_EQ("Band Band Band Choir ", Names());
}

TEST_F(HaltedRenamingTest, StopLeadsToTheQuestion) {
  MeanTheGroup();
  dialogs_.EndEarlyAfter(1);
  dialogs_.AnswerNext(Answer::Undo);
  Rename(20, 20, "Band");
  EXPECT_EQ("Choir Choir Choir Choir ", Names());
}

}  // namespace
}  // namespace veyra::modRes
