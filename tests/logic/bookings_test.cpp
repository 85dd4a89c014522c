#include "logic/bookings.h"

#include <filesystem>

#include "data/errors.h"
#include "logic/name_length.h"
#include "tests/logic/bookings_fixture.h"

namespace veyra::modRes {
namespace {

class BookingsTest : public BookingsFixture {};

TEST_F(BookingsTest, ASingleBookingIsOneRowWithoutAGroupKey) {
  Book("Smith", 19, 21);
  EXPECT_EQ("1 2014-04-06 19-21 Smith\n", folder_.Bookings());
}

TEST_F(BookingsTest, ASingleBookingShowsInTheGridAtOnce) {
  Book("Smith", 19, 21);
  EXPECT_EQ("19 Smith\n20 Smith\n21 Smith\n", Rendered(grid_));
}

TEST_F(BookingsTest, ASingleBookingIsReported) {
  Book("Smith", 19, 21);
  EXPECT_EQ("[OK Exclamation] 1 Booking(s) Made.", dialogs_.OnlyBox());
  EXPECT_EQ("Veyra Calendar", dialogs_.LastMessage().Title);
}

TEST_F(BookingsTest, OneSlotStandsInBothColumns) {
  Book("Smith", 48, 48);
  EXPECT_EQ("1 2014-04-06 48-48 Smith\n", folder_.Bookings());
}

TEST_F(BookingsTest, AnEmptyNameIsStoredAsNoTitle) {
  Book("", 1, 1);
  EXPECT_EQ("1 2014-04-06 1-1 No Title\n", folder_.Bookings());
  EXPECT_EQ("1 No Title\n", Rendered(grid_));
}

TEST_F(BookingsTest, ANameIsStoredAsTypedWhateverItIs) {
  const std::string name = "O'Brien \"Bob\" #1\n\U0001F3BE \u05D3\u05D5\u05D3";
  Book(name, 1, 1);
  EXPECT_EQ("1 2014-04-06 1-1 " + name + "\n", folder_.Bookings());
}

TEST_F(BookingsTest, ASingleBookingOfTenThousandCharactersIsNotCut) {
  const std::string name(10000, 'x');
  if (TestedStoreKind() == StoreKind::Access) {
    EXPECT_THROW(Book(name, 1, 1), NameTooLongError) << "this kind of file holds 50 characters";
    EXPECT_EQ("", folder_.Bookings());
    return;
  }
  Book(name, 1, 1);
  EXPECT_EQ("1 2014-04-06 1-1 " + name + "\n", folder_.Bookings());
}

TEST_F(BookingsTest, ANameThatTheCalendarCannotHoldIsRefusedWithItsCount) {
  if (TestedStoreKind() != StoreKind::Access) {
    GTEST_SKIP() << "this kind of file holds any name";
  }
  const std::string name(53, 'x');
  const auto report_of = [](const auto& book) -> std::string {
    try {
      book();
      return "booked";
    } catch (const NameTooLongError& error) {
      return error.what();
    }
  };
  const std::string expected =
      "This name is 53 characters long; the calendar holds 50.\n"
      "Nothing was changed. Choose a shorter name.";
  EXPECT_EQ(expected, report_of([&] { Book(name, 1, 1); }));
  EXPECT_EQ(expected, report_of([&] { BookSeveral(name, 1, 1, "4/6/2014", "4/14/2014", {1}); }));
  EXPECT_EQ("", folder_.Bookings());
}

TEST_F(BookingsTest, ASingleBookingLooksForNoClash) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "there before");
  LookAtTheDay();
  Book("Smith", 19, 21);
  EXPECT_EQ("1 2014-04-06 19-21 there before\n1 2014-04-06 19-21 Smith\n", folder_.Bookings());
}

