#include "logic/rename_bookings.h"

#include "logic/name_length.h"
#include "tests/logic/bookings_fixture.h"

namespace veyra::modRes {
namespace {

constexpr const char* kRenameAll =
    "[Yes/No Exclamation] This has Multiple Bookings. Do you want to Change the Name on All of "
    "them?";

class RenameBookingsTest : public BookingsFixture {};

TEST_F(RenameBookingsTest, OfTwoBookingsTheGridNamesTheOneThatBeginsLater) {
  folder_.AddBooking(pool_, "2014-04-06", 20, 22, "later");
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "earlier");
  FillDayList(Desk(), grid_, Desk().DayDate);
  EXPECT_EQ("later", grid_.Guest[20]);
  Rename(20, 20, "renamed");
  EXPECT_EQ("1 2014-04-06 20-22 renamed\n1 2014-04-06 19-21 earlier\n", folder_.Bookings());
}

TEST_F(RenameBookingsTest, OfADragUpwardsOnlyTheRowThatItBeganInShowsANameThatNoBookingGets) {
  grid_.Guest[19] = grid_.Guest[20] = grid_.Guest[21] = "ghost";
  Rename(21, 19, "Jones");
  EXPECT_EQ("19 ghost\n20 ghost\n21 Jones\n", Rendered(grid_));
}

TEST_F(RenameBookingsTest, ANewNameIsSeenInTheGridBehindItsReport) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 20, "Smith");
  std::string seen;
  dialogs_.WhileShown = [&] { seen = Rendered(screens_.Grid); };
  Rename(19, 19, "Jones");
  EXPECT_EQ("19 Jones\n20 Jones\n", seen);
}

TEST_F(RenameBookingsTest, RenamingChangesThePickedBooking) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "Smith");
  Rename(20, 20, "Jones");
  EXPECT_EQ("1 2014-04-06 19-21 Jones\n", folder_.Bookings());
  EXPECT_EQ("[OK Exclamation] Booking Name Changed.", dialogs_.OnlyBox());
}

TEST_F(RenameBookingsTest, ANewNameOf51CharactersIsCutOnASingleBooking) {
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

TEST_F(RenameBookingsTest, CharactersNotBytesAreCounted) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "Smith");
  std::string fifty;
  for (int i = 0; i < 50; ++i) {
    fifty += "\u05D3";
  }
  Rename(20, 20, fifty);
  EXPECT_EQ("1 2014-04-06 19-21 " + fifty + "\n", folder_.Bookings());
  EXPECT_EQ("[OK Exclamation] Booking Name Changed.", dialogs_.OnlyBox());
}

TEST_F(RenameBookingsTest, ANameThatTheFileCannotHoldIsRefusedBeforeAnythingIsWritten) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "Smith");
  std::string balls;
  for (int i = 0; i < 50; ++i) {
    balls += "\U0001F3BE";
  }
  if (TestedStoreKind() == StoreKind::Access) {
    EXPECT_THROW(Rename(20, 20, balls), NameTooLongError) << "each is two to this kind of file";
    EXPECT_EQ("1 2014-04-06 19-21 Smith\n", folder_.Bookings());
    return;
  }
  Rename(20, 20, balls);
  EXPECT_EQ("1 2014-04-06 19-21 " + balls + "\n", folder_.Bookings());
}

TEST_F(RenameBookingsTest, AGroupKeepsANameOf51Characters) {
  AddGroup();
  dialogs_.AnswerNext(Answer::Yes);
  const std::string name(51, 'x');
  if (TestedStoreKind() == StoreKind::Access) {
    const std::string before = folder_.Bookings();
    EXPECT_THROW(Rename(20, 20, name), NameTooLongError) << "this kind of file holds 50 characters";
    EXPECT_EQ(before, folder_.Bookings());
    EXPECT_EQ(kRenameAll, dialogs_.OnlyBox());
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

TEST_F(RenameBookingsTest, AnsweringNoRenamesThePickedDateAndKeepsItsKey) {
  AddGroup();
  dialogs_.AnswerNext(Answer::No);
  Rename(20, 20, "Band");
  EXPECT_EQ(
      "1 2014-04-06 19-21 Band 20140401120000\n1 2014-04-13 19-21 Choir 20140401120000\n"
      "1 2014-04-20 19-21 Choir 20140401120000\n2 2014-04-06 19-21 Choir 20140401120000\n",
      folder_.Bookings());
}

TEST_F(RenameBookingsTest, FindingNothingToRenameNamesTheRowsAndShowsAnEmptyBox) {
  Rename(20, 21, "ghost");
  EXPECT_EQ("20 ghost\n21 ghost\n", Rendered(grid_));
  EXPECT_EQ("[OK Exclamation] ", dialogs_.OnlyBox());
  EXPECT_EQ("", folder_.Bookings());
}

TEST_F(RenameBookingsTest, RenamingToTheSameNameIsReportedAllTheSame) {
  folder_.AddBooking(pool_, "2014-04-06", 19, 21, "Smith");
  Rename(20, 20, "Smith");
  EXPECT_EQ("[OK Exclamation] Booking Name Changed.", dialogs_.OnlyBox());
}

}  // namespace
}  // namespace veyra::modRes
