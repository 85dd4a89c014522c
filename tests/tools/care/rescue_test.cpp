#include "tools/care/rescue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <map>
#include <random>
#include <set>
#include <vector>

#include "data/create_store.h"
#include "data/errors.h"
#include "data/open_file_store.h"
#include "data/open_store.h"
#include "data/schema.h"
#include "tests/data/access/fixtures.h"
#include "tests/store_kind.h"
#include "tests/temp_folder.h"
#include "tools/new_database.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

constexpr std::size_t kPage = 4096;
constexpr int kBookings = 200;

using Rows = std::multiset<std::string>;

bool Contains(const Rows& all, const Rows& part) {
  return std::includes(all.begin(), all.end(), part.begin(), part.end());
}

/// A calendar of one kind of file, and what is rescued of it when it is damaged.
class RescueTest : public testing::TestWithParam<StoreKind> {
 protected:
  RescueTest() {
    Make();
    sound_ = temp_.Read("Calendar.mdb");
    all_ = RowsOf(Rescue(sound_));
  }

  FileKind Kind() const {
    return GetParam() == StoreKind::Access ? FileKind::Access : FileKind::Sqlite;
  }

  void Make() const {
    const auto store =
        NewDatabase(temp_.File("Calendar.mdb"), Kind(), {RoomsTable(), ReservTable()});
    for (const char* name : {"Pool", "Hall", "Bar"}) {
      store->Insert("Rooms", {{"Name", name}, {"Active", std::int64_t{0}}});
    }
    std::vector<FieldValues> bookings;
    for (int i = 0; i < kBookings; ++i) {
      bookings.push_back(Booking(i));
    }
    store->InsertAll("Reserv", bookings);
  }

  static FieldValues Booking(int i) {
    return {{"RmID", std::int64_t{i % 3 + 1}},
            {"Event", "Event " + std::to_string(i)},
            {"DateOfRes",
             Date(std::chrono::sys_days(std::chrono::year{2026} / 3 / 1) + std::chrono::days(i))},
            {"TimeFrom", std::int64_t{i % 24 + 1}},
            {"TimeTo", std::int64_t{i % 24 + 20}},
            {"MultKey", i % 5 == 0 ? Value(20260301090000.0 + i) : Value(0.0)}};
  }

  /// What is rescued of a file of these bytes.
  Rescued Rescue(const std::string& bytes) const {
    temp_.Write("Damaged.mdb", bytes);
    fs::remove_all(temp_.File("new"));
    return RescueFile(temp_.File("Damaged.mdb"), temp_.File("new"), [](const CopyStep&) {});
  }

  /// The rows of the new file, with the names of their tables.
  static Rows RowsOf(const Rescued& rescued) {
    const auto store = OpenStore(rescued.File.string(), StoreAccess::ReadOnly);
    Rows rows;
    for (const std::string& table : store->TableNames()) {
      Query all;
      all.Table = table;
      const auto source = store->Select(all);
      for (Row row; source->Next(row);) {
        rows.insert(table + Text(row.Values));
      }
    }
    return rows;
  }

  static std::string Text(const std::vector<Value>& values) {
    std::string line;
    for (const Value& value : values) {
      const auto date = ToDate(value);
      line += "|" + (date ? IsoText(*date) : ToText(value));
    }
    return line;
  }

  /// The rows that begin on each page, as the sound file has them.
  std::map<std::int64_t, Rows> RowsByPage() const {
    std::map<std::int64_t, Rows> pages;
    const Rescued rescued = Rescue(sound_);
    for (const SalvagedTable& table : rescued.Read.Tables) {
      for (const SalvagedRow& row : table.Rows) {
        pages[row.Page - FirstPage()].insert(table.Table.Name + Text(row.Values));
      }
    }
    return pages;
  }

  /// The number of the file's first page.
  std::int64_t FirstPage() const { return Kind() == FileKind::Sqlite ? 1 : 0; }

  Rows Without(const Rows& gone) const {
    Rows rest;
    std::set_difference(all_.begin(), all_.end(), gone.begin(), gone.end(),
                        std::inserter(rest, rest.begin()));
    return rest;
  }

