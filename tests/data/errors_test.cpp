#include "data/errors.h"

#include <gtest/gtest.h>

namespace veyra {
namespace {

TEST(ErrorTest, SaysAllOfItsReportALineEach) {
  const DatabaseError error(
      {"/desk/Calendar.mdb", "The disk is full.", "Make room.", "Nothing was saved."});
  EXPECT_STREQ("/desk/Calendar.mdb\nThe disk is full.\nNothing was saved.\nMake room.",
               error.what());
}

TEST(ErrorTest, LeavesOutWhatItsReportLacks) {
  const ValueError error({{}, "It is not a number.", {}});
  EXPECT_STREQ("It is not a number.", error.what());
}

TEST(ErrorTest, KeepsItsReport) {
  const FileError error({"path.txt", "It is missing.", "Make it."});
  EXPECT_EQ("It is missing.", error.report().Cause);
}

}  // namespace
}  // namespace veyra
