#include "tests/logic/bookings_fixture.h"

namespace veyra::modRes {
namespace {

/// Another desk that comes first, after this one has looked.
class TakenMeanwhileTest : public BookingsFixture {
 protected:
  static void ThrowTaken() {
    throw TimeTakenError({"/desk/Calendar.mdb", "Somebody else has booked these times meanwhile.",
                          "Look.", "Nothing was saved."},
                         {{19, 21, "Smith"}, {22, 22, "two words"}});
  }

  bool BookOne(const std::string& name, int first, int last) {
    Select(first, last);
    return MakeBookings(Desk(), {name, false, {}}, {grid_, screens_}, clock_, dialogs_) ==
           BookingOutcome::Shown;
  }

  static bool HasServer() { return TestedStoreKind() == StoreKind::Postgres; }
};

TEST_F(TakenMeanwhileTest, TheOperatorReadsWhoHasTakenWhichTimes) {
  Desk();
  faults_.Fail(Statement::Insert, 1, 1, ThrowTaken);
  EXPECT_FALSE(BookOne("Jones", 19, 22));
  EXPECT_EQ(
      Boxes{"[OK Exclamation] Nothing was booked: somebody else has booked these times meanwhile."},
      dialogs_.Boxes());
  EXPECT_EQ("9:00A-10:30A Smith\r\n10:30A-11:00A two words", dialogs_.LastMessage().Details);
  EXPECT_EQ("", grid_.Guest[19]);
  EXPECT_EQ("", folder_.Bookings());
}

TEST_F(TakenMeanwhileTest, TheSelectionIsKept) {
  Desk();
  faults_.Fail(Statement::Insert, 1, 1, ThrowTaken);
  BookOne("Jones", 19, 22);
  EXPECT_EQ(19, session_->SelFirstSlot);
  EXPECT_EQ(22, session_->SelLastSlot);
}

TEST_F(TakenMeanwhileTest, TheGridShowsWhatThereIsBehindTheMessage) {
  Desk();
  faults_.Fail(Statement::Insert, 1, 1, [this] {
    folder_.AddBooking(pool_, "2014-04-06", 20, 20, "Smith");
    ThrowTaken();
  });
  dialogs_.WhileShown = [this] { EXPECT_EQ("Smith", screens_.Grid.Guest[20]); };
  EXPECT_FALSE(BookOne("Jones", 19, 22));
  EXPECT_EQ("Smith", grid_.Guest[20]);
  EXPECT_EQ(1U, dialogs_.Boxes().size());
}

TEST_F(TakenMeanwhileTest, OfASeriesTheDateIsLeftOutAndTheCountIsTrue) {
  Desk();
  faults_.Fail(Statement::Insert, 2, 1, ThrowTaken);
  BookSeveral("Choir", 19, 21, "4/6/2014", "4/20/2014", {1});
  EXPECT_EQ(Boxes{"[OK Exclamation] 2 Booking(s) Made."}, dialogs_.Boxes());
  EXPECT_NE(std::string::npos, folder_.Bookings().find("2014-04-06 19-21 Choir"));
  EXPECT_EQ(std::string::npos, folder_.Bookings().find("2014-04-13"));
  EXPECT_NE(std::string::npos, folder_.Bookings().find("2014-04-20 19-21 Choir"));
}

TEST_F(TakenMeanwhileTest, OnAServerTheDeskThatComesFirstHasTheTime) {
  if (!HasServer()) {
    GTEST_SKIP() << "of a file only one program at a time books";
  }
  LookAtTheDay();
  folder_.AddBooking(pool_, "2014-04-06", 21, 30, "Smith");
  EXPECT_FALSE(BookOne("Jones", 19, 22));
  EXPECT_EQ("10:00A- 3:00P Smith", dialogs_.LastMessage().Details);
  EXPECT_EQ("1 2014-04-06 21-30 Smith\n", folder_.Bookings());
  LookAtTheDay();
  EXPECT_TRUE(BookOne("Jones", 19, 20));
}

TEST_F(TakenMeanwhileTest, OnAServerASeriesLeavesOutADateThatIsTakenAfterItLooked) {
  if (!HasServer()) {
    GTEST_SKIP() << "of a file only one program at a time books";
  }
  Desk();
  faults_.Before(Statement::Insert, 2,
                 [&] { folder_.AddBooking(pool_, "2014-04-13", 20, 20, "Smith"); });
  BookSeveral("Choir", 19, 21, "4/6/2014", "4/20/2014", {1});
  EXPECT_EQ(Boxes{"[OK Exclamation] 2 Booking(s) Made."}, dialogs_.Boxes());
  EXPECT_EQ(std::string::npos, folder_.Bookings().find("2014-04-13 19-21"));
}

/// The clash rule looks at both ends of a new booking only: one within it is in nobody's way.
TEST_F(TakenMeanwhileTest, ASeriesIsBookedAroundABookingThatTheRulesLetBe) {
  folder_.AddBooking(pool_, "2014-04-13", 20, 20, "Smith");
  BookSeveral("Choir", 19, 21, "4/6/2014", "4/20/2014", {1});
  EXPECT_EQ(Boxes{"[OK Exclamation] 3 Booking(s) Made."}, dialogs_.Boxes());
}

}  // namespace
}  // namespace veyra::modRes
