#include "data/private_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace veyra {
namespace {

namespace fs = std::filesystem;

std::string FolderOf(const PrivateFolder& folder) {
  return fs::path(folder.File("file")).parent_path().string();
}

TEST(PrivateFolderTest, IsOpenToNobodyElse) {
  const mode_t mask = umask(0);
  const PrivateFolder folder;
  umask(mask);
  struct stat status {};
  ASSERT_EQ(0, stat(FolderOf(folder).c_str(), &status));
  EXPECT_EQ(0700U, status.st_mode & 07777U);
}

TEST(PrivateFolderTest, HasANameOfItsOwn) {
  const PrivateFolder first;
  const PrivateFolder second;
  EXPECT_NE(FolderOf(first), FolderOf(second));
}

TEST(PrivateFolderTest, GoesWithAllThatIsInIt) {
  std::string name;
  {
    const PrivateFolder folder;
    name = FolderOf(folder);
    std::ofstream(folder.File("copy")) << "bookings";
    ASSERT_TRUE(fs::exists(folder.File("copy")));
  }
  EXPECT_FALSE(fs::exists(name));
}

}  // namespace
}  // namespace veyra
