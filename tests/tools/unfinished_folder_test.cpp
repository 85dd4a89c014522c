#include "tools/unfinished_folder.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "data/errors.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

namespace fs = std::filesystem;

using Names = std::vector<std::string>;

class UnfinishedFolderTest : public testing::Test {
 protected:
  static void Fill(const UnfinishedFolder& unfinished) {
    std::ofstream(unfinished.path() / "one") << "1";
    std::ofstream(unfinished.path() / "two") << "2";
  }

  static Names NamesIn(const fs::path& folder) {
    Names names;
    for (const auto& entry : fs::directory_iterator(folder)) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  /// A program that makes an unfinished folder for this target and is killed.
  static void LeaveOneBehind(const fs::path& target) {
    const pid_t child = fork();
    if (child == 0) {
      const UnfinishedFolder unfinished(target);
      Fill(unfinished);
      raise(SIGKILL);
    }
    waitpid(child, nullptr, 0);
  }

  fs::path Target() const { return folder_.File("data"); }

  TempFolder folder_;
};

TEST_F(UnfinishedFolderTest, AMissingTargetAppearsWithItsFiles) {
  UnfinishedFolder unfinished(Target());
  Fill(unfinished);
  EXPECT_FALSE(fs::exists(Target()));
  unfinished.MoveOut({"one", "two"});
  EXPECT_EQ((Names{"one", "two"}), NamesIn(Target()));
}

TEST_F(UnfinishedFolderTest, AMissingTargetHasTheRightsOfAnyFolder) {
  const mode_t mask = umask(027);
  {
    UnfinishedFolder unfinished(Target());
    unfinished.MoveOut({});
  }
  umask(mask);
  struct stat status {};
  stat(Target().c_str(), &status);
  EXPECT_EQ(0750U, status.st_mode & 0777U);
  EXPECT_EQ((Names{"data"}), folder_.Names());
}

TEST_F(UnfinishedFolderTest, AMissingTargetThatIsMadeMeanwhileIsLetBe) {
  UnfinishedFolder unfinished(Target());
  Fill(unfinished);
  fs::create_directory(Target());
  std::ofstream(Target() / "mine") << "x";
  EXPECT_THROW(unfinished.MoveOut({"one", "two"}), FileError);
  EXPECT_EQ((Names{"mine"}), NamesIn(Target()));
}

TEST_F(UnfinishedFolderTest, ATargetThatIsThereKeepsWhatItHas) {
  fs::create_directory(Target());
  std::ofstream(Target() / "mine") << "x";
  {
    UnfinishedFolder unfinished(Target());
    Fill(unfinished);
    unfinished.MoveOut({"one", "two"});
  }
  EXPECT_EQ((Names{"mine", "one", "two"}), NamesIn(Target()));
}

TEST_F(UnfinishedFolderTest, NoFileIsMovedWhenOneIsInTheWay) {
  fs::create_directory(Target());
  std::ofstream(Target() / "two") << "mine";
  {
    UnfinishedFolder unfinished(Target());
    Fill(unfinished);
    EXPECT_THROW(unfinished.MoveOut({"one", "two"}), FileError);
  }
  EXPECT_EQ((Names{"two"}), NamesIn(Target()));
}

TEST_F(UnfinishedFolderTest, NothingIsLeftOfOneThatWasNotMoved) {
  {
    const UnfinishedFolder unfinished(folder_.File("a") / "b" / "data");
    Fill(unfinished);
  }
  EXPECT_TRUE(folder_.Names().empty());
}

TEST_F(UnfinishedFolderTest, WhatAKilledProgramLeftGoesWithTheNextOne) {
  LeaveOneBehind(Target());
  ASSERT_EQ(1U, folder_.Names().size());
  UnfinishedFolder unfinished(Target());
  unfinished.MoveOut({});
  EXPECT_EQ((Names{"data"}), folder_.Names());
}

TEST_F(UnfinishedFolderTest, WhatAKilledProgramLeftInTheTargetGoesToo) {
  fs::create_directory(Target());
  LeaveOneBehind(Target());
  ASSERT_EQ(1U, NamesIn(Target()).size());
  { const UnfinishedFolder unfinished(Target()); }
  EXPECT_TRUE(NamesIn(Target()).empty());
}

TEST_F(UnfinishedFolderTest, WhatAKilledProgramMovedOnlyAPartOfIsTakenBack) {
  fs::create_directory(Target());
  LeaveOneBehind(Target());
  const fs::path left = Target() / NamesIn(Target()).at(0);
  fs::create_hard_link(left / "one", Target() / "one");
  UnfinishedFolder::RemoveAbandoned(Target());
  EXPECT_TRUE(NamesIn(Target()).empty());
}

TEST_F(UnfinishedFolderTest, WhatAKilledProgramMovedAllOfStays) {
  fs::create_directory(Target());
  LeaveOneBehind(Target());
  const fs::path left = Target() / NamesIn(Target()).at(0);
  fs::create_hard_link(left / "one", Target() / "one");
  fs::create_hard_link(left / "two", Target() / "two");
  UnfinishedFolder::RemoveAbandoned(Target());
  EXPECT_EQ((Names{"one", "two"}), NamesIn(Target()));
}

TEST_F(UnfinishedFolderTest, AFileThatOnlyBearsTheNameIsNotTakenBack) {
  fs::create_directory(Target());
  LeaveOneBehind(Target());
  std::ofstream(Target() / "one") << "mine";
  UnfinishedFolder::RemoveAbandoned(Target());
  EXPECT_EQ((Names{"one"}), NamesIn(Target()));
}

TEST_F(UnfinishedFolderTest, WhatALivingProgramMakesIsLetBe) {
  UnfinishedFolder first(Target());
  Fill(first);
  { const UnfinishedFolder second(Target()); }
  first.MoveOut({"one", "two"});
  EXPECT_EQ((Names{"one", "two"}), NamesIn(Target()));
}

TEST_F(UnfinishedFolderTest, WhatOnlyLooksAlikeIsLetBe) {
  folder_.Write(".unfinished-abcdef", "a file");
  fs::create_directory(folder_.File(".unfinished-business"));
  fs::create_directory(folder_.File("elsewhere"));
  fs::create_directory_symlink("elsewhere", folder_.File(".unfinished-ghijkl"));
  { const UnfinishedFolder unfinished(Target()); }
  EXPECT_EQ(
      (Names{".unfinished-abcdef", ".unfinished-business", ".unfinished-ghijkl", "elsewhere"}),
      folder_.Names());
}

}  // namespace
}  // namespace veyra
