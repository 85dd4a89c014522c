#include "app/daily_backup.h"

#include <filesystem>

#include "tests/qt/program_fixture.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

/// A companion that only notes what it was told, a line for each time.
class DailyBackupTest : public ProgramFixture {
 protected:
  DailyBackupTest() {
    app_.Write("veyra-data", "#!/bin/sh\necho \"$@\" >>\"$0.said\"\n");
    fs::permissions(app_.File("veyra-data"), fs::perms::owner_all);
  }

  void MakeBackupFolder() const { fs::create_directory(data_.Path() + "/backups"); }

  bool HasSaid(const std::string& lines) const {
    return QTest::qWaitFor([&] { return app_.Read("veyra-data.said") == lines; }, 30'000);
  }

  std::string OneLine() const { return "backup --rolling --once " + data_.Path() + "\n"; }
};

TEST_F(DailyBackupTest, TheDaysFirstCopyIsMadeOnceTheMonthIsPainted) {
  MakeBackupFolder();
  Start();
  EXPECT_TRUE(HasSaid(OneLine())) << app_.Read("veyra-data.said");
}

TEST_F(DailyBackupTest, NothingIsMadeBeforeTheMonthIsPainted) {
  QWidget window;
  bool is_painted = false;
  new FirstPaint(window, [&] { is_painted = true; });
  QCoreApplication::processEvents();
  EXPECT_FALSE(is_painted);
  window.show();
  EXPECT_TRUE(QTest::qWaitFor([&] { return is_painted; }));
  is_painted = false;
  window.repaint();
  QCoreApplication::processEvents();
  EXPECT_FALSE(is_painted);
}

TEST_F(DailyBackupTest, WithoutTheFolderNoCopyIsMade) {
  StartDailyBackup(app_.path().string(), data_.Path());
  MakeBackupFolder();
  StartDailyBackup(app_.path().string(), data_.Path());
  EXPECT_TRUE(HasSaid(OneLine())) << app_.Read("veyra-data.said");
}

TEST_F(DailyBackupTest, AMissingCompanionHoldsNothingUp) {
  fs::remove(app_.File("veyra-data"));
  MakeBackupFolder();
  Start();
  EXPECT_EQ(std::vector<std::string>{"path.txt"}, app_.Names());
}

}  // namespace
}  // namespace veyra
