#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "tests/data/access/access_folder.h"
#include "tests/data/access/fixtures.h"
#include "tests/data/access/index_check.h"
#include "tests/memory_folder.h"

namespace veyra {
namespace {

constexpr int kChanges = 5000;

/// A calendar that is changed at random, beside the rows that it ought to hold.
class RandomCalendar {
 public:
  explicit RandomCalendar(const std::string& file)
      : store_(OpenAccessStore(file, StoreAccess::ReadWrite)), rows_(AllRows(*store_, "Reserv")) {}

  void Change() {
    const int kind = Number(0, 9);
    if (rows_.empty() || kind < 5) {
      Add();
    } else if (kind < 8) {
      Alter();
    } else {
      Remove();
    }
  }

  std::vector<std::string> Expected() const {
    std::vector<std::string> texts;
    for (const Row& row : rows_) {
      texts.push_back(RowText(row));
    }
    return texts;
  }

  Store& GetStore() { return *store_; }

 private:
  int Number(int from, int to) { return std::uniform_int_distribution<int>(from, to)(random_); }

  std::string Text() {
    static const std::vector<std::string> kWords = {"Chess", "Łódź", "茶道教室", "Café",
                                                    "Übung", "x",    "",         "Ужин"};
    std::string text;
    for (int i = Number(0, 9); i > 0; --i) {
      text += kWords[static_cast<std::size_t>(Number(0, 7))];
    }
    return text;
  }

  /// The other reader knows no day before 1900.
  Date Day() {
    return Date(std::chrono::sys_days(std::chrono::year{2014} / 1 / 1) +
                std::chrono::days(Number(-40000, 5000)));
  }

  FieldValues Fields() {
    FieldValues fields = Booking(Number(1, 9), Text(), Day(), Number(1, 48), Number(1, 48));
    if (AllColumns() == 6) {
      fields.back().second =
          Number(0, 2) == 0 ? Value(Null{}) : Value(20140101000000.0 + Number(0, 1000));
    } else {
      fields.pop_back();
    }
    if (Number(0, 9) == 0) {
      fields[static_cast<std::size_t>(Number(0, 4))].second = Null{};
    }
    return fields;
  }

  std::size_t AllColumns() {
    if (columns_ == 0) {
      columns_ = store_->ColumnNames("Reserv").size();
    }
    return columns_;
  }

  void Add() { rows_.push_back(store_->Insert("Reserv", Fields())); }

  void Alter() {
    Row& row = rows_[static_cast<std::size_t>(Number(0, static_cast<int>(rows_.size()) - 1))];
    FieldValues fields = Fields();
    fields.resize(static_cast<std::size_t>(Number(1, static_cast<int>(fields.size()))));
    row = store_->Update("Reserv", row, fields);
  }

  void Remove() {
    const auto row = rows_.begin() + Number(0, static_cast<int>(rows_.size()) - 1);
    store_->Delete("Reserv", *row);
    rows_.erase(row);
  }

  std::unique_ptr<Store> store_;
  std::vector<Row> rows_;
  std::size_t columns_ = 0;
  std::mt19937 random_{20140315};
};

std::vector<std::string> Sorted(std::vector<std::string> lines) {
  std::sort(lines.begin(), lines.end());
  return lines;
}

/// The other reader lists a moved row where it has been moved to, not where it was.
std::vector<std::string> OtherReaderSorted(const std::string& file, const std::string& table) {
  return Sorted(AccessFolder::OtherReader(file, table));
}

class ChangedFixtures : public testing::TestWithParam<std::string> {
 protected:
  void SetUp() override { VEYRA_NEED_FIXTURES(); }

  std::string Copy() {
    PreferMemoryFolder();
    folder_.emplace();
    const auto copy = folder_->File("Calendar.mdb");
    std::filesystem::copy_file(FixtureFolder() / GetParam() / "Calendar.mdb", copy);
    std::filesystem::permissions(copy, std::filesystem::perms::owner_all);
    return copy.string();
  }

 private:
  std::optional<TempFolder> folder_;
};

TEST_P(ChangedFixtures, ReadAsTheyWereChanged) {
  const std::string file = Copy();
  RandomCalendar calendar(file);
  for (int i = 0; i < kChanges; ++i) {
    calendar.Change();
  }
  EXPECT_EQ("", FirstDifference(Sorted(calendar.Expected()),
                                Sorted(RowTexts(calendar.GetStore(), "Reserv"))));
  const auto reopened = OpenAccessStore(file, StoreAccess::ReadOnly);
  EXPECT_EQ("",
            FirstDifference(Sorted(calendar.Expected()), Sorted(RowTexts(*reopened, "Reserv"))));
  EXPECT_EQ("", IndexFaults(file, "Reserv"));
  if (!AccessFolder::HasOtherReader()) {
    GTEST_SKIP() << "mdb-export is not installed: no second reader has looked at the file";
  }
  EXPECT_EQ("", FirstDifference(Sorted(calendar.Expected()), OtherReaderSorted(file, "Reserv")));
  EXPECT_EQ(
      "", FirstDifference(RowTexts(*reopened, "Rooms"), AccessFolder::OtherReader(file, "Rooms")));
}

INSTANTIATE_TEST_SUITE_P(Access, ChangedFixtures,
                         testing::Values("calendar-old", "calendar-current", "calendar-memo"));

TEST(ChangedNewCalendar, ReadsAsItWasChanged) {
  PreferMemoryFolder();
  const AccessFolder folder;
  RandomCalendar calendar(folder.Calendar());
  for (int i = 0; i < kChanges; ++i) {
    calendar.Change();
  }
  EXPECT_EQ("", FirstDifference(Sorted(calendar.Expected()),
                                Sorted(RowTexts(calendar.GetStore(), "Reserv"))));
  EXPECT_EQ("", IndexFaults(folder.Calendar(), "Reserv"));
  if (!AccessFolder::HasOtherReader()) {
    GTEST_SKIP() << "mdb-export is not installed: no second reader has looked at the file";
  }
  EXPECT_EQ("", FirstDifference(Sorted(calendar.Expected()),
                                OtherReaderSorted(folder.Calendar(), "Reserv")));
}

}  // namespace
}  // namespace veyra
