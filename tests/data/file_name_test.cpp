#include "data/file_name.h"

#include <gtest/gtest.h>

namespace veyra {
namespace {

TEST(NativePathTest, TakesEachBackslashForASlash) {
  EXPECT_EQ("/srv/desk/Calendar.mdb", NativePath("/srv\\desk\\Calendar.mdb").string());
}

TEST(NativePathTest, KeepsAnEmptyFolderAtTheRoot) {
  EXPECT_EQ("/Calendar.mdb", NativePath("\\Calendar.mdb").string());
}

TEST(NativePathTest, LeavesAllElseAsItIs) {
  EXPECT_EQ("/d\xC3\xA9sk/a b#c.mdb", NativePath("/d\xC3\xA9sk/a b#c.mdb").string());
}

}  // namespace
}  // namespace veyra
