#include "logic/desk_undo.h"

#include "data/open_file_store.h"
#include "logic/delete_facility.h"
#include "logic/facilities.h"
#include "logic/undo.h"
#include "tests/logic/bookings_fixture.h"

namespace veyra::modRes {
namespace {

/// What the desk did is taken back, in a calendar without a journal and in one that keeps it.
class DeskUndoTest : public BookingsFixture, public testing::WithParamInterface<bool> {
 protected:
  DeskUndoTest() {
    if (GetParam()) {
      OpenFileStore(folder_.File("Calendar.mdb"), StoreAccess::ReadWrite)->KeepJournal(true);
    }
  }

  /// What was undone; nothing when nothing was.
  std::string Undo(Answer answer = Answer::Yes) {
    dialogs_.AnswerNext(answer);
    return UndoLastAction(Desk(), dialogs_).value_or("").English();
  }

  void DeletePool() {
    NameBox box;
    std::string caption;
    LoadFacilities(Desk(), box);
    DeleteFacility(Desk(), box, caption, dialogs_);
  }
};

INSTANTIATE_TEST_SUITE_P(Journal, DeskUndoTest, testing::Bool(),
                         [](const auto& each) { return each.param ? "Kept" : "NotKept"; });

TEST_P(DeskUndoTest, ABookingGoes) {
  Book("Smith", 19, 21);
  EXPECT_EQ("Booked: Pool, 4/6/2014,  9:00A-10:30A Smith", Undo());
  EXPECT_EQ("[Yes/No Question] Do you want to undo the last booking?", dialogs_.Boxes().back());
  EXPECT_EQ("Pool, 4/6/2014,  9:00A-10:30A Smith is taken away.", dialogs_.LastMessage().Details);
  EXPECT_EQ(Answer::No, dialogs_.LastMessage().Default);
  EXPECT_EQ("", folder_.Bookings());
}

TEST_P(DeskUndoTest, WithoutConsentNothingIsDone) {
  Book("Smith", 19, 21);
  EXPECT_EQ("", Undo(Answer::No));
  EXPECT_EQ("1 2014-04-06 19-21 Smith\n", folder_.Bookings());
  EXPECT_NE("", Undo());
}

TEST_P(DeskUndoTest, ASeriesGoesWhole) {
  Book("Smith", 1, 2);
  BookSeveral("Choir", 19, 21, "4/6/2014", "4/20/2014", {1});
  EXPECT_EQ("Booked: 3 dates, Choir", Undo());
  EXPECT_EQ("1 2014-04-06 1-2 Smith\n", folder_.Bookings());
}

TEST_P(DeskUndoTest, ALongSeriesIsNotToldWhole) {
  BookSeveral("Choir", 19, 21, "4/6/2014", "6/29/2014", {1});
  Undo(Answer::No);
  const std::string details = dialogs_.LastMessage().Details.English();
  EXPECT_NE(std::string::npos, details.find("\r\n... and 7 more."));
  EXPECT_EQ(6, std::count(details.begin(), details.end(), '\n'));
}

TEST_P(DeskUndoTest, ADeletedSeriesComesBack) {
  AddGroup();
  const std::string before = folder_.SortedBookings();
  dialogs_.AnswerNext(Answer::Yes);
  Delete(19, 19);
  ASSERT_NE(before, folder_.SortedBookings());
  EXPECT_EQ("Deleted: 3 dates, Choir", Undo());
  EXPECT_EQ("[Yes/No Question] Do you want to undo the deletion of a series of bookings?",
            dialogs_.Boxes().back());
  EXPECT_EQ(Answer::Yes, dialogs_.LastMessage().Default);
  EXPECT_EQ(before, folder_.SortedBookings());
}

TEST_P(DeskUndoTest, ARenamedBookingHasItsNameAgain) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "Smith");
  Rename(19, 21, "Jones");
  EXPECT_EQ("Renamed: Pool, 4/6/2014,  9:00A-10:30A Jones", Undo());
  EXPECT_EQ("Pool, 4/6/2014,  9:00A-10:30A Jones is called Smith again.",
            dialogs_.LastMessage().Details);
  EXPECT_EQ("1 2014-04-06 19-21 Smith\n", folder_.Bookings());
}

