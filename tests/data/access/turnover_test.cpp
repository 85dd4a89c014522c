#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <utility>

#include "data/access/write/create_file.h"
#include "data/create_store.h"
#include "data/schema.h"
#include "tests/data/access/access_folder.h"
#include "tests/data/access/index_check.h"

namespace veyra {
namespace {

constexpr int kBookings = 250;
constexpr int kTurnovers = 10;
constexpr double kMostGrowth = 1.3;

Date DayOf(int number) {
  return AddDays(std::chrono::year{2014} / 1 / 1, number);
}

FieldValues BookingOf(int number) {
  return Booking(number % 7 + 1, "Booking of a usual length " + std::to_string(number % 100),
                 DayOf(number % 900), number % 40 + 1, number % 40 + 3, 20140315090000.0 + number);
}

/// A new calendar that nobody else knows of: its changes take no time on a disk.
class Turnover : public testing::Test {
 protected:
  Turnover() {
    CreateAccessFile(file_);
    store_ = OpenNewAccessStore(file_, Durability::WhenAsked);
    store_->CreateTable(RoomsTable());
    store_->CreateTable(ReservTable());
  }

  void Fill() {
    for (int i = 0; i < kBookings; ++i) {
      rows_.push_back(store_->Insert("Reserv", BookingOf(i)));
    }
  }

  double Size() const { return static_cast<double>(std::filesystem::file_size(file_)); }

  TempFolder folder_;
  std::string file_ = folder_.File("Calendar.mdb").string();
  std::unique_ptr<Store> store_;
  std::vector<Row> rows_;
};

TEST_F(Turnover, OfOneBookingAfterAnotherTakesNoMoreRoom) {
  Fill();
  const double before = Size();
  for (int turn = 0; turn < kTurnovers; ++turn) {
    for (int i = 0; i < kBookings; ++i) {
      store_->Delete("Reserv", rows_[static_cast<std::size_t>(i)]);
      rows_[static_cast<std::size_t>(i)] = store_->Insert("Reserv", BookingOf(i));
    }
  }
  EXPECT_LE(Size(), kMostGrowth * before);
  EXPECT_EQ("", IndexFaults(file_, "Reserv"));
  EXPECT_EQ(static_cast<std::size_t>(kBookings), AllRows(*store_, "Reserv").size());
}

TEST_F(Turnover, OfAllBookingsAtOnceTakesNoMoreRoom) {
  Fill();
  const double before = Size();
  for (int turn = 0; turn < kTurnovers; ++turn) {
    std::shuffle(rows_.begin(), rows_.end(), std::mt19937(static_cast<unsigned>(turn)));
    for (const Row& row : rows_) {
      store_->Delete("Reserv", row);
    }
    rows_.clear();
    Fill();
  }
  EXPECT_LE(Size(), kMostGrowth * before);
  EXPECT_EQ("", IndexFaults(file_, "Reserv"));
}

TEST_F(Turnover, OfLongTextsTakesNoMoreRoom) {
  store_->CreateTable({.Name = "Notes", .Columns = {{.Name = "Text"}}});
  constexpr int kNotes = 40;
  const std::string text(150'000, 'x');
  double before = 0;
  for (int turn = 0; turn < 3; ++turn) {
    for (const Row& row : AllRows(*store_, "Notes")) {
      store_->Delete("Notes", row);
    }
    for (int i = 0; i < kNotes; ++i) {
      store_->Insert("Notes", {{"Text", text}});
    }
    before = turn == 0 ? Size() : before;
  }
  EXPECT_LE(Size(), kMostGrowth * before);
}

TEST_F(Turnover, LeavesAFacilityThatIsAddedLastInTheList) {
  for (const char* name : {"Pool", "Hall", "Bar"}) {
    rows_.push_back(store_->Insert("Rooms", {{"Name", name}}));
  }
  store_->Delete("Rooms", rows_[1]);
  store_->Insert("Rooms", {{"Name", "Spa"}});
  EXPECT_EQ((std::vector<std::string>{"1|Pool|", "3|Bar|", "4|Spa|"}), RowTexts(*store_, "Rooms"));
}

TEST_F(Turnover, OfManyRowsAtOnceKeepsTheIndexes) {
  std::vector<FieldValues> rows;
  for (int i = 0; i < kBookings; ++i) {
    rows.push_back(BookingOf(i));
  }
  const std::vector<Row> added = store_->InsertAll("Reserv", rows);
  ASSERT_EQ(rows.size(), added.size());
  EXPECT_EQ("", IndexFaults(file_, "Reserv"));
  std::vector<std::string> texts;
  for (const Row& row : added) {
    texts.push_back(RowText(row));
  }
  EXPECT_EQ(texts, RowTexts(*store_, "Reserv"));
  if (AccessFolder::HasOtherReader()) {
    EXPECT_EQ("", FirstDifference(texts, AccessFolder::OtherReader(file_, "Reserv")));
  }
}

TEST_F(Turnover, OfAGroupOfRowsIsOneChangeOfTheFile) {
  int changes = 0;
  const auto store = OpenAccessStore(
      file_, StoreAccess::ReadWrite, {},
      [&](access::CommitStep step) { changes += step == access::CommitStep::Done ? 1 : 0; });
  ASSERT_LT(1U, store->RowsAtOnce());
  Recordset rows(*store, ParseQuery("SELECT * FROM Reserv"), CursorType::StaticOptimistic);
  std::vector<FieldValues> added;
  for (std::size_t i = 0; i < store->RowsAtOnce(); ++i) {
    added.push_back(BookingOf(static_cast<int>(i)));
  }
  const std::vector<RowKey> bookmarks = rows.AddAll(added);
  EXPECT_EQ(1, changes);
  ASSERT_EQ(added.size(), bookmarks.size());
  EXPECT_EQ(bookmarks.back(), rows.Bookmark());
  ASSERT_TRUE(rows.MoveTo(bookmarks.front()));
  rows.Delete();
  EXPECT_EQ(added.size() - 1, AllRows(*store_, "Reserv").size());
}

TEST_F(Turnover, ADailySeriesOfAYearWaitsForTheDiskThreeTimesAsOftenAsOneBooking) {
  int steps = 0;
  const auto store =
      OpenAccessStore(file_, StoreAccess::ReadWrite, {}, [&steps](access::CommitStep) { ++steps; });
  store->Insert("Reserv", BookingOf(0));
  const int of_one = std::exchange(steps, 0);
  ASSERT_LT(0, of_one);
  const auto book = [&](std::size_t dates) {
    for (std::size_t at = 0; at < dates; at += store->RowsAtOnce()) {
      std::vector<FieldValues> rows;
      for (std::size_t i = at; i < std::min(at + store->RowsAtOnce(), dates); ++i) {
        rows.push_back(BookingOf(static_cast<int>(i)));
      }
      store->InsertAll("Reserv", rows);
    }
    return std::exchange(steps, 0);
  };
  constexpr std::size_t kDaysOfALeapYear = 366;
  constexpr std::size_t kWeeks = 53;
  EXPECT_LE(book(kDaysOfALeapYear), 3 * of_one);
  EXPECT_EQ(of_one, book(kWeeks));
}

TEST_F(Turnover, RefusesOneNumberTwiceAmongManyRows) {
  std::vector<FieldValues> rows(300, {{"Name", std::string("Pool")}});
  rows[200].emplace_back("ID", std::int64_t{7});
  EXPECT_THROW(store_->InsertAll("Rooms", rows), DatabaseError);
  EXPECT_TRUE(AllRows(*store_, "Rooms").empty());
}

}  // namespace
}  // namespace veyra
