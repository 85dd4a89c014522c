#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/errors.h"
#include "data/journal.h"
#include "data/open_file_store.h"
#include "data/schema.h"
#include "tests/data/access/access_folder.h"
#include "tests/data/access/index_check.h"

namespace veyra {
namespace {

constexpr int kOnOnePage = 40;
constexpr int kOnManyPages = 9000;

FieldValues BookingOf(int number) {
  const Date day = AddDays(std::chrono::year{2014} / 1 / 1, number * 37 % 2000);
  const std::string name = number % 5 == 0 ? std::string(50, 'W') : "Ж" + std::to_string(number);
  return Booking(number % 7 + 1, name, day, number % 40 + 1, number % 40 + 3,
                 number % 3 == 0 ? Value(Null{}) : Value(20140315090000.0 + number));
}

std::vector<FieldValues> Bookings(int first, int end) {
  std::vector<FieldValues> rows;
  for (int i = first; i < end; ++i) {
    rows.push_back(BookingOf(i));
  }
  return rows;
}

/// A new calendar whose tables are filled.
class FilledTable : public testing::Test {
 protected:
  FilledTable() : store_(Make("Calendar.mdb")) {}

  std::unique_ptr<FileStore> Make(const std::string& name) const {
    auto store = CreateFileStore(File(name), Durability::WhenAsked, FileKind::Access);
    store->CreateTable(RoomsTable());
    store->CreateTable(ReservTable());
    return store;
  }

  std::string File(const std::string& name = "Calendar.mdb") const {
    return folder_.File(name).string();
  }

  /// In two parts, as a conversion of many rows does.
  void FillInParts(int count) {
    store_->Fill("Reserv", Bookings(0, count / 3));
    store_->Fill("Reserv", Bookings(count / 3, count));
    store_->EndFilling("Reserv");
  }

  void ExpectSound() {
    EXPECT_EQ(std::vector<Phrase>{}, store_->Verify());
    EXPECT_EQ("", IndexFaults(File(), "Reserv"));
    EXPECT_EQ("", IndexFaults(File(), "Rooms"));
  }

  /// Sound, and as a file to which the same rows were added.
  void ExpectAsIfInserted(int count) {
    ExpectSound();
    const auto other = Make("Other.mdb");
    other->InsertAll("Reserv", Bookings(0, count));
    EXPECT_EQ(RowTexts(*other, "Reserv"), RowTexts(*store_, "Reserv"));
    if (AccessFolder::HasOtherReader()) {
      EXPECT_EQ("", FirstDifference(AccessFolder::OtherReader(File("Other.mdb"), "Reserv"),
                                    AccessFolder::OtherReader(File(), "Reserv")));
    }
  }

  static std::vector<FieldValues> Facilities(const std::vector<std::int64_t>& numbers) {
    std::vector<FieldValues> rows;
    for (const std::int64_t number : numbers) {
      rows.push_back({{"ID", number}, {"Name", "Hall"}});
    }
    return rows;
  }

  template <typename Action>
  static std::string ReportOf(const Action& action) {
    try {
      action();
    } catch (const DatabaseError& error) {
      return (error.report().Cause + error.report().Advice).English();
    }
    return "";
  }

  TempFolder folder_;
  std::unique_ptr<FileStore> store_;
};

TEST_F(FilledTable, WithoutRowsIsSound) {
  store_->Fill("Reserv", {});
  store_->EndFilling("Reserv");
  ExpectAsIfInserted(0);
}

TEST_F(FilledTable, OfOnePageIsAsIfItsRowsWereInserted) {
  FillInParts(kOnOnePage);
  ExpectAsIfInserted(kOnOnePage);
}

TEST_F(FilledTable, OfManyPagesIsAsIfItsRowsWereInserted) {
  FillInParts(kOnManyPages);
  ExpectAsIfInserted(kOnManyPages);
}

TEST_F(FilledTable, LacksEntriesOnlyUntilItsFillingEnds) {
  store_->Fill("Reserv", Bookings(0, kOnOnePage));
  EXPECT_NE("", IndexFaults(File(), "Reserv"));
  store_->EndFilling("Reserv");
  EXPECT_EQ("", IndexFaults(File(), "Reserv"));
}

TEST_F(FilledTable, IsBookedInAsAnyOther) {
  FillInParts(kOnManyPages);
  const Row added = store_->Insert("Reserv", BookingOf(7));
  store_->Delete("Reserv", AllRows(*store_, "Reserv").front());
  store_->Update("Reserv", added, {{"RmID", std::int64_t{99}}});
  ExpectSound();
  EXPECT_EQ(static_cast<std::size_t>(kOnManyPages), AllRows(*store_, "Reserv").size());
}

TEST_F(FilledTable, RefusesASecondNumberAsAnInsertionDoes) {
  const auto other = Make("Other.mdb");
  other->InsertAll("Rooms", Facilities({1, 2}));
  const std::string report = ReportOf([&] { other->InsertAll("Rooms", Facilities({3, 2})); });
  EXPECT_NE("", report);
  store_->Fill("Rooms", Facilities({1, 2}));
  EXPECT_EQ(report, ReportOf([&] { store_->Fill("Rooms", Facilities({3, 2})); }));
  EXPECT_EQ(report, ReportOf([&] { store_->Fill("Rooms", Facilities({5, 5})); }));
}

TEST_F(FilledTable, WithARefusedPartIsSoundWithoutIt) {
  store_->Fill("Reserv", Bookings(0, 300));
  std::vector<FieldValues> refused = Bookings(300, 600);
  refused.back() = Booking(1, std::string(51, 'W'), std::chrono::year{2014} / 1 / 1, 1, 2);
  EXPECT_THROW(store_->Fill("Reserv", refused), ValueRefusedError);
  store_->EndFilling("Reserv");
  ExpectAsIfInserted(300);
}

TEST_F(FilledTable, OfAKeptJournalIsEnteredInIt) {
  store_->KeepJournal(true);
  FillInParts(kOnOnePage);
  ExpectAsIfInserted(kOnOnePage);
  EXPECT_EQ(static_cast<std::size_t>(kOnOnePage), AllRows(*store_, kJournalTable).size());
}

TEST_F(FilledTable, GivesTheNextNumberAfterItsHighest) {
  store_->Fill("Rooms", Facilities({4, 40}));
  store_->EndFilling("Rooms");
  EXPECT_EQ(Value(std::int64_t{41}), store_->Insert("Rooms", {{"Name", "New"}}).Values.front());
}

}  // namespace
}  // namespace veyra
