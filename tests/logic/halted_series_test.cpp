#include <map>

#include "data/errors.h"
#include "tests/logic/bookings_fixture.h"

namespace veyra::modRes {
namespace {

/// A series of five Sundays, 6 April to 4 May 2014, that does not come to its end at once.
class HaltedSeriesTest : public BookingsFixture {
 protected:
  void BookSundays() { BookSeveral("Choir", 19, 21, "4/6/2014", "5/4/2014", {1}); }

  /// The dates booked, each with the group key when it is not that of the series.
  std::string Booked() {
    std::string days;
    for (const Row& row : Rows_()) {
      days += DateText(ToDate(row.Values.at(2)).value()) + " ";
    }
    return days;
  }

  std::vector<Row> Rows_() {
    const auto store = folder_.Calendar();
    const auto source = store->Select(ParseQuery("SELECT * FROM Reserv Order By DateOfRes"));
    std::vector<Row> rows;
    for (Row row; source->Next(row); row = Row()) {
      rows.push_back(row);
    }
    return rows;
  }

  std::size_t GroupKeys() {
    std::map<std::string, int> keys;
    for (const Row& row : Rows_()) {
      ++keys[ToText(row.Values.at(5))];
    }
    return keys.size();
  }
};

constexpr const char* kAllSundays = "4/6/2014 4/13/2014 4/20/2014 4/27/2014 5/4/2014 ";

TEST_F(HaltedSeriesTest, WhatNeverBeganIsReportedAsItIs) {
  Desk();
  faults_.Fail(Statement::Insert, 1);
  EXPECT_THROW(BookSundays(), DatabaseBusyError);
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(HaltedSeriesTest, AHaltTellsHowManyAreBookedAndWhichDateFailed) {
  Desk();
  faults_.Fail(Statement::Insert, 3);
  dialogs_.AnswerNext(Answer::Keep);
  BookSundays();
  EXPECT_EQ((Boxes{"[Continue/Undo/Keep Critical] 2 of 5 dates are booked.\r\n"
                   "Then the booking on 4/20/2014 failed:\r\n/desk/Calendar.mdb\r\n"
                   "Another program is using the file.\r\nWait until it has finished.",
                   "[OK Exclamation] 2 Booking(s) Made."}),
            dialogs_.Boxes());
  EXPECT_EQ("4/6/2014 4/13/2014 ", Booked());
}

TEST_F(HaltedSeriesTest, TheQuestionSaysWhatEachAnswerDoesAndEnterChangesNothing) {
  Desk();
  faults_.Fail(Statement::Insert, 3);
  dialogs_.AnswerNext(Answer::Keep);
  Message question;
  dialogs_.WhileShown = [&] {
    if (question.Text.IsEmpty()) {
      question = dialogs_.LastMessage();
    }
  };
  BookSundays();
  EXPECT_EQ(
      "Continue books the other dates, as a part of the same group.\r\n"
      "Undo deletes the bookings that were made.\r\nKeep leaves everything as it is now.",
      question.Details);
  EXPECT_EQ(Answer::Keep, question.Default);
}

TEST_F(HaltedSeriesTest, ContinueBooksTheRestOfThePlanWithTheSameKey) {
  Desk();
  faults_.Fail(Statement::Insert, 3);
  dialogs_.AnswerNext(Answer::Continue);
  BookSundays();
  EXPECT_EQ(kAllSundays, Booked());
  EXPECT_EQ(1U, GroupKeys());
  EXPECT_EQ("[OK Exclamation] 5 Booking(s) Made.", dialogs_.Boxes().back());
}

TEST_F(HaltedSeriesTest, TheKeyStaysThoughTimePassesWhileTheQuestionStands) {
  Desk();
  faults_.Fail(Statement::Insert, 3);
  dialogs_.AnswerNext(Answer::Continue);
  dialogs_.WhileShown = [&] { clock_.SetTime(17, 0, 0); };
  BookSundays();
  EXPECT_EQ(1U, GroupKeys());
}

TEST_F(HaltedSeriesTest, ContinueMayFailAgain) {
  Desk();
  faults_.Fail(Statement::Insert, 3, 2);
  dialogs_.AnswerNext(Answer::Continue);
  dialogs_.AnswerNext(Answer::Continue);
  BookSundays();
  EXPECT_EQ(kAllSundays, Booked());
  EXPECT_EQ(3U, dialogs_.Boxes().size());
}

TEST_F(HaltedSeriesTest, UndoTakesTheRowsOfThisSeriesBackAndNoOther) {
  folder_.AddBooking(pool_, "2014-04-06", 30, 31, "Choir", 20140406120000.0);
  Desk();
  faults_.Fail(Statement::Insert, 3);
  dialogs_.AnswerNext(Answer::Undo);
  BookSundays();
  EXPECT_EQ("1 2014-04-06 30-31 Choir 20140406120000\n", folder_.Bookings());
  EXPECT_EQ("[OK Exclamation] The bookings that were made have been deleted again.",
            dialogs_.Boxes().back());
}

TEST_F(HaltedSeriesTest, AnUndoThatFailsTellsWhatIsStillThere) {
  Desk();
  faults_.Fail(Statement::Insert, 4);
  faults_.Fail(Statement::Delete, 2);
  dialogs_.AnswerNext(Answer::Undo);
  dialogs_.AnswerNext(Answer::Keep);
  BookSundays();
  EXPECT_EQ("4/13/2014 4/20/2014 ", Booked());
  EXPECT_EQ(0U,
            dialogs_.Boxes().at(1).find("[Continue/Undo/Keep Critical] 2 of 5 dates are booked.\r\n"
                                        "Then the booking on 4/13/2014 failed:"));
  EXPECT_EQ("[OK Exclamation] 2 Booking(s) Made.", dialogs_.Boxes().back());
}

TEST_F(HaltedSeriesTest, AfterHalfAnUndoContinueBooksAllThatIsMissing) {
  Desk();
  faults_.Fail(Statement::Insert, 4);
  faults_.Fail(Statement::Delete, 2);
  dialogs_.AnswerNext(Answer::Undo);
  dialogs_.AnswerNext(Answer::Continue);
  BookSundays();
  EXPECT_EQ(kAllSundays, Booked());
  EXPECT_EQ("[OK Exclamation] 5 Booking(s) Made.", dialogs_.Boxes().back());
}

TEST_F(HaltedSeriesTest, AfterHalfAnUndoASecondOneTakesTheRestBack) {
  Desk();
  faults_.Fail(Statement::Insert, 4);
  faults_.Fail(Statement::Delete, 2);
  dialogs_.AnswerNext(Answer::Undo);
  dialogs_.AnswerNext(Answer::Undo);
  BookSundays();
  EXPECT_EQ("", folder_.Bookings());
}

TEST_F(HaltedSeriesTest, ABookingThatAnotherProgramRenamedIsNotTakenBack) {
  Desk();
  faults_.Fail(Statement::Insert, 3);
  dialogs_.AnswerNext(Answer::Undo);
  dialogs_.AnswerNext(Answer::Undo);
  dialogs_.WhileShown = [&] {
    if (dialogs_.Boxes().size() == 1) {
      RenameElsewhere("SELECT * FROM Reserv", "Theirs");
    }
  };
  BookSundays();
  EXPECT_EQ("1 2014-04-06 19-21 Theirs 20140406120000\n", folder_.Bookings());
  EXPECT_EQ(
      "[OK Exclamation] The bookings that were made have been deleted again.\r\nLeft alone because "
      "another program has changed them: 1.",
      dialogs_.Boxes().back());
}

TEST_F(HaltedSeriesTest, DatesThatAreTakenAreToldInTheQuestion) {
  folder_.AddBooking(hall_, "2014-04-13", 19, 19, "Dance");
  Desk();
  faults_.Fail(Statement::Insert, 2);
  dialogs_.AnswerNext(Answer::Keep);
  BookSundays();
  EXPECT_EQ(0U, dialogs_.Boxes().front().find(
                    "[Continue/Undo/Keep Critical] 1 of 5 dates are booked.\r\nLeft out because "
                    "something else is booked then: 1.\r\nThen the booking on 4/20/2014 failed:"));
}

TEST_F(HaltedSeriesTest, ALookForAClashThatFailsHaltsToo) {
  Desk();
  faults_.Fail(Statement::Select, 2);
  dialogs_.AnswerNext(Answer::Continue);
  BookSundays();
  EXPECT_EQ(kAllSundays, Booked());
}

/// Nothing can be continued or taken back then: the program is to offer to open the file anew.
TEST_F(HaltedSeriesTest, AFileThatIsReplacedMeanwhileEndsTheSeriesAtOnce) {
  Desk();
  faults_.Fail(Statement::Insert, 3, 1, [] {
    throw FileReplacedError({"/desk/Calendar.mdb", "The file was replaced by another one.",
                             "Open it anew.", "Nothing was saved."});
  });
  try {
    BookSundays();
    FAIL() << "the series went on";
  } catch (const FileReplacedError& error) {
    EXPECT_EQ("The file was replaced by another one.", error.report().Cause);
    EXPECT_EQ("In the file that was open until now 2 of 5 dates are booked.",
              error.report().Effect);
  }
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(HaltedSeriesTest, StopLeadsToTheQuestion) {
  dialogs_.EndEarlyAfter(2);
  dialogs_.AnswerNext(Answer::Undo);
  BookSundays();
  EXPECT_EQ("[Continue/Undo/Keep Question] 2 of 5 dates are booked.\r\nYou stopped it there.",
            dialogs_.Boxes().front());
  EXPECT_EQ("", folder_.Bookings());
}

TEST_F(HaltedSeriesTest, StoppedBeforeTheFirstRowNothingIsAsked) {
  dialogs_.EndEarlyAfter(0);
  BookSundays();
  EXPECT_EQ("[OK Exclamation] 0 Booking(s) Made.", dialogs_.OnlyBox());
}

TEST_F(HaltedSeriesTest, AnUncertainRowThatWasSavedIsFoundAndCounted) {
  Desk();
  faults_.FailWhenDone(Statement::Insert, 3, ThrowUnknown);
  dialogs_.AnswerNext(Answer::Continue);
  BookSundays();
  EXPECT_EQ(0U, dialogs_.Boxes().front().find(
                    "[Continue/Undo/Keep Critical] 3 of 5 dates are booked.\r\n"
                    "Then the booking on 4/20/2014 failed, but was saved all the same:\r\n"
                    "/desk/Calendar.mdb\r\nThe disk failed in the commit."));
  EXPECT_EQ(std::string::npos, dialogs_.Boxes().front().find("Look.")) << "the program has looked";
  EXPECT_EQ(kAllSundays, Booked());
  EXPECT_EQ("[OK Exclamation] 5 Booking(s) Made.", dialogs_.Boxes().back());
}

TEST_F(HaltedSeriesTest, AnUncertainRowThatWasSavedIsTakenBackToo) {
  Desk();
  faults_.FailWhenDone(Statement::Insert, 3, ThrowUnknown);
  dialogs_.AnswerNext(Answer::Undo);
  BookSundays();
  EXPECT_EQ("", folder_.Bookings());
}

TEST_F(HaltedSeriesTest, AnUncertainRowThatWasNotSavedIsNotCounted) {
  Desk();
  faults_.Fail(Statement::Insert, 3, 1, ThrowUnknown);
  dialogs_.AnswerNext(Answer::Continue);
  BookSundays();
  EXPECT_EQ(0U, dialogs_.Boxes().front().find("[Continue/Undo/Keep Critical] 2 of 5 dates"));
  EXPECT_EQ(kAllSundays, Booked());
}

TEST_F(HaltedSeriesTest, WhatCannotBeLookedAtIsSaidToBeUnknown) {
  Desk();
  faults_.FailWhenDone(Statement::Insert, 3, [this] {
    faults_.Fail(Statement::Select, 1, 1000);
    ThrowUnknown();
  });
  dialogs_.AnswerNext(Answer::Keep);
  BookSundays();
  EXPECT_NE(std::string::npos,
            dialogs_.Boxes().front().find("2 of 5 dates are booked.\r\nIt is not known what became "
                                          "of the booking on 4/20/2014. Look at it in the "
                                          "calendar."));
  EXPECT_EQ(
      "[OK Exclamation] 2 Booking(s) Made.\r\nIt is not known what became of the booking on "
      "4/20/2014. Look at it in the calendar.",
      dialogs_.Boxes().back());
}

TEST_F(HaltedSeriesTest, AnUncertainLastRowThatWasSavedEndsTheSeries) {
  Desk();
  faults_.FailWhenDone(Statement::Insert, 5, ThrowUnknown);
  BookSundays();
  EXPECT_EQ("[OK Exclamation] 5 Booking(s) Made.", dialogs_.OnlyBox());
}

/// The same in groups of two, as a kind of file takes them that adds several rows in one change.
class GroupedSeriesTest : public HaltedSeriesTest {
 protected:
  GroupedSeriesTest() { faults_.AddTogether(2); }
};

TEST_F(GroupedSeriesTest, BooksEveryDateThatIsFree) {
  folder_.AddBooking(hall_, "2014-04-13", 19, 19, "Dance");
  BookSundays();
  EXPECT_EQ("4/6/2014 4/13/2014 4/20/2014 4/27/2014 5/4/2014 ", Booked());
  EXPECT_EQ("[OK Exclamation] 4 Booking(s) Made.", dialogs_.OnlyBox());
}

TEST_F(GroupedSeriesTest, AHaltTellsWhichDatesFailedTogether) {
  Desk();
  faults_.Fail(Statement::Insert, 2);
  dialogs_.AnswerNext(Answer::Keep);
  BookSundays();
  EXPECT_EQ(0U, dialogs_.Boxes().front().find(
                    "[Continue/Undo/Keep Critical] 2 of 5 dates are booked.\r\n"
                    "Then the booking on 4/20/2014 and 1 other failed:\r\n/desk/Calendar.mdb"));
  EXPECT_EQ("4/6/2014 4/13/2014 ", Booked());
  EXPECT_EQ("[OK Exclamation] 2 Booking(s) Made.", dialogs_.Boxes().back());
}

TEST_F(GroupedSeriesTest, ContinueBooksTheRestWithTheSameKey) {
  Desk();
  faults_.Fail(Statement::Insert, 2);
  dialogs_.AnswerNext(Answer::Continue);
  BookSundays();
  EXPECT_EQ(kAllSundays, Booked());
  EXPECT_EQ(1U, GroupKeys());
}

TEST_F(GroupedSeriesTest, UndoTakesEveryDateBack) {
  Desk();
  faults_.Fail(Statement::Insert, 3);
  dialogs_.AnswerNext(Answer::Undo);
  BookSundays();
  EXPECT_EQ("", folder_.Bookings());
}

TEST_F(GroupedSeriesTest, StopLeavesOutTheDatesThatWereOnlyLookedAt) {
  Desk();
  dialogs_.EndEarlyAfter(3);
  dialogs_.AnswerNext(Answer::Keep);
  BookSundays();
  EXPECT_EQ("[Continue/Undo/Keep Question] 2 of 5 dates are booked.\r\nYou stopped it there.",
            dialogs_.Boxes().front());
  EXPECT_EQ("4/6/2014 4/13/2014 ", Booked());
}

TEST_F(GroupedSeriesTest, ALookForAClashThatFailsLeavesItsGroupUnbooked) {
  Desk();
  faults_.Fail(Statement::Select, 4);
  dialogs_.AnswerNext(Answer::Continue);
  BookSundays();
  EXPECT_EQ(0U, dialogs_.Boxes().front().find("[Continue/Undo/Keep Critical] 2 of 5 dates are "
                                              "booked.\r\nThen the booking on 4/27/2014 failed:"));
  EXPECT_EQ(kAllSundays, Booked());
}

TEST_F(GroupedSeriesTest, UncertainDatesThatWereSavedAreFoundAndCounted) {
  Desk();
  faults_.FailWhenDone(Statement::Insert, 2, ThrowUnknown);
  dialogs_.AnswerNext(Answer::Continue);
  BookSundays();
  EXPECT_EQ(0U,
            dialogs_.Boxes().front().find(
                "[Continue/Undo/Keep Critical] 4 of 5 dates are booked.\r\n"
                "Then the booking on 4/20/2014 and 1 other failed, but was saved all the same:"));
  EXPECT_EQ(kAllSundays, Booked());
}

TEST_F(GroupedSeriesTest, ManyThatCannotBeLookedAtAreNamedByTheFirst) {
  faults_.AddTogether(5);
  Desk();
  faults_.FailWhenDone(Statement::Insert, 1, [this] {
    faults_.Fail(Statement::Select, 1, 1000);
    ThrowUnknown();
  });
  dialogs_.AnswerNext(Answer::Keep);
  BookSundays();
  EXPECT_EQ(
      "[OK Exclamation] 0 Booking(s) Made.\r\nIt is not known what became of the booking on "
      "4/6/2014 and 4 others. Look at them in the calendar.",
      dialogs_.Boxes().back());
}

}  // namespace
}  // namespace veyra::modRes
