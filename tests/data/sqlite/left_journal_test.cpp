#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "data/create_store.h"
#include "data/open_store.h"
#include "data/schema.h"
#include "tests/data/sqlite/faulty_disk.h"
#include "tests/data/sqlite/foreign_program.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

namespace fs = std::filesystem;

/// A calendar in which all names began with "A" when a program that keeps a rollback journal was
/// killed while it changed them to "B". The backup is from before, when they began with "O".
class LeftJournalTest : public testing::Test {
 protected:
  static constexpr int kFacilities = 12;

  LeftJournalTest() {
    fs::create_directory(Folder());
    {
      const auto store = CreateStore(File().string());
      store->CreateTable(RoomsTable());
      for (int number = 0; number < kFacilities; ++number) {
        store->Insert("Rooms", {{"Name", "O" + std::string(900, 'x')}});
      }
    }
    fs::copy_file(File(), Backup());
    ForeignProgram(File().string()).Run(Renaming('A'));
    KillWhileRenaming();
  }

  fs::path Folder() const { return folder_.File("data"); }
  fs::path File() const { return Folder() / "Calendar.mdb"; }
  fs::path Journal() const { return File().string() + "-journal"; }
  fs::path Backup() const { return folder_.File("backup"); }

  static std::string Renaming(char letter) {
    return "PRAGMA journal_mode = DELETE; UPDATE Rooms SET Name = '" + std::string(1, letter) +
           "' || substr(Name, 2)";
  }

  /// Some of the pages are in the file by then.
  void KillWhileRenaming() const {
    const pid_t process = fork();
    if (process == 0) {
      int writes = 0;
      const FaultyDisk disk([&](const std::string& file, FaultyDisk::Call call) {
        if (call == FaultyDisk::Call::Write && file == File() && ++writes == 3) {
          raise(SIGKILL);
        }
        return SQLITE_OK;
      });
      ForeignProgram(File().string()).Run(Renaming('B'));
      _exit(1);
    }
    int status = 0;
    waitpid(process, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status));
  }

  /// With what letters the names begin at the next start.
  std::string LettersAfterAStart() {
    const auto store = OpenStore(File().string(), StoreAccess::ReadWrite);
    notice_ = store->TakeNotice();
    return ForeignProgram(File().string()).Rows("SELECT DISTINCT substr(Name, 1, 1) FROM Rooms");
  }

  std::string SetAside() const {
    for (const auto& entry : fs::directory_iterator(Folder())) {
      const std::string name = entry.path().filename().string();
      if (name.find(" set aside ") != std::string::npos) {
        return name;
      }
    }
    return {};
  }

  TempFolder folder_;
  std::optional<Report> notice_;
};

TEST_F(LeftJournalTest, TakesTheHalfChangeBack) {
  ASSERT_TRUE(fs::exists(Journal()));
  EXPECT_EQ("A\n", LettersAfterAStart());
  EXPECT_FALSE(notice_.has_value());
  EXPECT_FALSE(fs::exists(Journal()));
}

TEST_F(LeftJournalTest, DoesNotReachABackupThatWasCopiedBack) {
  fs::copy_file(Backup(), File(), fs::copy_options::overwrite_existing);
  EXPECT_EQ("O\n", LettersAfterAStart());
}

TEST_F(LeftJournalTest, DoesNotReachABackupThatWasMovedBack) {
  fs::rename(Backup(), File());
  EXPECT_EQ("O\n", LettersAfterAStart());
}

TEST_F(LeftJournalTest, OfAnotherFileIsSetAsideWholeAndTold) {
  const std::string journal = folder_.Read("data/Calendar.mdb-journal");
  fs::rename(Backup(), File());
  LettersAfterAStart();
  EXPECT_TRUE(SetAside().starts_with("Calendar.mdb-journal set aside 20")) << SetAside();
  EXPECT_TRUE(journal == folder_.Read("data/" + SetAside()));
  ASSERT_TRUE(notice_.has_value());
  EXPECT_NE(std::string::npos, notice_->Advice.English().find(SetAside()));
}

}  // namespace
}  // namespace veyra