  std::string WithZeros(std::size_t from, std::size_t count) const {
    std::string bytes = sound_;
    return bytes.replace(from, count, std::string(count, '\0'));
  }

  TempFolder temp_;
  std::string sound_;
  Rows all_;
};

INSTANTIATE_TEST_SUITE_P(Kinds, RescueTest, testing::ValuesIn(kFileKinds),
                         [](const auto& kind) { return std::string(NameOf(kind.param)); });

TEST_P(RescueTest, ASoundFileComesThroughWhole) {
  const Rescued rescued = Rescue(sound_);
  EXPECT_EQ(kBookings + 3U, all_.size());
  EXPECT_TRUE(rescued.Read.Losses.empty());
  EXPECT_EQ(sound_, temp_.Read("Damaged.mdb"));
  EXPECT_EQ("Calendar.mdb", rescued.File.filename());
  EXPECT_EQ(1, std::distance(fs::directory_iterator(temp_.File("new")), {}));
}

TEST_P(RescueTest, AnEmptiedPageTakesItsOwnRowsOnly) {
  const auto pages = RowsByPage();
  for (std::size_t page = 0; page * kPage < sound_.size(); ++page) {
    const Rescued rescued = Rescue(WithZeros(page * kPage, kPage));
    const auto lost = pages.find(static_cast<std::int64_t>(page));
    const Rows expected = lost == pages.end() ? all_ : Without(lost->second);
    EXPECT_EQ(expected, RowsOf(rescued)) << "page " << page;
    EXPECT_EQ(expected == all_, rescued.Read.Losses.empty() || lost == pages.end()) << page;
  }
}

TEST_P(RescueTest, ATornPageTakesRowsOfItsOwnOnly) {
  const auto pages = RowsByPage();
  for (std::size_t page = 0; page * kPage < sound_.size(); ++page) {
    for (const std::size_t from : {std::size_t{0}, std::size_t{2048}}) {
      const std::size_t length = from == 0 ? 512 : kPage - from;
      const Rows rows = RowsOf(Rescue(WithZeros(page * kPage + from, length)));
      const auto own = pages.find(static_cast<std::int64_t>(page));
      EXPECT_TRUE(Contains(all_, rows)) << "page " << page << " torn at " << from;
      EXPECT_TRUE(Contains(rows, own == pages.end() ? all_ : Without(own->second)))
          << "page " << page << " torn at " << from;
    }
  }
}

TEST_P(RescueTest, ALostPageIsNamedWithItsTable) {
  for (const auto& [page, rows] : RowsByPage()) {
    const bool is_of_bookings = rows.begin()->starts_with("Reserv");
    if (!is_of_bookings) {
      continue;
    }
    const Rescued rescued = Rescue(WithZeros(static_cast<std::size_t>(page) * kPage, kPage));
    ASSERT_EQ(1U, rescued.Read.Losses.size());
    EXPECT_EQ("Reserv", rescued.Read.Losses.front().Table);
    EXPECT_EQ(page + FirstPage(), rescued.Read.Losses.front().Page);
  }
}

TEST_P(RescueTest, AFlippedBitTakesNoRowOfAnotherPage) {
  std::mt19937 random(20260301);
  const auto pages = RowsByPage();
  for (int i = 0; i < 40; ++i) {
    auto page = pages.begin();
    std::advance(page, random() % pages.size());
    std::string bytes = sound_;
    const std::size_t at = static_cast<std::size_t>(page->first) * kPage +
                           (random() % 2 == 0 ? random() % 80 : random() % kPage);
    bytes[at] = static_cast<char>(bytes[at] ^ (1 << random() % 8));
    const Rows rows = RowsOf(Rescue(bytes));
    // Of the page itself, at most the row that was hit can have become another.
    Rows strange;
    std::set_difference(rows.begin(), rows.end(), all_.begin(), all_.end(),
                        std::inserter(strange, strange.begin()));
    EXPECT_LE(strange.size(), 1U) << "byte " << at;
    if (page->second.begin()->starts_with("Reserv") || page->second.begin()->starts_with("Rooms")) {
      EXPECT_TRUE(Contains(rows, Without(page->second))) << "byte " << at;
    }
  }
}

