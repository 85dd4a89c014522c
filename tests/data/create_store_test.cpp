#include "data/create_store.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "data/errors.h"
#include "data/open_store.h"
#include "data/schema.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

namespace fs = std::filesystem;

class CreateStoreTest : public testing::Test {
 protected:
  std::string File() const { return folder_.File("Calendar.mdb").string(); }

  std::string CauseOf(const std::string& file) {
    try {
      CreateStore(file);
    } catch (const DatabaseError& error) {
      EXPECT_NE("", error.report().Advice);
      return error.report().Cause.English();
    }
    ADD_FAILURE() << "no report";
    return {};
  }

  TempFolder folder_;
};

TEST_F(CreateStoreTest, MakesAFileWithoutTables) {
  EXPECT_TRUE(CreateStore(File())->TableNames().empty());
}

TEST_F(CreateStoreTest, MakesAFileThatCanBeOpened) {
  CreateStore(File());
  EXPECT_TRUE(OpenStore(File(), StoreAccess::ReadWrite)->TableNames().empty());
}

TEST_F(CreateStoreTest, MakesOneFile) {
  CreateStore(File())->CreateTable(RoomsTable());
  EXPECT_EQ(std::vector<std::string>{"Calendar.mdb"}, folder_.Names());
}

TEST_F(CreateStoreTest, RefusesAFileThatIsThere) {
  folder_.Write("Calendar.mdb", "precious");
  EXPECT_EQ("This file is there already; nothing was made.", CauseOf(File()));
}

TEST_F(CreateStoreTest, LeavesAFileThatIsThereAsItIs) {
  folder_.Write("Calendar.mdb", "precious");
  EXPECT_THROW(CreateStore(File()), DatabaseError);
  EXPECT_EQ("precious", folder_.Read("Calendar.mdb"));
}

TEST_F(CreateStoreTest, RefusesAnEmptyFileThatIsThere) {
  folder_.Write("Calendar.mdb", "");
  EXPECT_THROW(CreateStore(File()), DatabaseError);
}

TEST_F(CreateStoreTest, RefusesALinkThatLeadsNowhere) {
  fs::create_symlink(folder_.File("elsewhere"), File());
  EXPECT_THROW(CreateStore(File()), DatabaseError);
  EXPECT_FALSE(fs::exists(folder_.File("elsewhere")));
}

TEST_F(CreateStoreTest, ReportsAMissingFolder) {
  EXPECT_EQ("The file cannot be made: there is no such file or folder.",
            CauseOf(folder_.File("nowhere").string() + "/Calendar.mdb"));
}

}  // namespace
}  // namespace veyra
