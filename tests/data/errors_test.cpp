#include "data/errors.h"

#include <gtest/gtest.h>

namespace veyra {
namespace {

TEST(ErrorTest, SaysAllOfItsReportALineEach) {
  const DatabaseError error({"/desk/Calendar.mdb", "It is empty.", "Use a backup."});
  EXPECT_STREQ("/desk/Calendar.mdb\nIt is empty.\nUse a backup.", error.what());
}

TEST(ErrorTest, LeavesOutWhatItsReportLacks) {
  const ValueError error({{}, "It is no number.", {}});
  EXPECT_STREQ("It is no number.", error.what());
}

TEST(ErrorTest, KeepsItsReport) {
  const FileError error({"path.txt", "It is missing.", "Make it."});
  EXPECT_EQ("It is missing.", error.report().Cause);
}

}  // namespace
}  // namespace veyra
