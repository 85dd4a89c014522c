#include "logic/delete_facility.h"

#include <gtest/gtest.h>

#include <vector>

#include "data/desk_note.h"
#include "data/errors.h"
#include "logic/facilities.h"
#include "tests/calendar_folder.h"
#include "tests/failing_store.h"
#include "tests/fake_clock.h"
#include "tests/fake_dialogs.h"

namespace veyra::modRes {
namespace {

class DeleteFacilityTest : public testing::Test {
 protected:
  /// The session of this test, opened once the rows it starts from are there.
  Session& Desk() {
    if (!session_) {
      session_ = folder_.OpenSession();
      session_->ResCon =
          std::make_unique<Connection>(std::make_unique<FailingStore>(folder_.Calendar(), faults_));
    }
    return *session_;
  }

  /// Pool, with three bookings, is current; Hall has one.
  void OpenPool() {
    const auto pool = folder_.AddRoom("Pool", true);
    const auto hall = folder_.AddRoom("Hall");
    folder_.AddBooking(pool, "2014-04-06", 1, 2, "swim", 20140401120000.0);
    folder_.AddBooking(hall, "2014-04-06", 1, 2, "dance");
    folder_.AddBooking(pool, "2014-04-07", 3, 4, "dive");
    folder_.AddBooking(pool, "2014-04-08", 5, 6, "float");
    LoadFacilities(Desk(), box_);
    Desk().CurRmID = pool;
  }

  void Delete() { DeleteFacility(Desk(), box_, lblRoom_, dialogs_); }

