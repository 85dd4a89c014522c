#include "logic/bookings.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

#include "data/errors.h"
#include "tests/calendar_folder.h"
#include "tests/fake_clock.h"
#include "tests/fake_dialogs.h"
#include "tests/logic/fake_screens.h"

namespace veyra::modRes {
namespace {

constexpr const char* kDeleteAll =
    "[Yes/No Critical] This has Multiple Bookings. Do you want to Delete All of them?";
constexpr const char* kRenameAll =
    "[Yes/No Exclamation] This has Multiple Bookings. Do you want to Change the Name on All of "
    "them?";

using Boxes = std::vector<std::string>;

class BookingsTest : public testing::Test {
 protected:
  BookingsTest() {
    pool_ = folder_.AddRoom("Pool", true);
    hall_ = folder_.AddRoom("Hall");
  }

  Session& Desk() {
    if (!session_) {
      session_ = folder_.OpenSession();
      session_->CurRmID = pool_;
      session_->CurMonth = 4;
      session_->CurYear = 2014;
      session_->DayDate = MakeDate(2014, 4, 6).value();
      session_->CurrentColors = {"0", "0", "0", "0", "0"};
    }
    return *session_;
  }

  /// The rows pressed and released.
  void Select(int pressed, int released) {
    const SlotRange range = RangeOfRows(pressed, released);
    Desk().AnchorRow = pressed;
    Desk().SelFirstSlot = range.First;
    Desk().SelLastSlot = Desk().SelEndRow = range.Last;
  }

  void Book(const std::string& name, int first, int last) {
    Select(first, last);
    MakeBookings(Desk(), {name, false, {}}, grid_, clock_, dialogs_);
  }

  void BookSeveral(const std::string& name, int first, int last, const std::string& from,
                   const std::string& to, const std::vector<std::size_t>& weekdays) {
    MultiDayPlan plan{{from, to}, {}};
    for (const std::size_t weekday : weekdays) {
      plan.Days[weekday] = true;
    }
    Select(first, last);
    MakeBookings(Desk(), {name, true, plan}, grid_, clock_, dialogs_);
  }

  void Delete(int pressed, int released) {
    Select(pressed, released);
    DeleteBookings(Desk(), grid_, {screens_, screens_, clock_}, dialogs_);
  }

  std::string Rename(int pressed, int released, std::string name) {
    Select(pressed, released);
    RenameBookings(Desk(), name, grid_, {screens_, screens_, clock_}, dialogs_);
    return name;
  }

  /// Three dates of one group for the pool, and one of another facility under the same key.
  void AddGroup() {
    const Value key = 20140401120000.0;
    folder_.AddBooking(pool_, "2014-04-06", 19, 21, "Choir", key);
    folder_.AddBooking(pool_, "2014-04-13", 19, 21, "Choir", key);
    folder_.AddBooking(pool_, "2014-04-20", 19, 21, "Choir", key);
    folder_.AddBooking(hall_, "2014-04-06", 19, 21, "Choir", key);
  }

  CalendarFolder folder_;
  FakeClock clock_{2014, 4, 6};
  FakeDialogs dialogs_;
  FakeScreens screens_;
  DayGrid grid_;
  std::unique_ptr<Session> session_;
  std::int64_t pool_ = 0;
  std::int64_t hall_ = 0;
};

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
    EXPECT_THROW(Book(name, 1, 1), DatabaseError) << "this kind of file holds 50 characters";
    EXPECT_EQ("", folder_.Bookings());
    return;
  }
  Book(name, 1, 1);
  EXPECT_EQ("1 2014-04-06 1-1 " + name + "\n", folder_.Bookings());
}

TEST_F(BookingsTest, ASingleBookingLooksForNoClash) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "there before");
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
  EXPECT_THROW(MakeBookings(without_table, {"Smith", false, {}}, grid_, clock_, dialogs_),
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

TEST_F(BookingsTest, TheGroupKeyIsTheTimeInFourteenDigits) {
  const DateTime time{MakeDate(2014, 4, 6).value(), 5, 3, 9};
  EXPECT_EQ("20140406050309", ToText(GroupKey(time)));
}

TEST_F(BookingsTest, ABookingPickedByOneOfItsRowsIsDeletedWhole) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "Smith");
  Delete(20, 20);
  EXPECT_EQ("", folder_.Bookings());
  EXPECT_EQ("[OK Exclamation] Booking Deleted.", dialogs_.OnlyBox());
}

