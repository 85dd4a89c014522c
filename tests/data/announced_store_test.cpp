#include "data/announced_store.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "data/open_note.h"
#include "data/schema.h"
#include "tests/store_kind.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

namespace fs = std::filesystem;

class AnnouncedStoreTest : public testing::Test {
 protected:
  AnnouncedStoreTest() { CreateStoreOfKind(StoreKind::Access, file_)->CreateTable(RoomsTable()); }

  std::unique_ptr<Store> Open() { return OpenAnnounced(file_, {}); }

  std::vector<OpenUser> Users() {
    const auto note = ReadOpenNote(file_);
    return note ? note->Users : std::vector<OpenUser>();
  }

  const TempFolder folder_;
  const std::string file_ = folder_.File("Calendar.mdb").string();
  const OpenUser anna_{"anna", "northern desk", 4711, "2026-11-21 18:30:12"};
};

TEST_F(AnnouncedStoreTest, AnAccessFileIsToldOfUntilItIsClosed) {
  auto store = Open();
  ASSERT_EQ(1U, Users().size());
  EXPECT_EQ(ThisUser().Process, Users().front().Process);
  store.reset();
  EXPECT_FALSE(fs::exists(OpenNoteName(file_)));
}

TEST_F(AnnouncedStoreTest, OthersStayInTheNoteButNotThoseOfThisComputerWhoHaveEnded) {
  constexpr std::int64_t kNoProcess = 0;
  OpenUser ended = ThisUser();
  ended.Process = kNoProcess;
  WriteOpenNote(file_, {{anna_, ended}, {}});
  auto store = Open();
  EXPECT_EQ(2U, Users().size());
  store.reset();
  EXPECT_EQ(std::vector{anna_}, Users());
}

TEST_F(AnnouncedStoreTest, TheNoteLiesBesideTheFileThatALinkLeadsTo) {
  const TempFolder links;
  const std::string link = links.File("Calendar.mdb").string();
  fs::create_symlink(file_, link);
  const auto store = OpenAnnounced(link, {});
  EXPECT_EQ(1U, Users().size());
}

TEST_F(AnnouncedStoreTest, WithoutTheNoteTheFileIsUsedAllTheSame) {
  fs::create_directory(OpenNoteName(file_));
  const auto store = Open();
  store->Insert("Rooms", {{"Name", "Hall"}, {"Active", std::int64_t{0}}});
  Row row;
  EXPECT_TRUE(store->Select(ParseQuery("SELECT * FROM Rooms"))->Next(row));
}

}  // namespace
}  // namespace veyra
