#include "tests/data/access/fixtures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <regex>
#include <string>
#include <vector>

#include "data/access/access_store.h"
#include "data/access/check/check_file.h"
#include "data/date.h"
#include "data/errors.h"
#include "tests/data/access/file_text.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

struct KnownTable {
  std::string Database;
  std::string Rows;  ///< The file of its rows; its name is the table's.
};

void PrintTo(const KnownTable& known, std::ostream* out) {
  *out << known.Rows;
}

class KnownTables : public testing::TestWithParam<KnownTable> {
 protected:
  void SetUp() override { VEYRA_NEED_FIXTURES(); }

  std::filesystem::path Database() const { return FixtureFolder() / GetParam().Database; }
  std::filesystem::path Rows() const { return FixtureFolder() / GetParam().Rows; }
  std::string Table() const { return Rows().stem().string(); }
};

void ExpectTable(const std::filesystem::path& database, const std::filesystem::path& rows) {
  access::PageFile file(database, false);
  std::vector<std::string> expected = Lines(rows);
  ASSERT_FALSE(expected.empty());
  const std::string columns = std::regex_replace(expected.front(), std::regex(":[^\t]*"), "");
  expected.erase(expected.begin());
  EXPECT_EQ(columns, ColumnsText(file, rows.stem().string()));
  EXPECT_EQ(expected, TableText(file, rows.stem().string()));
}

TEST_P(KnownTables, ReadAsTheyWereWritten) {
  ExpectTable(Database(), Rows());
}

TEST_P(KnownTables, AreNamedInTheCatalogue) {
  const auto store = OpenAccessStore(Database().string(), StoreAccess::ReadOnly);
  const auto names = store->TableNames();
  EXPECT_NE(names.end(), std::find(names.begin(), names.end(), Table()));
}

INSTANTIATE_TEST_SUITE_P(
    Access, KnownTables,
    testing::Values(
        KnownTable{"guests-small/Veyra.mdb", "guests-small/Guest.tsv"},
        KnownTable{"guests-empty/Veyra.mdb", "guests-empty/Guest.tsv"},
        KnownTable{"guests-large/Veyra.mdb", "guests-large/Guest.tsv"},
        KnownTable{"guests-jet3/Veyra.mdb", "guests-jet3/Guest.tsv"},
        KnownTable{"calendar-old/Calendar.mdb", "calendar-old/Rooms.tsv"},
        KnownTable{"calendar-old/Calendar.mdb", "calendar-old/Reserv.tsv"},
        KnownTable{"calendar-current/Calendar.mdb", "calendar-current/Rooms.tsv"},
        KnownTable{"calendar-current/Calendar.mdb", "calendar-current/Reserv.tsv"},
        KnownTable{"calendar-current/Calendar.mdb", "calendar-current/Settings.tsv"},
        KnownTable{"calendar-memo/Calendar.mdb", "calendar-memo/Rooms.tsv"},
        KnownTable{"calendar-memo/Calendar.mdb", "calendar-memo/Reserv.tsv"},
        KnownTable{"calendar-memo/Calendar.mdb", "calendar-memo/Settings.tsv"},
        KnownTable{"real/jet3-a97-overflow.mdb", "real/truth-jet3-a97-overflow/Table1.tsv"},
        KnownTable{"real/jet4-a2000-deleted.mdb", "real/truth-jet4-a2000-deleted/Table.tsv"},
        KnownTable{"real/jet4-a2003-overflow.mdb", "real/truth-jet4-a2003-overflow/Table1.tsv"},
        KnownTable{"real/jet4-a2003-unicodecomp.mdb",
                   "real/truth-jet4-a2003-unicodecomp/Table.tsv"},
        KnownTable{"real/jet4-dates.mdb", "real/truth-jet4-dates/DateTest.tsv"},
        KnownTable{"real/jet4-encoded-rc4.mdb", "real/truth-jet4-encoded-rc4/Table1.tsv"}));

/// A calendar of our own making, with rows that were taken out again; mdb-export wrote its rows.
class OwnFile : public testing::TestWithParam<const char*> {
 protected:
  static std::filesystem::path Folder() { return VEYRA_OWN_FILES_FOLDER; }
};

TEST_P(OwnFile, IsReadAsItWasWritten) {
  ExpectTable(Folder() / "Calendar.mdb", (Folder() / GetParam()).replace_extension(".tsv"));
}

INSTANTIATE_TEST_SUITE_P(Access, OwnFile, testing::Values("Rooms", "Reserv"));

TEST_F(OwnFile, TakesABookingAndStaysWhole) {
  const TempFolder folder;
  const auto copy = folder.File("Calendar.mdb");
  std::filesystem::copy_file(Folder() / "Calendar.mdb", copy);
  std::filesystem::permissions(copy, std::filesystem::perms::owner_all);
  auto expected = Lines(Folder() / "Reserv.tsv");
  expected.front() = "2\tneu 名\t2014-04-06T00:00:00\t19\t21\t\\N";
  std::sort(expected.begin(), expected.end());
  OpenAccessStore(copy.string(), StoreAccess::ReadWrite)
      ->Insert("Reserv", {{"RmID", 2},
                          {"Event", "neu 名"},
                          {"DateOfRes", MakeDate(2014, 4, 6).value()},
                          {"TimeFrom", 19},
                          {"TimeTo", 21}});
  auto rows = TableText(copy, "Reserv");
  std::sort(rows.begin(), rows.end());
  EXPECT_EQ(expected, rows);
  access::PageFile file(copy, false);
  EXPECT_EQ(std::vector<Phrase>{}, access::CheckFile(file));
}

TEST(PasswordProtectedFile, IsRefusedWithAWordOnThePassword) {
  VEYRA_NEED_FIXTURES();
  const auto file = FixtureFolder() / "real/jet4-a2000-password.mdb";
  try {
    OpenAccessStore(file.string(), StoreAccess::ReadOnly);
    FAIL() << "the file was opened";
  } catch (const DatabaseError& error) {
    EXPECT_NE(std::string::npos, error.report().Cause.English().find("password"));
  }
}

class DamagedFixtures : public testing::TestWithParam<std::string> {
 protected:
  void SetUp() override { VEYRA_NEED_FIXTURES(); }
};

/// Reads all that the store gives; how many rows that was.
std::size_t ReadAll(Store& store) {
  std::size_t rows = 0;
  for (const std::string& table : store.TableNames()) {
    try {
      const auto source = store.Select({table, {}, {}});
      for (Row row; source->Next(row);) {
        ++rows;
      }
    } catch (const DatabaseError&) {
      continue;
    }
  }
  return rows;
}

TEST_P(DamagedFixtures, AreReadOrRefusedInTime) {
  const auto start = std::chrono::steady_clock::now();
  try {
    ReadAll(*OpenAccessStore((FixtureFolder() / "corrupt" / GetParam()).string(),
                             StoreAccess::ReadOnly));
  } catch (const DatabaseError& error) {
    EXPECT_FALSE(error.report().Cause.English().empty());
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

INSTANTIATE_TEST_SUITE_P(Access, DamagedFixtures,
                         testing::Values("naive-hang-343.mdb", "naive-hang-76.mdb",
                                         "naive-segv-806.mdb"));

}  // namespace
}  // namespace veyra
