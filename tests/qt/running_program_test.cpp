#include "app/running_program.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QThread>
#include <QWidget>
#include <filesystem>
#include <memory>
#include <string>

#include "tests/temp_folder.h"

namespace veyra {
namespace {

/// Programs that meet in a folder of the test's own.
class RunningProgramTest : public testing::Test {
 protected:
  RunningProgramTest() { qputenv("XDG_RUNTIME_DIR", meeting_.path().c_str()); }
  ~RunningProgramTest() override {
    if (before_.isNull()) {
      qunsetenv("XDG_RUNTIME_DIR");
    } else {
      qputenv("XDG_RUNTIME_DIR", before_);
    }
  }

  std::string Folder() const { return data_.path().string(); }

  /// What a later program is told, while the first goes on working.
  static bool ClaimLater(const std::string& folder) {
    bool is_first = false;
    const std::unique_ptr<QThread> later(
        QThread::create([&] { is_first = RunningProgram().Claim(folder); }));
    later->start();
    while (!later->isFinished()) {
      QCoreApplication::processEvents();
    }
    return is_first;
  }

  const QByteArray before_ = qgetenv("XDG_RUNTIME_DIR");
  TempFolder meeting_;
  TempFolder data_;
  RunningProgram first_;
};

TEST_F(RunningProgramTest, TheFirstOfAFolderGoesOnAndALaterOneDoesNot) {
  EXPECT_TRUE(first_.Claim(Folder()));
  EXPECT_FALSE(ClaimLater(Folder()));
  EXPECT_FALSE(ClaimLater(Folder()));
}

TEST_F(RunningProgramTest, AnotherFolderIsAnotherCalendar) {
  const TempFolder other;
  first_.Claim(Folder());
  EXPECT_TRUE(ClaimLater(other.path().string()));
}

TEST_F(RunningProgramTest, ALinkToTheFolderIsTheSameCalendar) {
  const TempFolder other;
  std::filesystem::create_directory_symlink(data_.path(), other.File("link"));
  first_.Claim(Folder());
  EXPECT_FALSE(ClaimLater(other.File("link").string()));
}

TEST_F(RunningProgramTest, AnotherScreenHasAProgramOfItsOwn) {
  first_.Claim(Folder());
  const QByteArray screen = qgetenv("DISPLAY");
  qputenv("DISPLAY", ":4711");
  EXPECT_TRUE(ClaimLater(Folder()));
  qputenv("DISPLAY", screen);
}

TEST_F(RunningProgramTest, AFolderThatIsNotThereIsNobodys) {
  EXPECT_TRUE(first_.Claim("/nowhere/at all"));
  EXPECT_TRUE(ClaimLater("/nowhere/at all"));
  EXPECT_TRUE(ClaimLater(""));
}

TEST_F(RunningProgramTest, OneThatHasEndedLeavesTheFolderToTheNext) {
  {
    RunningProgram ended;
    ended.Claim(Folder());
  }
  EXPECT_TRUE(first_.Claim(Folder()));
}

TEST_F(RunningProgramTest, OneThatWasKilledLeavesTheFolderToTheNext) {
  const auto kept = meeting_.File("kept");
  std::filesystem::path socket;
  {
    RunningProgram killed;
    killed.Claim(Folder());
    socket = std::filesystem::directory_iterator(meeting_.path())->path();
    std::filesystem::rename(socket, kept);
  }
  std::filesystem::rename(kept, socket);
  EXPECT_TRUE(first_.Claim(Folder()));
  EXPECT_FALSE(ClaimLater(Folder()));
}

TEST_F(RunningProgramTest, WithoutAPlaceToMeetEveryProgramIsTheFirst) {
  qputenv("XDG_RUNTIME_DIR", "/nowhere/at all");
  EXPECT_TRUE(first_.Claim(Folder()));
  EXPECT_TRUE(ClaimLater(Folder()));
}

TEST_F(RunningProgramTest, ALaterOneBringsTheWindowBackThatWasMinimised) {
  QWidget window;
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  window.showMinimized();
  QCoreApplication::processEvents();
  ASSERT_TRUE(window.isMinimized());
  first_.Claim(Folder());
  ClaimLater(Folder());
  EXPECT_TRUE(QTest::qWaitFor([&] { return !window.isMinimized(); }));
  EXPECT_TRUE(window.isVisible());
}

}  // namespace
}  // namespace veyra
