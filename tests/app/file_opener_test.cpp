#include "app/file_opener.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/fake_dialogs.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

constexpr int kForWriting = 1;
constexpr int kForReading = 2;
constexpr int kForAppending = 3;
constexpr int kForRecords = 4;
constexpr int kForBytes = 5;

class FileOpenerTest : public testing::Test {
 protected:
  /// Opens a file of the test's folder; what its name has become is in name_.
  int Open(const std::string& name, int mode, bool confirm_replace = false) {
    name_ = folder_.path().string() + "\\" + name;
    return files_.FileOpener(name_, mode, 80, confirm_replace);
  }

  std::string ShortName() const { return name_.substr(folder_.path().string().size() + 1); }

  TempFolder folder_;
  FakeDialogs dialogs_;
  Files files_{"/the/app folder", dialogs_};
  std::string name_;
};

TEST_F(FileOpenerTest, AFileIsReadLineByLine) {
  folder_.Write("path.txt", "/data\r\n/second\r\n");
  const int handle = Open("path.txt", kForReading);
  EXPECT_EQ("/data", files_.ReadLine(handle));
  EXPECT_EQ("/second", files_.ReadLine(handle));
  EXPECT_TRUE(files_.AtEnd(handle));
}

TEST_F(FileOpenerTest, LinesMayEndAsOtherSystemsEndThem) {
  folder_.Write("path.txt", "/data\n/second");
  const int handle = Open("path.txt", kForReading);
  EXPECT_EQ("/data", files_.ReadLine(handle));
  EXPECT_EQ("/second", files_.ReadLine(handle));
}

TEST_F(FileOpenerTest, ACarriageReturnAloneEndsALineToo) {
  folder_.Write("path.txt", "/data\r/second\r");
  const int handle = Open("path.txt", kForReading);
  EXPECT_EQ("/data", files_.ReadLine(handle));
  EXPECT_EQ("/second", files_.ReadLine(handle));
  EXPECT_TRUE(files_.AtEnd(handle));
}

TEST_F(FileOpenerTest, ReadingPastTheEndIsAFailure) {
  folder_.Write("path.txt", "");
  const int handle = Open("path.txt", kForReading);
  EXPECT_THROW(files_.ReadLine(handle), FileError);
}

TEST_F(FileOpenerTest, HandlesAreTheLowestFreeNumbers) {
  folder_.Write("a", "");
  EXPECT_EQ(1, Open("a", kForReading));
  EXPECT_EQ(2, Open("a", kForReading));
  files_.Close(1);
  EXPECT_EQ(1, Open("a", kForReading));
}

