#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <string>

#include "data/errors.h"
#include "tests/data/access/access_folder.h"
#include "tests/data/access/fixtures.h"
#include "tests/data/access/read_everything.h"
#include "tests/memory_folder.h"

namespace veyra {
namespace {

/// How many damaged files are read: VEYRA_MUTATIONS, or a number that takes a few seconds.
int MutationCount() {
  const char* wanted = std::getenv("VEYRA_MUTATIONS");
  return wanted == nullptr ? 1000 : std::atoi(wanted);
}

/// Damages the bytes of a database file at random.
class Mutator {
 public:
  std::string Damaged(std::string bytes) {
    for (std::size_t i = Number(1, 8); i > 0; --i) {
      DamageOnce(bytes);
    }
    return bytes;
  }

 private:
  std::size_t Number(std::size_t from, std::size_t to) {
    return std::uniform_int_distribution<std::size_t>(from, to)(random_);
  }

  void DamageOnce(std::string& bytes) {
    if (bytes.empty()) {
      return;
    }
    const std::size_t at = Place(bytes.size());
    switch (Number(0, 5)) {
      case 0:
        bytes[at] = static_cast<char>(Number(0, 255));
        break;
      case 1:
        bytes[at] = static_cast<char>(bytes[at] ^ static_cast<char>(1U << Number(0, 7)));
        break;
      case 2:
        bytes.replace(at, std::min<std::size_t>(4, bytes.size() - at), "\xFF\xFF\xFF\xFF", 4);
        break;
      case 3:
        bytes.replace(at, std::min<std::size_t>(2, bytes.size() - at),
                      std::string(1, static_cast<char>(Number(0, 40))) + '\0');
        break;
      case 4:
        CopyPage(bytes);
        break;
      default:
        if (Number(0, 9) == 0) {
          bytes.resize(at);
        }
    }
  }

  /// Where the beginnings of pages, which hold their structure, are hit more often.
  std::size_t Place(std::size_t size) {
    const std::size_t page = Number(0, (size - 1) / kPage) * kPage;
    const std::size_t offset = Number(0, 1) == 0 ? Number(0, 79) : Number(0, kPage - 1);
    return std::min(page + offset, size - 1);
  }

  void CopyPage(std::string& bytes) {
    const std::size_t pages = bytes.size() / kPage;
    if (pages > 1) {
      const std::string page = bytes.substr(Number(0, pages - 1) * kPage, kPage);
      bytes.replace(Number(0, pages - 1) * kPage, kPage, page);
    }
  }

  static constexpr std::size_t kPage = 4096;
  std::mt19937 random_{19970326};
};

/// A calendar with all that this program writes: moved and deleted rows, long texts, indexes.
std::string SampleCalendar(const AccessFolder& folder) {
  const auto store = folder.Open();
  TableDefinition notes;
  notes.Name = "Notes";
  notes.Columns.resize(2);
  notes.Columns[0] = {"ID", ColumnType::WholeNumber, 0, true, Null{}};
  notes.Columns[1] = {"Text", ColumnType::Text, 0, false, Null{}};
  store->CreateTable(notes);
  for (int i = 0; i < 6; ++i) {
    store->Insert("Notes", {{"Text", std::string(static_cast<std::size_t>(i) * 1500, 'x')}});
  }
  for (int i = 0; i < 120; ++i) {
    store->Insert("Reserv", Booking(i % 5, "Chess", std::chrono::year{2014} / 3 / (i % 28 + 1),
                                    i % 40 + 1, i % 40 + 2, 20140315090000.0));
  }
  const std::vector<Row> rows = AllRows(*store, "Reserv");
  for (std::size_t i = 0; i < rows.size(); i += 9) {
    store->Update("Reserv", rows[i],
                  {{"Event", std::string("A much longer name: Łódź, 茶道教室")}});
    store->Delete("Reserv", rows[i + 1]);
  }
  return folder.Folder().Read("Calendar.mdb");
}

TEST(DamagedFiles, AreReadOrRefusedWithoutHarm) {
  PreferMemoryFolder();
  const AccessFolder folder;
  const std::string sound = SampleCalendar(folder);
  const std::size_t all = ReadEverything(folder.Calendar());
  ASSERT_GT(all, 600U);
  Mutator mutator;
  std::size_t cells = 0;
  for (int i = 0; i < MutationCount(); ++i) {
    folder.Folder().Write("Damaged.mdb", mutator.Damaged(sound));
    cells += ReadEverything(folder.Folder().File("Damaged.mdb"));
  }
  EXPECT_GT(cells, 0U);
}

TEST(DamagedFiles, FixturesAreReadOrRefusedWithoutHarm) {
  VEYRA_NEED_FIXTURES();
  for (const auto& file : std::filesystem::recursive_directory_iterator(FixtureFolder())) {
    if (file.path().extension() == ".mdb") {
      ReadEverything(file.path());
    }
  }
}

class UnreadableFiles : public testing::TestWithParam<std::string> {};

TEST_P(UnreadableFiles, AreRefusedWithAReport) {
  const TempFolder folder;
  folder.Write("Calendar.mdb", GetParam());
  try {
    OpenAccessStore(folder.File("Calendar.mdb").string(), StoreAccess::ReadOnly)->TableNames();
    FAIL() << "the file was read";
  } catch (const DatabaseError& error) {
    EXPECT_NE("", error.report().Cause);
    EXPECT_NE("", error.report().Advice);
  }
}

const std::string kStart("\0\1\0\0Standard Jet DB\0", 20);

INSTANTIATE_TEST_SUITE_P(Access, UnreadableFiles,
                         testing::Values(std::string(), std::string("x"), kStart,
                                         kStart + std::string(5000, '\0'),
                                         kStart + '\1' + std::string(9000, '\0'),
                                         kStart + '\2' + std::string(9000, '\0'),
                                         std::string("\0\1\0\0Standard ACE DB\0\2", 21) +
                                             std::string(9000, '\0')));

}  // namespace
}  // namespace veyra