TEST_P(RescueTest, OfAFileCutShortAllThatIsThereComesThrough) {
  const auto pages = RowsByPage();
  const std::size_t count = sound_.size() / kPage;
  for (std::size_t kept = count * 3 / 4; kept < count; kept += 3) {
    Rows gone;
    for (const auto& [page, rows] : pages) {
      if (static_cast<std::size_t>(page) >= kept) {
        gone.insert(rows.begin(), rows.end());
      }
    }
    const Rescued rescued = Rescue(sound_.substr(0, kept * kPage + 100));
    EXPECT_EQ(Without(gone), RowsOf(rescued)) << kept << " pages";
    EXPECT_FALSE(rescued.Read.Losses.empty());
  }
}

/// Every page that names others names itself, or pages that name it.
TEST_P(RescueTest, CirclesOfPagesAreLeft) {
  const auto pages = sound_.size() / kPage;
  for (std::size_t page = 1; page < pages; page += 3) {
    std::string bytes = sound_;
    for (std::size_t at = page * kPage + 4; at < (page + 1) * kPage; at += 4) {
      bytes[at] = Kind() == FileKind::Sqlite ? '\0' : static_cast<char>(page);
      bytes[at + 1] = '\0';
      bytes[at + 2] = '\0';
      bytes[at + 3] = Kind() == FileKind::Sqlite ? static_cast<char>(page + 1) : '\0';
    }
    try {
      Rescue(bytes);
    } catch (const Error&) {
      // To give up is right, too, as long as it comes to an end.
    }
  }
}

TEST_P(RescueTest, ManyKindsOfDamageAtOnceAreSurvived) {
  std::mt19937 random(7);
  int made = 0;
  for (int i = 0; i < 40; ++i) {
    std::string bytes = sound_;
    for (int hit = 0; hit < 12; ++hit) {
      const std::size_t page = random() % (bytes.size() / kPage);
      const std::size_t at = page * kPage + (random() % 2 == 0 ? random() % 120 : random() % kPage);
      bytes.replace(std::min(at, bytes.size() - 4), 4, i % 2 == 0 ? "\xFF\xFF\xFF\xFF" : "\0\0\0\1",
                    4);
    }
    try {
      const Rescued rescued = Rescue(bytes);
      EXPECT_TRUE(OpenFileStore(rescued.File.string(), StoreAccess::ReadOnly)->Verify().empty());
      ++made;
    } catch (const DatabaseError&) {
      EXPECT_FALSE(fs::exists(temp_.File("new")));
    }
  }
  EXPECT_GT(made, 20);
}

TEST_P(RescueTest, OfAFileOfNothingNothingIsMade) {
  for (const std::string& bytes : {std::string(), std::string(3 * kPage, '\0'),
                                   std::string("not a database"), std::string(3 * kPage, 'x')}) {
    EXPECT_THROW(Rescue(bytes), DatabaseError);
    EXPECT_FALSE(fs::exists(temp_.File("new")));
  }
}

TEST_P(RescueTest, ACalendarThatIsThereIsNotWrittenOver) {
  Rescue(sound_);
  const std::string before = temp_.Read("new/Calendar.mdb");
  EXPECT_THROW(RescueFile(temp_.File("Damaged.mdb"), temp_.File("new"), [](const CopyStep&) {}),
               FileError);
  EXPECT_EQ(before, temp_.Read("new/Calendar.mdb"));
}

TEST_P(RescueTest, BrokenOffItLeavesNoFolder) {
  fs::remove_all(temp_.File("new"));
  for (const std::string verb : {"Read", "Copied", "Compared"}) {
    EXPECT_THROW(RescueFile(temp_.File("Damaged.mdb"), temp_.File("new"),
                            [&verb](const CopyStep& step) {
                              if (step.Verb == verb) {
                                throw std::runtime_error("broken off");
                              }
                            }),
                 std::runtime_error);
    EXPECT_EQ((std::vector<std::string>{"Calendar.mdb", "Damaged.mdb"}), temp_.Names());
  }
}

