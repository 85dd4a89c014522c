#include "logic/delete_bookings.h"

#include "tests/logic/bookings_fixture.h"

namespace veyra::modRes {
namespace {

constexpr const char* kDeleteAll =
    "[Yes/No Critical] This has Multiple Bookings. Do you want to Delete All of them?";

class DeleteBookingsTest : public BookingsFixture {};

TEST_F(DeleteBookingsTest, ABookingPickedByOneOfItsRowsIsDeletedWhole) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "Smith");
  Delete(20, 20);
  EXPECT_EQ("", folder_.Bookings());
  EXPECT_EQ("[OK Exclamation] Booking Deleted.", dialogs_.OnlyBox());
}

TEST_F(DeleteBookingsTest, OnlyTheBookingThatTheGridNamesIsDeleted) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "first");
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "second");
  FillDayList(Desk(), grid_, Desk().DayDate);
  EXPECT_EQ("second", grid_.Guest[20]);
  Delete(20, 20);
  EXPECT_EQ("1 2014-04-06 19-21 first\n", folder_.Bookings());
}

TEST_F(DeleteBookingsTest, ABookingOfAnotherFacilityOrDayIsNotPicked) {
  folder_.AddBooking(hall_, "2014-04-06", 19, 21, "other place");
  folder_.AddBooking(pool_, "2014-04-07", 19, 21, "other day");
  Delete(20, 20);
  EXPECT_EQ("2 2014-04-06 19-21 other place\n1 2014-04-07 19-21 other day\n", folder_.Bookings());
}

TEST_F(DeleteBookingsTest, FindingNothingToDeleteClearsTheRowsAndShowsAnEmptyBox) {
  grid_.Guest[20] = "ghost";
  Delete(20, 20);
  EXPECT_EQ("", Rendered(grid_));
  EXPECT_EQ("[OK Exclamation] ", dialogs_.OnlyBox());
}

TEST_F(DeleteBookingsTest, ABookingThatCoversOnlyAPartOfTheSelectionIsNotFound) {
  folder_.AddBooking(pool_, "2014-04-06", 20, 20, "Smith");
  Delete(19, 20);
  Delete(20, 21);
  EXPECT_EQ("1 2014-04-06 20-20 Smith\n", folder_.Bookings());
}

TEST_F(DeleteBookingsTest, OnlyTheSelectedRowsAreClearedWhenNothingIsFound) {
  grid_.Guest[19] = grid_.Guest[20] = grid_.Guest[21] = "ghost";
  Delete(20, 20);
  EXPECT_EQ("19 ghost\n21 ghost\n", Rendered(grid_));
}

TEST_F(DeleteBookingsTest, OfADragUpwardsOnlyTheRowThatItBeganInIsCleared) {
  grid_.Guest[19] = grid_.Guest[20] = grid_.Guest[21] = "ghost";
  Delete(21, 19);
  EXPECT_EQ("19 ghost\n20 ghost\n", Rendered(grid_));
}

TEST_F(DeleteBookingsTest, ADeletionIsSeenInTheGridBehindItsReport) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "Smith");
  folder_.AddBooking(pool_, "2014-04-06", 30, 30, "Jones");
  grid_.Guest[19] = grid_.Guest[20] = grid_.Guest[21] = "Smith";
  std::string seen;
  dialogs_.WhileShown = [&] { seen = Rendered(screens_.Grid); };
  Delete(20, 20);
  EXPECT_EQ("30 Jones\n", seen);
}

TEST_F(DeleteBookingsTest, WhatADeletedBookingHidIsSeenBehindTheReport) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 19, "below");
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "above");
  std::string seen;
  dialogs_.WhileShown = [&] { seen = Rendered(screens_.Grid); };
  Delete(20, 20);
  EXPECT_EQ("19 below\n", seen);
}

TEST_F(DeleteBookingsTest, DeletingASingleBookingWithKeyZeroAsksNothing) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "Smith", 0.0);
  Delete(20, 20);
  EXPECT_EQ("[OK Exclamation] Booking Deleted.", dialogs_.OnlyBox());
}

TEST_F(DeleteBookingsTest, DeletingAGroupReachesEveryDateOfThisFacilityOnly) {
  AddGroup();
  dialogs_.AnswerNext(Answer::Yes);
  Delete(20, 20);
  EXPECT_EQ("2 2014-04-06 19-21 Choir 20140401120000\n", folder_.Bookings());
  EXPECT_EQ((Boxes{kDeleteAll, "[OK Exclamation] 3 Bookings Deleted."}), dialogs_.Boxes());
}

TEST_F(DeleteBookingsTest, AGroupOfAnotherProgramMayHaveAnyNumberForItsKey) {
  for (const double key : {1e17, 0.5, 1.5e-7, 12345678901234567890.0}) {
    folder_.AddBooking(pool_, "2014-04-06", 19, 21, "Choir", key);
    folder_.AddBooking(pool_, "2014-04-13", 19, 21, "Choir", key);
    dialogs_.AnswerNext(Answer::Yes);
    Delete(20, 20);
    EXPECT_EQ("[OK Exclamation] 2 Bookings Deleted.", dialogs_.Boxes().back());
  }
  EXPECT_EQ("", folder_.Bookings());
}

TEST_F(DeleteBookingsTest, AnsweringNoDeletesThePickedDateOnly) {
  AddGroup();
  dialogs_.AnswerNext(Answer::No);
  Delete(20, 20);
  EXPECT_EQ(
      "1 2014-04-13 19-21 Choir 20140401120000\n1 2014-04-20 19-21 Choir 20140401120000\n"
      "2 2014-04-06 19-21 Choir 20140401120000\n",
      folder_.Bookings());
  EXPECT_EQ((Boxes{kDeleteAll, "[OK Exclamation] Booking Deleted."}), dialogs_.Boxes());
}

TEST_F(DeleteBookingsTest, DeletingRefreshesTheMonth) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "Smith");
  Delete(20, 20);
  EXPECT_EQ(1, screens_.MonthsShown);
  EXPECT_EQ(DayLines{}, screens_.Picture.Cells[8].Lines);
}

TEST_F(DeleteBookingsTest, DeletingRefreshesTheViewerWhileItIsLoaded) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "Smith");
  folder_.AddBooking(pool_, "2014-04-06", 30, 30, "Jones");
  Desk().DayOpener = Opener::DayViewer;
  Delete(20, 20);
  EXPECT_EQ((DayLines{" 2:30P- 3:00P Jones"}), screens_.ViewerLines);
}

TEST_F(DeleteBookingsTest, ABookingThatAnotherProgramRemovedMeanwhileIsNotFound) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "Smith");
  Desk();
  Connection other(folder_.Calendar());
  other.Open("SELECT * FROM Reserv", CursorType::StaticOptimistic)->Delete();
  Delete(20, 20);
  EXPECT_EQ("[OK Exclamation] ", dialogs_.OnlyBox());
}

}  // namespace
}  // namespace veyra::modRes
