#include "data/access/write/column_properties.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "data/create_store.h"
#include "data/schema.h"
#include "tests/data/access/access_folder.h"
#include "tests/data/access/fixtures.h"

namespace veyra {
namespace {

/// A calendar of the given file after the program's start.
class ColumnProperties : public testing::Test {
 protected:
  static void Start(const std::filesystem::path& folder) {
    Databases databases;
    databases.DataFolder = folder.string();
    CreateResCon(databases);
    EnsureSettingsRow(databases);
    EnsureMultKeyColumn(databases);
    EnsureTodayBColorColumn(databases);
  }

  static std::string Copy(const TempFolder& folder, const std::filesystem::path& from) {
    const auto file = folder.File("Calendar.mdb");
    std::filesystem::copy_file(from, file);
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);
    return file.string();
  }

  /// "DefaultValue: 0;Required: no;" as another reader finds them for a column.
  static std::string Of(const std::string& file, const std::string& table,
                        const std::string& column) {
    std::vector<std::string> lines;
    bool is_it = false;
    for (const std::string& line :
         AccessFolder::LinesOfCommand("mdb-prop '" + file + "' " + table)) {
      if (line.starts_with("name: ")) {
        is_it = line == "name: " + column;
      } else if (is_it && line.starts_with("\t")) {
        lines.push_back(line.substr(1));
      }
    }
    std::sort(lines.begin(), lines.end());
    std::string found;
    for (const std::string& line : lines) {
      found += line + ";";
    }
    return found;
  }
};

TEST_F(ColumnProperties, OfANewCalendarAreAsOtherProgramsNeedThem) {
  if (!AccessFolder::HasOtherReader()) {
    GTEST_SKIP() << "mdb-prop is not installed";
  }
  const TempFolder folder;
  const std::string file = folder.File("Calendar.mdb").string();
  {
    const auto store = CreateStore(file, Durability::AtOnce, FileKind::Access);
    store->CreateTable(RoomsTable());
    store->CreateTable(ReservTable());
  }
  Start(folder.path());
  EXPECT_EQ("DefaultValue: 0;Required: no;", Of(file, "Reserv", "MultKey"));
  EXPECT_EQ("AllowZeroLength: yes;Required: no;", Of(file, "Reserv", "Event"));
  EXPECT_EQ("Required: no;", Of(file, "Settings", "ID"));
  for (const char* column : {"BkGrnd", "HeaderTxt", "DaysTxtColor", "TodayColor"}) {
    EXPECT_EQ("AllowZeroLength: yes;Required: no;", Of(file, "Settings", column)) << column;
  }
  EXPECT_EQ("AllowZeroLength: no;DefaultValue: 0;Required: no;",
            Of(file, "Settings", "TodayBColor"));
}

TEST_F(ColumnProperties, OfAnUpgradedCalendarAreAsOtherProgramsNeedThem) {
  VEYRA_NEED_FIXTURES();
  if (!AccessFolder::HasOtherReader()) {
    GTEST_SKIP() << "mdb-prop is not installed";
  }
  const TempFolder folder;
  const std::string file = Copy(folder, FixtureFolder() / "calendar-old" / "Calendar.mdb");
  Start(folder.path());
  EXPECT_EQ("DefaultValue: 0;Required: no;", Of(file, "Reserv", "MultKey"));
  EXPECT_EQ("AllowZeroLength: yes;Required: no;", Of(file, "Settings", "BkGrnd"));
}

TEST_F(ColumnProperties, StandBesideThoseThatAnotherProgramGave) {
  VEYRA_NEED_FIXTURES();
  if (!AccessFolder::HasOtherReader()) {
    GTEST_SKIP() << "mdb-prop is not installed";
  }
  const TempFolder folder;
  const std::string file = Copy(folder, FixtureFolder() / "real" / "jet4-a2000-deleted.mdb");
  const std::string of_table = Of(file, "Table", "(none)");
  const std::string of_column = Of(file, "Table", "b");
  EXPECT_NE("", of_table);
  EXPECT_NE("", of_column);
  OpenAccessStore(file, StoreAccess::ReadWrite)
      ->AddColumn("Table", {.Name = "MultKey", .Type = ColumnType::Double, .Default = 0.0});
  EXPECT_EQ(of_table, Of(file, "Table", "(none)"));
  EXPECT_EQ(of_column, Of(file, "Table", "b"));
  EXPECT_EQ("DefaultValue: 0;Required: no;", Of(file, "Table", "MultKey"));
}

TEST_F(ColumnProperties, OfAnotherKindAreLeftAsTheyAre) {
  const access::Bytes other = {'K', 'K', 'D', 0, 1, 2};
  EXPECT_EQ(other, access::WithColumnProperties(other, {{.Name = "MultKey"}}));
}

TEST_F(ColumnProperties, PutADefaultTextInQuotes) {
  const access::Bytes bytes =
      access::WithColumnProperties({}, {{.Name = "Note", .Default = std::string("a \"b\"")}});
  std::string text;
  for (const access::Byte byte : bytes) {
    if (byte != 0) {
      text.push_back(static_cast<char>(byte));
    }
  }
  EXPECT_NE(std::string::npos, text.find("\"a \"\"b\"\"\""));
}

}  // namespace
}  // namespace veyra
