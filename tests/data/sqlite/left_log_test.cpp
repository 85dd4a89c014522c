#include "tests/data/sqlite/restored_file_fixture.h"

namespace veyra {
namespace {

/// A calendar whose program was killed when all facilities were added and in the log.
class LeftLogTest : public RestoredFileTest {
 protected:
  LeftLogTest() {
    const pid_t process = fork();
    if (process == 0) {
      const auto store = OpenStore(File().string(), StoreAccess::ReadWrite);
      for (int number = 1; number <= kFacilities; ++number) {
        AddTo(*store, number);
      }
      raise(SIGKILL);
    }
    waitpid(process, nullptr, 0);
  }

  fs::path Log() const { return File().string() + "-wal"; }

  std::string SetAside() const {
    for (const auto& entry : fs::directory_iterator(Folder())) {
      const std::string name = entry.path().filename().string();
      if (name.find(" set aside ") != std::string::npos) {
        return name;
      }
    }
    return {};
  }
};

TEST_F(LeftLogTest, IsSetAsideUnderATellingNameAndTold) {
  RestoreByCopying("older");
  EXPECT_EQ("", Facilities(File()));
  ASSERT_EQ(1U, notices_.size());
  EXPECT_TRUE(SetAside().starts_with("Calendar.mdb-wal set aside 20")) << SetAside();
  EXPECT_EQ(File().string(), notices_[0].File);
  EXPECT_NE(std::string::npos, notices_[0].Advice.English().find(SetAside()));
}

TEST_F(LeftLogTest, IsToldOnce) {
  RestoreByCopying("older");
  Facilities(File());
  Facilities(File());
  EXPECT_EQ(1U, notices_.size());
}

TEST_F(LeftLogTest, KeepsEveryByteOfWhatIsSetAside) {
  const std::string log = folder_.Read("data/Calendar.mdb-wal");
  RestoreByCopying("older");
  Facilities(File());
  EXPECT_TRUE(log == folder_.Read("data/" + SetAside()));
}

TEST_F(LeftLogTest, OfAnOlderVersionIsUsedWithoutANote) {
  RemoveOpenNote(File().string());
  EXPECT_EQ(UpTo(kFacilities), Facilities(File()));
  EXPECT_TRUE(notices_.empty());
}

TEST_F(LeftLogTest, IsSetAsideWithoutANoteWhenTheFileCameLater) {
  RemoveOpenNote(File().string());
  RestoreByMoving("older");
  EXPECT_EQ("77;", FacilitiesAfterStartAndAdding());
}

TEST_F(LeftLogTest, IsUsedThoughTheFileWasPutOnADiskWithOtherNumbers) {
  for (const fs::path& file : {File(), Log()}) {
    fs::copy_file(file, file.string() + "2");
    fs::rename(file.string() + "2", file);
  }
  EXPECT_EQ(UpTo(kFacilities), Facilities(File()));
}

TEST_F(LeftLogTest, OfAFileThatIsDamagedEitherWayLeavesAllAsItIs) {
  std::string bytes = folder_.Read("data/Calendar.mdb");
  // The guests, of whom the log tells nothing.
  bytes.replace(std::size_t{3} * 4096, 100, 100, '\xFF');
  folder_.Write("data/Calendar.mdb", bytes);
  const std::string log = folder_.Read("data/Calendar.mdb-wal");
  EXPECT_THROW(OpenStore(File().string(), StoreAccess::ReadWrite), DatabaseError);
  EXPECT_TRUE(bytes == folder_.Read("data/Calendar.mdb"));
  EXPECT_TRUE(log == folder_.Read("data/Calendar.mdb-wal"));
}

TEST_F(LeftLogTest, IsPutIntoTheFileByAConversion) {
  OpenStore(File().string(), StoreAccess::Exclusive).reset();
  ExpectOnlyTheCalendar(Folder());
  EXPECT_EQ(UpTo(kFacilities), Facilities(File()));
}

TEST_F(LeftLogTest, OfAnotherFileDoesNotReachAConversion) {
  RestoreByCopying("older");
  OpenStore(File().string(), StoreAccess::Exclusive).reset();
  ExpectOnlyTheCalendar(Folder());
  EXPECT_EQ("", Facilities(File()));
}

}  // namespace
}  // namespace veyra