TEST_F(BookingsTest, OnlyTheFirstBookingThatCoversTheSelectionIsDeleted) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "first");
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "second");
  Delete(20, 20);
  EXPECT_EQ("1 2014-04-06 19-21 second\n", folder_.Bookings());
}

TEST_F(BookingsTest, ABookingOfAnotherFacilityOrDayIsNotPicked) {
  folder_.AddBooking(hall_, "2014-04-06", 19, 21, "other place");
  folder_.AddBooking(pool_, "2014-04-07", 19, 21, "other day");
  Delete(20, 20);
  EXPECT_EQ("2 2014-04-06 19-21 other place\n1 2014-04-07 19-21 other day\n", folder_.Bookings());
}

TEST_F(BookingsTest, FindingNothingToDeleteClearsTheRowsAndShowsAnEmptyBox) {
  grid_.Guest[20] = "ghost";
  Delete(20, 20);
  EXPECT_EQ("", Rendered(grid_));
  EXPECT_EQ("[OK Exclamation] ", dialogs_.OnlyBox());
}

TEST_F(BookingsTest, ABookingThatCoversOnlyAPartOfTheSelectionIsNotFound) {
  folder_.AddBooking(pool_, "2014-04-06", 20, 20, "Smith");
  Delete(19, 20);
  EXPECT_EQ("1 2014-04-06 20-20 Smith\n", folder_.Bookings());
}

TEST_F(BookingsTest, OnlyTheSelectedRowsOfTheGridAreCleared) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "Smith");
  grid_.Guest[19] = grid_.Guest[20] = grid_.Guest[21] = "Smith";
  Delete(20, 20);
  EXPECT_EQ("19 Smith\n21 Smith\n", Rendered(grid_));
}

TEST_F(BookingsTest, DeletingASingleBookingWithKeyZeroAsksNothing) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "Smith", 0.0);
  Delete(20, 20);
  EXPECT_EQ("[OK Exclamation] Booking Deleted.", dialogs_.OnlyBox());
}

TEST_F(BookingsTest, DeletingAGroupReachesEveryDateOfThisFacilityOnly) {
  AddGroup();
  dialogs_.AnswerNext(Answer::Yes);
  Delete(20, 20);
  EXPECT_EQ("2 2014-04-06 19-21 Choir 20140401120000\n", folder_.Bookings());
  EXPECT_EQ((Boxes{kDeleteAll, "[OK Exclamation] 3 Bookings Deleted."}), dialogs_.Boxes());
}

TEST_F(BookingsTest, AnsweringNoDeletesThePickedDateOnly) {
  AddGroup();
  dialogs_.AnswerNext(Answer::No);
  Delete(20, 20);
  EXPECT_EQ(
      "1 2014-04-13 19-21 Choir 20140401120000\n1 2014-04-20 19-21 Choir 20140401120000\n"
      "2 2014-04-06 19-21 Choir 20140401120000\n",
      folder_.Bookings());
  EXPECT_EQ((Boxes{kDeleteAll, "[OK Exclamation] Booking Deleted."}), dialogs_.Boxes());
}

TEST_F(BookingsTest, DeletingRefreshesTheMonth) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "Smith");
  Delete(20, 20);
  EXPECT_EQ(1, screens_.MonthsShown);
  EXPECT_EQ(DayLines{}, screens_.Picture.Cells[8].Lines);
}

TEST_F(BookingsTest, DeletingRefreshesTheViewerWhileItIsLoaded) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "Smith");
  folder_.AddBooking(pool_, "2014-04-06", 30, 30, "Jones");
  Desk().DayOpener = 2;
  Delete(20, 20);
  EXPECT_EQ((DayLines{" 2:30P- 3:00P Jones"}), screens_.ViewerLines);
}

