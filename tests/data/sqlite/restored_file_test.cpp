#include "tests/data/sqlite/restored_file_fixture.h"

namespace veyra {
namespace {

TEST_F(RestoredFileTest, AKilledProgramLosesNothing) {
  KillEverywhere([&](int added) {
    const std::string found = Facilities(File());
    EXPECT_TRUE(found == UpTo(added) || found == UpTo(added + 1)) << found;
    EXPECT_TRUE(notices_.empty());
    ExpectOnlyTheCalendar(Folder());
  });
}

TEST_F(RestoredFileTest, AKillWhileTheLogIsPutAwayLosesNothing) {
  KillWhileTheLogIsPutAway([&](int added) {
    const std::string found = Facilities(File());
    EXPECT_TRUE(found == UpTo(added) || found == UpTo(added + 1)) << found;
    EXPECT_TRUE(notices_.empty());
  });
}

TEST_F(RestoredFileTest, ABackupRestoredWhileTheLogWasPutAwayIsWhatIsThere) {
  KillWhileTheLogIsPutAway([&](int) {
    RestoreByCopying("older");
    EXPECT_EQ("77;", FacilitiesAfterStartAndAdding());
  });
}

TEST_F(RestoredFileTest, AFolderThatIsCopiedAfterAKillLosesNothing) {
  KillEverywhere([&](int added) {
    fs::remove_all(folder_.File("copied"));
    fs::copy(Folder(), folder_.File("copied"));
    const std::string found = Facilities(folder_.File("copied") / "Calendar.mdb");
    EXPECT_TRUE(found == UpTo(added) || found == UpTo(added + 1)) << found;
    EXPECT_TRUE(notices_.empty());
  });
}

TEST_F(RestoredFileTest, AFolderThatIsRenamedAfterAKillLosesNothing) {
  KillEverywhere([&](int added) {
    fs::remove_all(folder_.File("renamed"));
    fs::rename(Folder(), folder_.File("renamed"));
    const std::string found = Facilities(folder_.File("renamed") / "Calendar.mdb");
    EXPECT_TRUE(found == UpTo(added) || found == UpTo(added + 1)) << found;
    EXPECT_TRUE(notices_.empty());
  });
}

struct Restoring {
  const char* Name;
  const char* Backup;
  const char* Found;  ///< After one more facility was added.
};

class RestoredBackupTest : public RestoredFileTest,
                           public testing::WithParamInterface<Restoring> {};

INSTANTIATE_TEST_SUITE_P(Backups, RestoredBackupTest,
                         testing::Values(Restoring{"Older", "older", "77;"},
                                         Restoring{"Same", "same", "0;77;"},
                                         Restoring{"Newer", "newer", "0;100;101;77;"}),
                         [](const auto& backup) { return backup.param.Name; });

TEST_P(RestoredBackupTest, ABackupCopiedBackAfterAKillIsWhatIsThere) {
  KillEverywhere([&](int) {
    RestoreByCopying(GetParam().Backup);
    EXPECT_EQ(GetParam().Found, FacilitiesAfterStartAndAdding());
    ExpectOnlyTheCalendar(Folder());
  });
}

TEST_P(RestoredBackupTest, ABackupMovedBackAfterAKillIsWhatIsThere) {
  KillEverywhere([&](int) {
    RestoreByMoving(GetParam().Backup);
    EXPECT_EQ(GetParam().Found, FacilitiesAfterStartAndAdding());
    ExpectOnlyTheCalendar(Folder());
  });
}

TEST_P(RestoredBackupTest, ABackupBesideTheRenamedCalendarIsWhatIsThere) {
  KillEverywhere([&](int) {
    RestoreBesideTheOldOne(GetParam().Backup);
    EXPECT_EQ(GetParam().Found, FacilitiesAfterStartAndAdding());
    ExpectOnlyTheCalendar(Folder());
  });
}

}  // namespace
}  // namespace veyra
