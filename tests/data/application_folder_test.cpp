#include "data/application_folder.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

#include "tests/temp_folder.h"

namespace veyra {
namespace {

/// Sets an environment variable, and puts back what it was.
class Variable {
 public:
  Variable(const char* name, const char* value) : name_(name) {
    if (const char* before = std::getenv(name)) {
      before_ = before;
    }
    setenv(name, value, 1);
  }
  ~Variable() {
    if (before_) {
      setenv(name_, before_->c_str(), 1);
    } else {
      unsetenv(name_);
    }
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  const char* name_;
  std::optional<std::string> before_;
};

TEST(ApplicationFolderTest, IsTheProgramsOwnWhereTheUserMayWrite) {
  const TempFolder program;
  EXPECT_EQ(program.path().string(), ApplicationFolder(program.path().string(), "/home/x/data"));
}

TEST(ApplicationFolderTest, IsTheUsersOwnBelowUsr) {
  EXPECT_EQ("/home/x/data/veyra-calendar", ApplicationFolder("/usr/bin", "/home/x/data"));
}

TEST(ApplicationFolderTest, IsTheUsersOwnWhereHeMayNotWrite) {
  if (geteuid() == 0) {
    GTEST_SKIP() << "root may write anywhere";
  }
  const TempFolder program;
  std::filesystem::permissions(program.path(), std::filesystem::perms::owner_read);
  EXPECT_EQ("/home/x/data/veyra-calendar",
            ApplicationFolder(program.path().string(), "/home/x/data"));
  std::filesystem::permissions(program.path(), std::filesystem::perms::owner_all);
}

TEST(ApplicationFolderTest, IsTheProgramsOwnWhereNoHomeIsKnown) {
  EXPECT_EQ("/usr/lib/veyra-calendar", ApplicationFolder("/usr/lib/veyra-calendar", ""));
}

TEST(UserDataHomeTest, IsWhatTheEnvironmentNames) {
  const Variable named("XDG_DATA_HOME", "/srv/data");
  EXPECT_EQ("/srv/data", UserDataHome());
}

TEST(UserDataHomeTest, IsNoRelativeFolder) {
  const Variable home("HOME", "/home/x");
  const Variable named("XDG_DATA_HOME", "data");
  EXPECT_EQ("/home/x/.local/share", UserDataHome());
}

}  // namespace
}  // namespace veyra