TEST_P(DeskUndoTest, ADeletedFacilityComesBackWithItsBookings) {
  AddGroup();
  const std::string before = folder_.SortedBookings();
  DeletePool();
  ASSERT_EQ("2 Hall active\n", folder_.Rooms());
  EXPECT_EQ("Deleted: the facility Pool, with 3 bookings", Undo());
  EXPECT_NE(std::string::npos, folder_.Rooms().find("1 Pool\n"));
  EXPECT_EQ(before, folder_.SortedBookings());
}

TEST_P(DeskUndoTest, OneAfterTheOtherIsTakenBackAndNoneTwice) {
  Book("Smith", 1, 2);
  Book("Jones", 3, 4);
  Delete(1, 2);
  EXPECT_EQ("Deleted: Pool, 4/6/2014, 12:00A- 1:00A Smith", Undo());
  EXPECT_EQ("Booked: Pool, 4/6/2014,  1:00A- 2:00A Jones", Undo());
  EXPECT_EQ("Booked: Pool, 4/6/2014, 12:00A- 1:00A Smith", Undo());
  EXPECT_EQ("", folder_.Bookings());
  UndoLastAction(Desk(), dialogs_);
  EXPECT_EQ("[OK Information] There is nothing to undo.", dialogs_.Boxes().back());
}

TEST_P(DeskUndoTest, PickingAFacilityIsNotWhatIsUndone) {
  Book("Smith", 19, 21);
  SelectFacility(Desk(), "Hall");
  EXPECT_EQ("Booked: Pool, 4/6/2014,  9:00A-10:30A Smith", Undo());
}

TEST_P(DeskUndoTest, WhatStandsInTheWayIsNamedAndNothingIsDone) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "Smith");
  Delete(19, 21);
  folder_.AddBooking(pool_, "2014-04-06", 21, 30, "Jones");
  EXPECT_FALSE(UndoLastAction(Desk(), dialogs_));
  EXPECT_EQ("[OK Exclamation] The deletion of a booking cannot be undone. Nothing was changed.",
            dialogs_.Boxes().back());
  EXPECT_EQ(
      "Pool, 4/6/2014,  9:00A-10:30A Smith cannot come back: Pool, 4/6/2014, 10:00A- 3:00P Jones "
      "stands there now.",
      dialogs_.LastMessage().Details);
  EXPECT_EQ("1 2014-04-06 21-30 Jones\n", folder_.Bookings());
}

TEST_P(DeskUndoTest, WhoBooksWhileItIsAskedStandsInTheWay) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "Smith");
  Delete(19, 21);
  dialogs_.WhileShown = [this] {
    dialogs_.WhileShown = nullptr;
    folder_.AddBooking(pool_, "2014-04-06", 21, 30, "Jones");
  };
  EXPECT_EQ("", Undo());
  EXPECT_EQ("1 2014-04-06 21-30 Jones\n", folder_.Bookings());
}

TEST_P(DeskUndoTest, ASeriesThatWasStoppedAndTakenBackIsNoMore) {
  Book("Smith", 1, 2);
  dialogs_.EndEarlyAfter(1);
  dialogs_.AnswerNext(Answer::Undo);
  BookSeveral("Choir", 19, 21, "4/6/2014", "4/20/2014", {1});
  ASSERT_EQ("1 2014-04-06 1-2 Smith\n", folder_.Bookings());
  EXPECT_EQ("Booked: Pool, 4/6/2014, 12:00A- 1:00A Smith", Undo());
}

TEST_P(DeskUndoTest, OfAnEarlierRunOnlyTheJournalKnows) {
  Book("Smith", 19, 21);
  session_.reset();
  if (GetParam()) {
    EXPECT_EQ("Booked: Pool, 4/6/2014,  9:00A-10:30A Smith", Undo());
    EXPECT_EQ("", folder_.Bookings());
  } else {
    EXPECT_FALSE(UndoLastAction(Desk(), dialogs_));
    EXPECT_EQ("1 2014-04-06 19-21 Smith\n", folder_.Bookings());
  }
}

}  // namespace
}  // namespace veyra::modRes
