#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "tests/data/access/fixtures.h"
#include "tests/tools/companion/convert_fixture.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

TEST_F(ConvertCommandTest, AnUnreadableDateIsReportedWithItsRow) {
  {
    const auto store = Make(FileKind::Sqlite);
    Fill(*store, 5);
    store->Insert("Reserv", {{"DateOfRes", std::string("31/12/2014")}});
  }
  ExpectRefusal("access",
                "Row 6 of the table Reserv cannot be converted. DateOfRes holds \"31/12/2014\", "
                "which is not a date.");
}

TEST_F(ConvertCommandTest, ANumberThatAccessCannotHoldIsReportedWithItsRow) {
  {
    const auto store = Make(FileKind::Sqlite);
    store->Insert("Rooms", {{"ID", std::int64_t{5'000'000'000}}});
  }
  ExpectRefusal("access", "Row 1 of the table Rooms cannot be converted. The column ID cannot");
}

TEST_F(ConvertCommandTest, ATextThatWouldBecomeAnotherIsReportedWithItsRow) {
  {
    const auto store = Make(FileKind::Sqlite);
    Fill(*store, 1);
    store->Insert("Reserv", {{"Event", std::string("bad \xFF byte")}});
  }
  ExpectRefusal("access", "Row 2 of the table Reserv cannot be converted. Event is \"bad");
}

TEST_F(ConvertCommandTest, ADateBeyondTheYearsIsReportedWithItsRow) {
  {
    const auto store = Make(FileKind::Access);
    Fill(*store, 1);
    store->Insert("Reserv", {{"DateOfRes", 1e8}});
  }
  ExpectRefusal("sqlite", "Row 2 of the table Reserv cannot be converted. DateOfRes holds");
}

TEST_F(ConvertCommandTest, ATableNameThatAccessFilesCannotHaveIsReported) {
  {
    const auto store = Make(FileKind::Sqlite);
    store->CreateTable({.Name = "Büro.1", .Columns = {{.Name = "A"}}});
  }
  ExpectRefusal("access", "The table Büro.1 cannot be converted.");
}

TEST_F(ConvertCommandTest, ANumberWrittenAsTextBecomesTheNumber) {
  {
    const auto store = Make(FileKind::Sqlite);
    store->CreateTable({.Name = "Settings", .Columns = {{.Name = "ID"}, {.Name = "BkGrnd"}}});
    store->Insert("Settings", {{"ID", std::string("1")}, {"BkGrnd", std::string("255")}});
  }
  Convert("access");
  EXPECT_EQ(Lines{"1|255"}, RowsOf(*Open(), "Settings"));
}

TEST_F(ConvertCommandTest, ALongEventMakesItsColumnWider) {
  const auto sizes_with = [&](std::size_t length) {
    fs::remove(File());
    Make(FileKind::Sqlite)->Insert("Reserv", {{"Event", std::string(length, 'e')}});
    Convert("access");
    const ColumnDescription event = Column(Open()->Describe(), "Event");
    return event.TypeName + " " + std::to_string(event.Size);
  };
  EXPECT_EQ("text 50", sizes_with(50));
  EXPECT_EQ("text 255", sizes_with(51));
  EXPECT_EQ("memo 0", sizes_with(256));
}

TEST_F(ConvertCommandTest, NamesOfFacilitiesAreTextsInAnAccessFileAsLongAsTheyFit) {
  const auto type_with = [&](std::size_t length) {
    fs::remove(File());
    Make(FileKind::Sqlite)->Insert("Rooms", {{"Name", std::string(length, 'n')}});
    Convert("access");
    return Column(Open()->Describe(), "Name").TypeName;
  };
  EXPECT_EQ("text", type_with(255));
  EXPECT_EQ("memo", type_with(256));
}

TEST_F(ConvertCommandTest, AnEmojiCountsAsAccessCountsIt) {
  std::string event;
  for (int i = 0; i < 26; ++i) {
    event += "🍰";
  }
  Make(FileKind::Sqlite)->Insert("Reserv", {{"Event", event}});
  Convert("access");
  EXPECT_EQ(255, Column(Open()->Describe(), "Event").Size);
}

TEST_F(ConvertCommandTest, TimesOfDayAreKeptAsText) {
  {
    const auto store = Make(FileKind::Access);
    store->CreateTable(Notes());
    store->Insert("Notes", {{"At", 41735.5625}});
    store->Insert("Notes", {{"At", kToday}});
  }
  Convert("sqlite");
  EXPECT_EQ((Lines{"1|\\N|\\N|\\N|2014-04-06 13:30:00|\\N", "2|\\N|\\N|\\N|2026-11-21|\\N"}),
            RowsOf(*Open(), "Notes"));
}

TEST_F(ConvertCommandTest, TheTimeOfDayOfABookingsDayIsDropped) {
  Make(FileKind::Access)->Insert("Reserv", {{"DateOfRes", 41735.5625}});
  Convert("sqlite");
  EXPECT_EQ(Lines{"\\N|\\N|2014-04-06|\\N|\\N|\\N"}, RowsOf(*Open(), "Reserv"));
}

TEST_F(ConvertCommandTest, FacilitiesOutOfOrderAreConverted) {
  {
    const auto store = Make(FileKind::Access);
    store->Insert("Rooms", {{"ID", std::int64_t{9}}, {"Name", "Attic"}});
    store->Insert("Rooms", {{"ID", std::int64_t{4}}, {"Name", "Cellar"}});
  }
  Convert("sqlite");
  EXPECT_EQ((Lines{"4|Cellar|\\N", "9|Attic|\\N"}), RowsOf(*Open(), "Rooms"));
}

/// A calendar that another program made, and what each of its tables holds.
class ConvertFixtureTest : public ConvertToTest {
 protected:
  static fs::path Source() { return FixtureFolder() / GetParam(); }

  /// The lines of "Rooms.tsv", with dates as this test writes them.
  static Lines Expected(const std::string& table) {
    std::ifstream file(Source() / (table + ".tsv"));
    Lines lines;
    for (std::string line; std::getline(file, line);) {
      std::replace(line.begin(), line.end(), '\t', '|');
      const std::size_t midnight = line.find("T00:00:00");
      if (midnight != std::string::npos) {
        line.erase(midnight, 9);
      }
      lines.push_back(line);
    }
    lines.erase(lines.begin());
    return lines;
  }

  void ExpectRowsOfFixture() {
    const auto store = Open();
    for (const auto& entry : fs::directory_iterator(Source())) {
      const fs::path name = entry.path().filename();
      if (name.extension() != ".tsv") {
        continue;
      }
      EXPECT_EQ(Expected(name.stem()), RowsOf(*store, name.stem())) << name;
    }
  }
};

INSTANTIATE_TEST_SUITE_P(, ConvertFixtureTest,
                         ::testing::Values("calendar-old", "calendar-current", "calendar-memo"));

TEST_P(ConvertFixtureTest, HoldsTheSameRowsInEitherKind) {
  VEYRA_NEED_FIXTURES();
  fs::copy_file(Source() / "Calendar.mdb", File());
  fs::permissions(File(), fs::perms::owner_write, fs::perm_options::add);
  ExpectRowsOfFixture();
  Convert("sqlite");
  EXPECT_EQ(FileKind::Sqlite, Kind());
  ExpectRowsOfFixture();
  Convert("access");
  EXPECT_EQ(FileKind::Access, Kind());
  ExpectRowsOfFixture();
}

/// Files that this program reads but never writes to.
class ConvertOldKindTest : public ConvertToTest {};

INSTANTIATE_TEST_SUITE_P(, ConvertOldKindTest,
                         ::testing::Values("guests-jet3/Veyra.mdb", "real/jet4-encoded-rc4.mdb"));

TEST_P(ConvertOldKindTest, BecomesAnAccessFileThatCanBeWrittenTo) {
  VEYRA_NEED_FIXTURES();
  fs::copy_file(FixtureFolder() / GetParam(), File());
  fs::permissions(File(), fs::perms::owner_write, fs::perm_options::add);
  const Lines before = Everything(*Open());
  EXPECT_FALSE(Open()->Describe().IsWritable);
  Convert("access");
  EXPECT_TRUE(Open()->Describe().IsWritable);
  EXPECT_EQ(before, Everything(*Open()));
}

}  // namespace
}  // namespace veyra
