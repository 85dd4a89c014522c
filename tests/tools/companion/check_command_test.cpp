#include "tools/companion/check_command.h"

#include <gtest/gtest.h>

#include "data/create_store.h"
#include "data/errors.h"
#include "data/schema.h"
#include "tests/temp_folder.h"
#include "tests/tools/companion/run_command.h"

namespace veyra {
namespace {

class CheckCommandTest : public testing::Test {
 protected:
  std::string File() const { return temp_.File("Calendar.mdb").string(); }

  void Make(FileKind kind) const {
    const auto store = CreateStore(File(), Durability::WhenAsked, kind);
    store->CreateTable(RoomsTable());
    store->Insert("Rooms", {{"Name", "Hall"}});
  }

  TempFolder temp_;
  std::ostringstream out_;
};

TEST_F(CheckCommandTest, SaysThatASoundFileIsSound) {
  Make(FileKind::Access);
  EXPECT_EQ(ExitStatus::Fine, RunWith(CheckCommand(), {File()}, out_));
  EXPECT_EQ(File() + " is sound.\n", out_.str());
}

TEST_F(CheckCommandTest, ListsWhatIsWrong) {
  Make(FileKind::Access);
  std::string bytes = temp_.Read("Calendar.mdb");
  const std::size_t name = bytes.find("Hall");
  ASSERT_NE(std::string::npos, name);
  const std::size_t page = name / 4096 * 4096;
  bytes[page + 12] = 0;
  temp_.Write("Calendar.mdb", bytes);
  EXPECT_EQ(ExitStatus::Found, RunWith(CheckCommand(), {File()}, out_));
  EXPECT_EQ(0U, out_.str().find("The table Rooms cannot be gone through: ")) << out_.str();
}

TEST_F(CheckCommandTest, LeavesOtherKindsToOtherPrograms) {
  Make(FileKind::Sqlite);
  EXPECT_THROW(RunWith(CheckCommand(), {File()}, out_), DatabaseError);
}

}  // namespace
}  // namespace veyra