TEST_F(FileOpenerTest, AMissingFileIsMadeWithTheApplicationFolderTwice) {
  EXPECT_EQ(0, Open("path.txt", kForReading));
  EXPECT_EQ("/the/app folder\r\n/the/app folder\r\n", folder_.Read("path.txt"));
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(FileOpenerTest, AMissingFileThatCannotBeMadeIsAFailure) {
  std::string name = "/proc/path.txt";
  EXPECT_THROW(files_.FileOpener(name, kForReading, 80, false), FileError);
}

TEST_F(FileOpenerTest, AMissingFolderIsShownByItsNumber) {
  EXPECT_EQ(0, Open("nowhere\\path.txt", kForReading));
  EXPECT_EQ("[OK] FileOpener: Error: 76", dialogs_.OnlyBox());
}

TEST_F(FileOpenerTest, ALinkToItselfIsShownByItsNumber) {
  std::filesystem::create_symlink("path.txt", folder_.File("path.txt"));
  EXPECT_EQ(0, Open("path.txt", kForReading));
  EXPECT_EQ(0, Open("path.txt", kForRecords, true));
  EXPECT_EQ((std::vector<std::string>(2, "[OK] FileOpener: Error: 75")), dialogs_.Boxes());
}

TEST_F(FileOpenerTest, ANameTooLongIsShownByItsNumber) {
  EXPECT_EQ(0, Open(std::string(300, 'x'), kForReading));
  EXPECT_EQ(0, Open(std::string(5000, 'x'), kForWriting, true));
  EXPECT_EQ((std::vector<std::string>(2, "[OK] FileOpener: Error: 52")), dialogs_.Boxes());
}

TEST_F(FileOpenerTest, AFolderThatCannotBeAskedIsShownByItsNumber) {
  std::filesystem::create_symlink("shut", folder_.File("shut"));
  EXPECT_EQ(0, Open("shut\\path.txt", kForReading, true));
  EXPECT_EQ("[OK] FileOpener: Error: 75", dialogs_.OnlyBox());
}

TEST_F(FileOpenerTest, APipeAndADeviceAreShownByTheirNumber) {
  mkfifo(folder_.File("pipe").c_str(), 0600);
  std::filesystem::create_symlink("/dev/zero", folder_.File("device"));
  EXPECT_EQ(0, Open("pipe", kForReading));
  EXPECT_EQ(0, Open("device", kForReading));
  EXPECT_EQ((std::vector<std::string>(2, "[OK] FileOpener: Error: 75")), dialogs_.Boxes());
}

TEST_F(FileOpenerTest, AFileThatIsMadeLeavesNothingBesideIt) {
  Open("path.txt", kForReading);
  EXPECT_EQ((std::vector<std::string>{"path.txt"}), folder_.Names());
}

TEST_F(FileOpenerTest, AFileThatCannotBeWrittenDoesNotAppearByHalves) {
  const pid_t child = fork();
  if (child == 0) {
    signal(SIGXFSZ, SIG_IGN);
    const rlimit nothing{0, 0};
    setrlimit(RLIMIT_FSIZE, &nothing);
    try {
      Open("path.txt", kForReading);
    } catch (const FileError&) {
      _exit(3);
    }
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(3, WEXITSTATUS(status));
  EXPECT_TRUE(folder_.Names().empty());
}

TEST_F(FileOpenerTest, ALinkToNothingIsAFailureThatIsSaid) {
  std::filesystem::create_symlink("nowhere", folder_.File("path.txt"));
  EXPECT_THROW(Open("path.txt", kForReading), FileError);
  EXPECT_FALSE(std::filesystem::exists(folder_.File("nowhere")));
}

TEST_F(FileOpenerTest, AFolderInTheFilesPlaceIsShownByItsNumber) {
  std::filesystem::create_directory(folder_.File("path.txt"));
  EXPECT_EQ(0, Open("path.txt", kForReading));
  EXPECT_EQ("[OK] FileOpener: Error: 75", dialogs_.OnlyBox());
}

TEST_F(FileOpenerTest, AnUnknownModeOpensNothing) {
  EXPECT_EQ(0, Open("new", 6));
  EXPECT_EQ(0, Open("new", 0));
  EXPECT_FALSE(std::filesystem::exists(folder_.File("new")));
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(FileOpenerTest, WritingMakesOrEmptiesTheFile) {
  folder_.Write("old", "contents");
  const int handle = Open("old", kForWriting);
  files_.WriteLine(handle, "new");
  files_.Close(handle);
  EXPECT_EQ("new\r\n", folder_.Read("old"));
  EXPECT_EQ(1, Open("fresh", kForWriting));
  EXPECT_TRUE(std::filesystem::exists(folder_.File("fresh")));
}

TEST_F(FileOpenerTest, AppendingKeepsWhatIsThere) {
  folder_.Write("log", "one\r\n");
  const int handle = Open("log", kForAppending);
  files_.WriteLine(handle, "two");
  files_.Close(handle);
  EXPECT_EQ("one\r\ntwo\r\n", folder_.Read("log"));
}

TEST_F(FileOpenerTest, OnlyRecordsHaveALength) {
  EXPECT_EQ(80, files_.RecordLengthOf(Open("records", kForRecords)));
  EXPECT_EQ(0, files_.RecordLengthOf(Open("bytes", kForBytes)));
}

TEST_F(FileOpenerTest, RecordsAndBytesKeepWhatIsThere) {
  folder_.Write("bytes", "abc");
  files_.Close(Open("bytes", kForBytes));
  files_.Close(Open("bytes", kForRecords));
  EXPECT_EQ("abc", folder_.Read("bytes"));
}

TEST_F(FileOpenerTest, CancelLeavesTheFileThatWouldBeReplaced) {
  folder_.Write("old", "contents");
  dialogs_.AnswerNext(Answer::Cancel);
  EXPECT_EQ(0, Open("old", kForWriting, true));
  EXPECT_EQ("contents", folder_.Read("old"));
}

TEST_F(FileOpenerTest, OkEmptiesTheFileThatIsReplaced) {
  folder_.Write("old", "contents");
  dialogs_.AnswerNext(Answer::Ok);
  EXPECT_EQ(1, Open("old", kForWriting, true));
  EXPECT_EQ("", folder_.Read("old"));
  EXPECT_EQ("[OK/Cancel Exclamation] Replace contents of " + name_ + "?", dialogs_.OnlyBox());
  EXPECT_EQ("Replace File?", dialogs_.LastMessage().Title);
}

TEST_F(FileOpenerTest, ReplacingAsksOnlyForAFileThatIsThereAndIsWritten) {
  EXPECT_EQ(1, Open("fresh", kForWriting, true));
  EXPECT_EQ(2, Open("fresh", kForReading, true));
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(FileOpenerTest, TheAtSignGoesWhenTheNameWithItIsThere) {
  folder_.Write("old@", "with");
  folder_.Write("old", "without");
  const int handle = Open("old@", kForReading, true);
  EXPECT_EQ("old", ShortName());
  EXPECT_EQ("without", files_.ReadLine(handle));
}

TEST_F(FileOpenerTest, TheAtSignStaysWhenOnlyTheNameWithoutItIsThere) {
  folder_.Write("old", "without");
  EXPECT_EQ(1, Open("old@", kForWriting, true));
  EXPECT_EQ("old@", ShortName());
  EXPECT_EQ("without", folder_.Read("old"));
}

TEST_F(FileOpenerTest, WithoutConfirmationTheAtSignIsPartOfTheName) {
  folder_.Write("old@", "with");
  const int handle = Open("old@", kForReading);
  EXPECT_EQ("with", files_.ReadLine(handle));
}

TEST_F(FileOpenerTest, ALineTooLongToBeAFolderIsAFailure) {
  folder_.Write("path.txt", std::string(10'000'000, 'x'));
  const int handle = Open("path.txt", kForReading);
  EXPECT_THROW(files_.ReadLine(handle), FileError);
}

TEST_F(FileOpenerTest, ALineThatIsNoTextIsAFailure) {
  folder_.Write("nul", std::string("/da\0ta\r\n", 8));
  folder_.Write("latin", "/caf\xE9\r\n");
  EXPECT_THROW(files_.ReadLine(Open("nul", kForReading)), FileError);
  EXPECT_THROW(files_.ReadLine(Open("latin", kForReading)), FileError);
}

}  // namespace
}  // namespace veyra