TEST_P(RescueTest, DeletedRowsStayDeleted) {
  const auto store = OpenStore(temp_.File("Calendar.mdb").string(), StoreAccess::ReadWrite);
  Query query;
  query.Table = "Reserv";
  std::vector<Row> rows;
  for (auto [source, row] = std::pair(store->Select(query), Row()); source->Next(row);) {
    rows.push_back(row);
  }
  for (std::size_t i = 0; i < rows.size(); i += 2) {
    store->Delete("Reserv", rows[i]);
  }
  for (std::size_t i = 1; i < 20; i += 2) {
    store->Update("Reserv", rows[i], {{"Event", std::string(45, 'm')}});
  }
  const Rescued rescued =
      RescueFile(temp_.File("Calendar.mdb"), temp_.File("other"), [](const CopyStep&) {});
  EXPECT_EQ(kBookings / 2 + 3U, RowsOf(rescued).size());
  EXPECT_TRUE(rescued.Read.Losses.empty());
}

/// Its names are memos, which another program may well have made.
TEST_P(RescueTest, ATableUnlikeOursIsNotReadAsIfItWereOurs) {
  fs::remove(temp_.File("Calendar.mdb"));
  {
    const auto store =
        CreateStore(temp_.File("Calendar.mdb").string(), Durability::WhenAsked, Kind());
    store->CreateTable(RoomsTable());
    store->Insert("Rooms", {{"Name", "Pool"}, {"Active", std::int64_t{0}}});
  }
  sound_ = temp_.Read("Calendar.mdb");
  for (std::size_t page = 0; page * kPage < sound_.size(); ++page) {
    try {
      for (const std::string& row : RowsOf(Rescue(WithZeros(page * kPage, kPage)))) {
        EXPECT_EQ("Rooms|1|Pool|0", row) << "page " << page;
      }
    } catch (const DatabaseError&) {
      EXPECT_FALSE(fs::exists(temp_.File("new")));
    }
  }
}

TEST(RescuedLogTest, ChangesInTheLogOfASqliteFileAreRead) {
  const TempFolder temp;
  const auto store =
      CreateStore(temp.File("Calendar.mdb").string(), Durability::AtOnce, FileKind::Sqlite);
  store->CreateTable(RoomsTable());
  store->Insert("Rooms", {{"Name", "Pool"}});
  ASSERT_TRUE(fs::exists(temp.File("Calendar.mdb-wal")));
  fs::copy_file(temp.File("Calendar.mdb"), temp.File("Damaged.mdb"));
  fs::copy_file(temp.File("Calendar.mdb-wal"), temp.File("Damaged.mdb-wal"));
  const Rescued rescued =
      RescueFile(temp.File("Damaged.mdb"), temp.File("new"), [](const CopyStep&) {});
  ASSERT_FALSE(rescued.Read.Tables.empty());
  EXPECT_EQ(1U, rescued.Read.Tables.front().Rows.size());
}

class RescuedFixtureTest : public testing::TestWithParam<std::string> {};

/// Files of other makers, which have nothing wrong with them.
TEST_P(RescuedFixtureTest, ComesThroughWhole) {
  VEYRA_NEED_FIXTURES();
  const TempFolder temp;
  const Rescued rescued =
      RescueFile(FixtureFolder() / GetParam(), temp.File("new"), [](const CopyStep&) {});
  for (const SalvageLoss& loss : rescued.Read.Losses) {
    ADD_FAILURE() << loss.Table << ": " << loss.What;
  }
  for (const SalvagedTable& table : rescued.Read.Tables) {
    EXPECT_EQ(table.Expected, static_cast<std::int64_t>(table.Rows.size())) << table.Table.Name;
  }
}

INSTANTIATE_TEST_SUITE_P(Access, RescuedFixtureTest,
                         testing::Values("calendar-current/Calendar.mdb",
                                         "calendar-old/Calendar.mdb", "calendar-memo/Calendar.mdb",
                                         "guests-small/Veyra.mdb", "guests-jet3/Veyra.mdb",
                                         "real/jet4-dates.mdb", "real/jet4-a2000-deleted.mdb",
                                         "real/jet4-encoded-rc4.mdb"));

}  // namespace
}  // namespace veyra
