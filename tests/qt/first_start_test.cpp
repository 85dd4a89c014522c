#include "app/first_start.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/errors.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

class FirstStartTest : public testing::Test {
 protected:
  std::string In(const std::string& name) const { return folder_.File(name).string(); }

  Report ReportOf(const std::string& app_folder) const {
    try {
      MakeApplicationFolder(app_folder, In("program"));
    } catch (const FileError& error) {
      return error.report();
    }
    ADD_FAILURE() << "no report";
    return {};
  }

  TempFolder folder_;
};

TEST_F(FirstStartTest, AProgramThatIsNotForAllHasItsFolderAlready) {
  EXPECT_FALSE(MakeApplicationFolder(In("program"), In("program")));
  EXPECT_EQ(std::vector<std::string>{}, folder_.Names());
}

TEST_F(FirstStartTest, AFolderWithAPathFileIsLeftAlone) {
  folder_.Write("path.txt", "");
  EXPECT_FALSE(MakeApplicationFolder(folder_.path().string(), In("program")));
  EXPECT_EQ(std::vector<std::string>{"path.txt"}, folder_.Names());
}

TEST_F(FirstStartTest, AFolderThatCannotBeMadeIsReported) {
  folder_.Write("in the way", "");
  const Report report = ReportOf(In("in the way") + "/veyra-calendar");
  EXPECT_EQ(In("in the way") + "/veyra-calendar", report.File);
  EXPECT_TRUE(report.Cause.English().starts_with("The folder for your calendar cannot be made: "))
      << report.Cause;
}

TEST_F(FirstStartTest, ACalendarThatCannotBeMadeIsReportedAndAskedForAgain) {
  const Report report = ReportOf(In("mine"));
  EXPECT_TRUE(report.Cause.English().starts_with("An empty calendar could not be made there."))
      << report.Cause;
  EXPECT_FALSE(std::filesystem::exists(In("mine/path.txt")));
}

TEST_F(FirstStartTest, ACalendarThatIsThereIsKept) {
  std::filesystem::create_directory(In("mine"));
  folder_.Write("mine/Calendar.mdb", "kept");
  EXPECT_TRUE(MakeApplicationFolder(In("mine"), In("program")));
  EXPECT_EQ("kept", folder_.Read("mine/Calendar.mdb"));
  EXPECT_EQ(In("mine") + "\r\n" + In("mine") + "\r\n", folder_.Read("mine/path.txt"));
}

}  // namespace
}  // namespace veyra
