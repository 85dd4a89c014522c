#include <gtest/gtest.h>

#include <filesystem>

#include "data/errors.h"
#include "tests/data/access/access_folder.h"

namespace veyra {
namespace {

constexpr std::uintmax_t kPage = 4096;
constexpr std::uintmax_t kLargest = (std::uintmax_t{1} << 31U) - kPage;

Row Book(Store& store) {
  return store.Insert("Reserv", Booking(3, "Chess", std::chrono::year{2014} / 3 / 15, 20, 25));
}

/// Makes the file so large that only its end has room for more; the map of free pages is empty.
void MakeFull(const AccessFolder& folder, std::uintmax_t size) {
  std::string bytes = folder.Folder().Read("Calendar.mdb");
  bytes.replace(2 * kPage - 64, 64, std::string(64, '\0'));
  folder.Folder().Write("Calendar.mdb", bytes);
  std::filesystem::resize_file(folder.Calendar(), size);
}

TEST(LargestFile, GrowsUpToAPageBelowTwoGigabytes) {
  const AccessFolder folder;
  MakeFull(folder, kLargest - kPage);
  Book(*folder.Open());
  EXPECT_EQ(kLargest, std::filesystem::file_size(folder.Calendar()));
}

TEST(LargestFile, DoesNotGrowAnyMore) {
  const AccessFolder folder;
  MakeFull(folder, kLargest);
  const auto store = folder.Open();
  try {
    Book(*store);
    FAIL() << "no report";
  } catch (const DatabaseError& error) {
    EXPECT_EQ("The database has grown to 2 GB, the largest size of an Access file.",
              error.report().Cause);
    EXPECT_NE("", error.report().Advice);
  }
  EXPECT_EQ(kLargest, std::filesystem::file_size(folder.Calendar()));
  EXPECT_TRUE(AllRows(*store, "Reserv").empty());
}

TEST(DamagedTable, WithoutColumnsIsReportedAsDamage) {
  const AccessFolder folder;
  Book(*folder.Open());
  std::string bytes = folder.Folder().Read("Calendar.mdb");
  for (std::size_t page = 6; page < bytes.size() / kPage; ++page) {
    if (bytes[page * kPage] == 2) {
      bytes.replace(page * kPage + 45, 2, std::string(2, '\0'));
    }
  }
  folder.Folder().Write("Calendar.mdb", bytes);
  try {
    AllRows(*folder.Open(), "Reserv");
    FAIL() << "no report";
  } catch (const DatabaseError& error) {
    EXPECT_EQ("A table of the database has no columns: it is damaged.", error.report().Cause);
  }
}

TEST(TextLength, IsCountedAsTheFileCountsIt) {
  const AccessFolder folder;
  const auto store = folder.Open();
  std::string emoji;
  for (int i = 0; i < 26; ++i) {
    emoji += "\xF0\x9F\x8E\x89";
  }
  EXPECT_EQ(25U, store->FittingCharacters("Reserv", "Event", emoji));
  EXPECT_THROW(store->Insert("Reserv", {{"Event", emoji}}), ValueRefusedError);
  store->Insert("Reserv", {{"Event", emoji.substr(4)}});
}

}  // namespace
}  // namespace veyra