TEST_F(BookingsTest, AFailedBookingLeavesTheGridAndSaysNothing) {
  Desk();
  std::filesystem::remove(folder_.File("Calendar.mdb"));
  session_->ResCon.reset();
  Session without_table;
  without_table.DataFolder = folder_.Path();
  CreateStoreOfKind(TestedStoreKind(), folder_.File("Calendar.mdb"));
  CreateResCon(without_table);
  EXPECT_THROW(
      MakeBookings(without_table, {"Smith", false, {}}, {grid_, screens_}, clock_, dialogs_),
      DatabaseError);
  EXPECT_EQ("", Rendered(grid_));
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(BookingsTest, AMultipleBookingWritesEveryTickedDateWithOneKey) {
  clock_.SetTime(15, 30, 12);
  BookSeveral("Choir", 19, 21, "4/6/2014", "4/14/2014", {1, 2});
  EXPECT_EQ(
      "1 2014-04-06 19-21 Choir 20140406153012\n"
      "1 2014-04-07 19-21 Choir 20140406153012\n"
      "1 2014-04-13 19-21 Choir 20140406153012\n"
      "1 2014-04-14 19-21 Choir 20140406153012\n",
      folder_.Bookings());
  EXPECT_EQ("[OK Exclamation] 4 Booking(s) Made.", dialogs_.OnlyBox());
}

TEST_F(BookingsTest, AMultipleBookingLeavesTheGridAsItIs) {
  BookSeveral("Choir", 19, 21, "4/6/2014", "4/6/2014", {1});
  EXPECT_EQ("", Rendered(grid_));
}

TEST_F(BookingsTest, APlanFromADateToItselfTriesThatDate) {
  BookSeveral("Choir", 1, 1, "4/6/2014", "4/6/2014", {1});
  EXPECT_EQ("[OK Exclamation] 1 Booking(s) Made.", dialogs_.OnlyBox());
}

TEST_F(BookingsTest, APlanWithoutAWeekdayBooksNothing) {
  BookSeveral("Choir", 1, 1, "4/6/2014", "4/30/2014", {});
  EXPECT_EQ("", folder_.Bookings());
  EXPECT_EQ("[OK Exclamation] 0 Booking(s) Made.", dialogs_.OnlyBox());
}

TEST_F(BookingsTest, ADateOnWhichAnotherFacilityIsBookedIsSkipped) {
  folder_.AddBooking(hall_, "2014-04-06", 21, 25, "Dance");
  BookSeveral("Choir", 19, 21, "4/6/2014", "4/13/2014", {1});
  EXPECT_EQ("2 2014-04-06 21-25 Dance\n1 2014-04-13 19-21 Choir 20140406120000\n",
            folder_.Bookings());
}

TEST_F(BookingsTest, AnEnclosedBookingDoesNotBlockAMultipleOne) {
  folder_.AddBooking(pool_, "2014-04-06", 20, 22, "inside");
  BookSeveral("Choir", 19, 23, "4/6/2014", "4/6/2014", {1});
  EXPECT_EQ("1 2014-04-06 20-22 inside\n1 2014-04-06 19-23 Choir 20140406120000\n",
            folder_.Bookings());
}

TEST_F(BookingsTest, AMultipleBookingWithoutANameIsNoTitle) {
  BookSeveral("", 1, 1, "4/6/2014", "4/6/2014", {1});
  EXPECT_EQ("1 2014-04-06 1-1 No Title 20140406120000\n", folder_.Bookings());
}

TEST_F(BookingsTest, APlanWhoseTextIsNoDateIsAFailureAndWritesNothing) {
  EXPECT_THROW(BookSeveral("Choir", 1, 1, "soon", "4/6/2014", {1}), ValueError);
  EXPECT_EQ("", folder_.Bookings());
}

TEST_F(BookingsTest, TheFirstAndTheLastDayThereIsAreBookedChangedAndDeletedLikeAnyOther) {
  for (const char* day : {"0100-01-01", "1899-12-29", "1899-12-30", "2000-02-29", "9999-12-31"}) {
    Desk().DayDate = DateFromIsoText(day).value();
    Desk().CurYear = YearOf(Desk().DayDate);
    Desk().CurMonth = MonthOf(Desk().DayDate);
    Book("Ann", 1, 48);
    EXPECT_EQ("1 " + std::string(day) + " 1-48 Ann\n", folder_.Bookings());
    Rename(48, 48, "Bob");
    EXPECT_EQ("1 " + std::string(day) + " 1-48 Bob\n", folder_.Bookings());
    Delete(1, 1);
    EXPECT_EQ("", folder_.Bookings());
  }
}

TEST_F(BookingsTest, TheGroupKeyIsTheTimeInFourteenDigits) {
  const DateTime time{MakeDate(2014, 4, 6).value(), 5, 3, 9};
  EXPECT_EQ("20140406050309", ToText(GroupKey(time)));
}

TEST_F(BookingsTest, ABookingIsSeenInTheGridBehindItsReport) {
  std::string seen;
  dialogs_.WhileShown = [&] { seen = Rendered(screens_.Grid); };
  Book("Smith", 19, 21);
  EXPECT_EQ("19 Smith\n20 Smith\n21 Smith\n", seen);
}

}  // namespace
}  // namespace veyra::modRes