  CalendarFolder folder_;
  Faults faults_;
  std::unique_ptr<Session> session_;
  FakeDialogs dialogs_;
  NameBox box_;
  std::string lblRoom_ = "old caption";
};

TEST_F(DeleteFacilityTest, DeletingTakesTheBookingsOfThatFacilityOnly) {
  const auto pool = folder_.AddRoom("Pool", true);
  const auto hall = folder_.AddRoom("Hall");
  folder_.AddBooking(pool, "2014-04-06", 1, 2, "swim");
  folder_.AddBooking(hall, "2014-04-06", 1, 2, "dance");
  folder_.AddBooking(pool, "2015-01-01", 3, 4, "dive");
  LoadFacilities(Desk(), box_);
  Desk().CurRmID = pool;
  DeleteFacility(Desk(), box_, lblRoom_, dialogs_);
  EXPECT_EQ("2 2014-04-06 1-2 dance\n", folder_.Bookings());
  EXPECT_EQ("2 Hall active\n", folder_.Rooms());
}

TEST_F(DeleteFacilityTest, AfterDeletingTheFirstFacilityLeftIsSelected) {
  folder_.AddRoom("Pool");
  folder_.AddRoom("Hall");
  Desk().CurRmID = folder_.AddRoom("Court", true);
  LoadFacilities(Desk(), box_);
  DeleteFacility(Desk(), box_, lblRoom_, dialogs_);
  EXPECT_EQ(1, Desk().CurRmID);
  EXPECT_EQ((NameBox{{"Pool", "Hall"}, "Pool"}), box_);
  EXPECT_EQ("Pool", lblRoom_);
}

TEST_F(DeleteFacilityTest, OnASharedCalendarTheMarkGoesToOneThatIsLeft) {
  OpenPool();
  folder_.AddRoom("Court");
  Desk().DeskNote = folder_.File("note");
  Delete();
  EXPECT_EQ("2 Hall active\n3 Court\n", folder_.Rooms());
  EXPECT_EQ(2, ReadDeskNote(Desk().DeskNote));
}

TEST_F(DeleteFacilityTest, DeletingTheLastFacilityLeavesTheTextEmptyAndCurRmIDAlone) {
  Desk().CurRmID = folder_.AddRoom("Pool", true);
  LoadFacilities(Desk(), box_);
  DeleteFacility(Desk(), box_, lblRoom_, dialogs_);
  EXPECT_EQ((NameBox{}), box_);
  EXPECT_EQ(1, Desk().CurRmID);
  EXPECT_EQ("old caption", lblRoom_);
}

TEST_F(DeleteFacilityTest, DeletingWithNoneSelectedTakesOnlyTheEntryAndSelectsTheFirst) {
  folder_.AddRoom("Pool");
  folder_.AddRoom("Hall");
  folder_.AddBooking(1, "2014-04-06", 1, 2, "swim");
  box_ = {{"Pool", "Hall"}, "Hall"};
  Desk().CurRmID = 0;
  DeleteFacility(Desk(), box_, lblRoom_, dialogs_);
  EXPECT_EQ((NameBox{{"Pool"}, "Pool"}), box_);
  EXPECT_EQ("1 Pool active\n2 Hall\n", folder_.Rooms());
  EXPECT_EQ("1 2014-04-06 1-2 swim\n", folder_.Bookings());
}

TEST_F(DeleteFacilityTest, TheQuestionTellsTheBookingsAndThoseThatLieAhead) {
  OpenPool();
  EXPECT_EQ("Bookings: 3, of these today or later: 2",
            FacilityDetails(Desk(), FakeClock(2014, 4, 7)));
}

TEST_F(DeleteFacilityTest, WhatNeverBeganIsReportedAsItIs) {
  OpenPool();
  const std::string before = folder_.Bookings();
  faults_.Fail(Statement::Delete, 1);
  EXPECT_THROW(Delete(), DatabaseBusyError);
  EXPECT_TRUE(dialogs_.Boxes().empty());
  EXPECT_EQ(before, folder_.Bookings());
}

TEST_F(DeleteFacilityTest, AFailureAfterwardsSaysThatTheFacilityIsDeleted) {
  OpenPool();
  faults_.Fail(Statement::Update, 1);
  try {
    Delete();
    FAIL() << "no report";
  } catch (const DatabaseBusyError& failure) {
    EXPECT_EQ("The facility is deleted, but no other one could be picked.",
              failure.report().Effect);
    EXPECT_STREQ(
        "/desk/Calendar.mdb\nAnother program is using the file.\n"
        "The facility is deleted, but no other one could be picked.\n"
        "Wait until it has finished.",
        failure.what());
  }
  EXPECT_EQ("2 Hall\n", folder_.Rooms());
}

TEST_F(DeleteFacilityTest, AHaltTellsHowManyBookingsAreGoneAndThatTheFacilityStands) {
  OpenPool();
  faults_.Fail(Statement::Delete, 3);
  dialogs_.AnswerNext(Answer::Keep);
  Delete();
  EXPECT_EQ(
      "[Continue/Undo/Keep Critical] 2 of 3 bookings are deleted; the facility is still there.\r\n"
      "Then the booking on 4/8/2014 failed:\r\n/desk/Calendar.mdb\r\nAnother program is using the "
      "file.\r\nWait until it has finished.",
      dialogs_.Boxes().front());
  EXPECT_EQ("[OK Exclamation] 2 Bookings Deleted.", dialogs_.Boxes().back());
  EXPECT_EQ("1 Pool active\n2 Hall\n", folder_.Rooms());
  EXPECT_EQ((NameBox{{"Pool", "Hall"}, "Pool"}), box_);
  EXPECT_EQ("old caption", lblRoom_);
}

TEST_F(DeleteFacilityTest, ContinueDeletesTheRestAndTheFacility) {
  OpenPool();
  faults_.Fail(Statement::Delete, 2);
  dialogs_.AnswerNext(Answer::Continue);
  Delete();
  EXPECT_EQ("2 2014-04-06 1-2 dance\n", folder_.Bookings());
  EXPECT_EQ("2 Hall active\n", folder_.Rooms());
  EXPECT_EQ("Hall", lblRoom_);
}

TEST_F(DeleteFacilityTest, UndoPutsTheBookingsBackAsTheyWere) {
  OpenPool();
  faults_.Fail(Statement::Delete, 3);
  dialogs_.AnswerNext(Answer::Undo);
  Delete();
  EXPECT_EQ(
      "1 2014-04-06 1-2 swim 20140401120000\n1 2014-04-07 3-4 dive\n1 2014-04-08 5-6 float\n"
      "2 2014-04-06 1-2 dance\n",
      folder_.SortedBookings());
  EXPECT_EQ("1 Pool active\n2 Hall\n", folder_.Rooms());
  EXPECT_EQ("[OK Exclamation] The deleted bookings have been put back.", dialogs_.Boxes().back());
}

TEST_F(DeleteFacilityTest, WhenOnlyTheFacilityItselfFailsAllBookingsAreTold) {
  OpenPool();
  faults_.Fail(Statement::Delete, 4);
  dialogs_.AnswerNext(Answer::Undo);
  Delete();
  EXPECT_NE(std::string::npos, dialogs_.Boxes().front().find(
                                   "3 of 3 bookings are deleted; the facility is still there.\r\n"
                                   "Then the facility failed:"));
  EXPECT_EQ("1 Pool active\n2 Hall\n", folder_.Rooms());
}

TEST_F(DeleteFacilityTest, StopLeadsToTheQuestion) {
  OpenPool();
  dialogs_.EndEarlyAfter(2);
  dialogs_.AnswerNext(Answer::Keep);
  Delete();
  EXPECT_EQ(
      "[Continue/Undo/Keep Question] 2 of 3 bookings are deleted; the facility is still there.\r\n"
      "You stopped it there.",
      dialogs_.Boxes().front());
}

TEST_F(DeleteFacilityTest, ABookingMadeMeanwhileGoesWithTheFacility) {
  OpenPool();
  faults_.Before(Statement::Delete, 3,
                 [this] { folder_.AddBooking(1, "2014-04-09", 1, 1, "meanwhile"); });
  Delete();
  EXPECT_EQ("2 2014-04-06 1-2 dance\n", folder_.Bookings());
}

}  // namespace
}  // namespace veyra::modRes