TEST_F(BookingsTest, RenamingChangesThePickedBooking) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "Smith");
  Rename(20, 20, "Jones");
  EXPECT_EQ("1 2014-04-06 19-21 Jones\n", folder_.Bookings());
  EXPECT_EQ("[OK Exclamation] Booking Name Changed.", dialogs_.OnlyBox());
}

TEST_F(BookingsTest, ANewNameOf51CharactersIsCutOnASingleBooking) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "Smith");
  const std::string cut(50, 'x');
  EXPECT_EQ(cut, Rename(20, 20, cut + "y"));
  EXPECT_EQ("1 2014-04-06 19-21 " + cut + "\n", folder_.Bookings());
  EXPECT_EQ((Boxes{"[OK Exclamation] The Text entered is greater than 50 characters and has been "
                   "cut to:\r\n" +
                       cut,
                   "[OK Exclamation] Booking Name Changed."}),
            dialogs_.Boxes());
}

TEST_F(BookingsTest, CharactersNotBytesAreCounted) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "Smith");
  std::string fifty;
  for (int i = 0; i < 50; ++i) {
    fifty += "\u05D3";
  }
  Rename(20, 20, fifty);
  EXPECT_EQ("1 2014-04-06 19-21 " + fifty + "\n", folder_.Bookings());
  EXPECT_EQ("[OK Exclamation] Booking Name Changed.", dialogs_.OnlyBox());
}

TEST_F(BookingsTest, AGroupKeepsANameOf51Characters) {
  AddGroup();
  dialogs_.AnswerNext(Answer::Yes);
  const std::string name(51, 'x');
  if (TestedStoreKind() == StoreKind::Access) {
    EXPECT_THROW(Rename(20, 20, name), DatabaseError) << "this kind of file holds 50 characters";
    return;
  }
  EXPECT_EQ(name, Rename(20, 20, name));
  EXPECT_EQ("1 2014-04-06 19-21 " + name +
                " 20140401120000\n"
                "1 2014-04-13 19-21 " +
                name +
                " 20140401120000\n"
                "1 2014-04-20 19-21 " +
                name + " 20140401120000\n2 2014-04-06 19-21 Choir 20140401120000\n",
            folder_.Bookings());
  EXPECT_EQ((Boxes{kRenameAll, "[OK Exclamation] 3 Bookings Name Changed."}), dialogs_.Boxes());
}

TEST_F(BookingsTest, AnsweringNoRenamesThePickedDateAndKeepsItsKey) {
  AddGroup();
  dialogs_.AnswerNext(Answer::No);
  Rename(20, 20, "Band");
  EXPECT_EQ(
      "1 2014-04-06 19-21 Band 20140401120000\n1 2014-04-13 19-21 Choir 20140401120000\n"
      "1 2014-04-20 19-21 Choir 20140401120000\n2 2014-04-06 19-21 Choir 20140401120000\n",
      folder_.Bookings());
}

TEST_F(BookingsTest, FindingNothingToRenameNamesTheRowsAndShowsAnEmptyBox) {
  Rename(20, 21, "ghost");
  EXPECT_EQ("20 ghost\n21 ghost\n", Rendered(grid_));
  EXPECT_EQ("[OK Exclamation] ", dialogs_.OnlyBox());
  EXPECT_EQ("", folder_.Bookings());
}

TEST_F(BookingsTest, RenamingToTheSameNameIsReportedAllTheSame) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "Smith");
  Rename(20, 20, "Smith");
  EXPECT_EQ("[OK Exclamation] Booking Name Changed.", dialogs_.OnlyBox());
}

TEST_F(BookingsTest, ABookingThatAnotherProgramRemovedMeanwhileIsNotFound) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "Smith");
  Desk();
  Connection other(folder_.Calendar());
  other.Open("SELECT * FROM Reserv", CursorType::StaticOptimistic)->Delete();
  Delete(20, 20);
  EXPECT_EQ("[OK Exclamation] ", dialogs_.OnlyBox());
}

}  // namespace
}  // namespace veyra::modRes
