#include "data/sqlite/file_reading.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <optional>
#include <string>

#include "tests/data/sqlite/host_program.h"
#include "tests/temp_folder.h"

namespace veyra::sqlite {
namespace {

namespace fs = std::filesystem;

/// A guest file that its host changes in the middle of a question, within one tick of the file
/// system's clock: no time tells of it.
class FileReadingTest : public testing::Test {
 protected:
  FileReadingTest() {
    HostProgram host(File());
    host.Run(
        "PRAGMA journal_mode = WAL; CREATE TABLE Guest(Name); INSERT INTO Guest VALUES ('Ann')");
  }

  std::string File() const { return folder_.File("Veyra.mdb").string(); }

  /// The host starts, changes the guest and ends, and the file's time is what it was before.
  void HostChangesTheGuest() const {
    struct stat before {};
    stat(File().c_str(), &before);
    {
      HostProgram host(File());
      host.Run("UPDATE Guest SET Name = 'Bob'");
    }
    const struct timespec times[] = {before.st_atim, before.st_mtim};
    utimensat(AT_FDCWD, File().c_str(), times, 0);
  }

  static std::string Guest(FileReading& reading) {
    const auto rows = reading.reader().Select(ParseQuery("SELECT * FROM Guest"));
    Row row;
    return rows->Next(row) ? ToText(row.Values.at(0)) : "";
  }

  TempFolder folder_;
};

TEST_F(FileReadingTest, OfAFileWithoutItsLogNoticesAChangeInTheSameTick) {
  FileReading reading(File(), WaitPolicy(std::chrono::milliseconds(50)));
  ASSERT_TRUE(reading.IsUnlocked());
  EXPECT_EQ("Ann", Guest(reading));
  EXPECT_FALSE(reading.HasChanged());
  HostChangesTheGuest();
  EXPECT_TRUE(reading.HasChanged());
}

TEST_F(FileReadingTest, OfALogWithoutItsIndexNoticesAChangeInTheSameTick) {
  HostProgram host(File());
  host.Run("PRAGMA wal_autocheckpoint = 0; UPDATE Guest SET Name = 'Eve'");
  host.BreakDown();
  fs::remove(File() + "-shm");
  FileReading reading(File(), WaitPolicy(std::chrono::milliseconds(50)));
  ASSERT_TRUE(reading.IsUnlocked());
  EXPECT_EQ("Eve", Guest(reading));
  EXPECT_FALSE(reading.HasChanged());
  HostChangesTheGuest();
  EXPECT_TRUE(reading.HasChanged());
}

TEST_F(FileReadingTest, LetsTheNextOneSeeAChangeInTheSameTick) {
  { FileReading first(File(), WaitPolicy()); }
  HostChangesTheGuest();
  FileReading next(File(), WaitPolicy());
  EXPECT_EQ("Bob", Guest(next));
}

TEST_F(FileReadingTest, LeavesNothingBesideTheFile) {
  {
    FileReading reading(File(), WaitPolicy());
    Guest(reading);
    EXPECT_EQ(std::vector<std::string>{"Veyra.mdb"}, folder_.Names());
  }
  EXPECT_EQ(std::vector<std::string>{"Veyra.mdb"}, folder_.Names());
}

}  // namespace
}  // namespace veyra::sqlite
