#include "tools/file_moves.h"

#include <gtest/gtest.h>

#include <cerrno>

#include "data/errors.h"
#include "tests/temp_folder.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

using Names = std::vector<std::string>;

class FileMovesTest : public ::testing::Test {
 protected:
  FileMovesTest() {
    fs::create_directory(temp_.File("workshop"));
    temp_.Write("workshop/Calendar.mdb", "new");
    temp_.Write("Calendar.mdb", "old");
  }

  fs::path Replace() const {
    return ReplaceAndKeep(temp_.File("workshop/Calendar.mdb"), temp_.File("Calendar.mdb"),
                          MakeDate(2026, 1, 5).value());
  }

  TempFolder temp_;
};

TEST_F(FileMovesTest, TheNewFileTakesThePlaceOfTheOldOneWhichIsKept) {
  EXPECT_EQ(temp_.File("Calendar-before-2026-01-05.mdb"), Replace());
  EXPECT_EQ("new", temp_.Read("Calendar.mdb"));
  EXPECT_EQ("old", temp_.Read("Calendar-before-2026-01-05.mdb"));
}

TEST_F(FileMovesTest, ANameThatIsTakenIsNotUsedAgain) {
  temp_.Write("Calendar-before-2026-01-05.mdb", "a");
  fs::create_symlink("/nowhere", temp_.File("Calendar-before-2026-01-05-2.mdb"));
  EXPECT_EQ(temp_.File("Calendar-before-2026-01-05-3.mdb"), Replace());
  EXPECT_EQ("a", temp_.Read("Calendar-before-2026-01-05.mdb"));
}

TEST_F(FileMovesTest, WithoutANewFileTheOldOneStays) {
  fs::remove(temp_.File("workshop/Calendar.mdb"));
  EXPECT_THROW(Replace(), FileError);
  EXPECT_EQ((Names{"Calendar.mdb", "workshop"}), temp_.Names());
  EXPECT_EQ("old", temp_.Read("Calendar.mdb"));
}

TEST_F(FileMovesTest, AFileThatCannotTakeThePlaceLeavesTheOldOneThere) {
  fs::remove(temp_.File("workshop/Calendar.mdb"));
  fs::create_directory(temp_.File("workshop/Calendar.mdb"));
  EXPECT_THROW(Replace(), FileError);
  EXPECT_EQ((Names{"Calendar.mdb", "workshop"}), temp_.Names());
  EXPECT_EQ("old", temp_.Read("Calendar.mdb"));
}

TEST_F(FileMovesTest, ACopyHasTheSameBytes) {
  EXPECT_EQ(0, CopyWithoutReplacing(temp_.File("Calendar.mdb"), temp_.File("Kept.mdb"),
                                    temp_.File("workshop")));
  EXPECT_EQ("old", temp_.Read("Kept.mdb"));
}

TEST_F(FileMovesTest, ACopyIsNotMadeOverAnotherFile) {
  temp_.Write("Kept.mdb", "precious");
  EXPECT_EQ(EEXIST, CopyWithoutReplacing(temp_.File("Calendar.mdb"), temp_.File("Kept.mdb"),
                                         temp_.File("workshop")));
  EXPECT_EQ("precious", temp_.Read("Kept.mdb"));
}

}  // namespace
}  // namespace veyra
