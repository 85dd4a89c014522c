#include "data/posix_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "tests/temp_folder.h"

namespace veyra {
namespace {

using Names = std::vector<std::string>;

class PosixFileTest : public testing::Test {
 protected:
  /// The error number with which `call` fails; 0 when it does not.
  static int NumberOf(const std::function<void()>& call) {
    try {
      call();
    } catch (const PosixFileError& error) {
      return error.Number();
    }
    return 0;
  }

  static mode_t RightsOf(const std::filesystem::path& file) {
    struct stat status {};
    stat(file.c_str(), &status);
    return status.st_mode & 07777U;
  }

  TempFolder folder_;
};

TEST_F(PosixFileTest, ReadsFromAPlaceUpToTheEnd) {
  folder_.Write("file", "abcdef");
  const PosixFile file(folder_.File("file"), PosixFile::Use::Read);
  std::vector<unsigned char> bytes(4);
  EXPECT_EQ(2U, file.ReadAt(bytes, 4));
  EXPECT_EQ('e', bytes[0]);
  EXPECT_EQ(6U, file.Size());
}

TEST_F(PosixFileTest, WritesAtAPlaceAndCutsOff) {
  folder_.Write("file", "abcdef");
  const PosixFile file(folder_.File("file"), PosixFile::Use::ReadWrite);
  file.WriteAt(std::vector<unsigned char>{'X', 'Y'}, 1);
  file.Truncate(4);
  file.Flush();
  EXPECT_EQ("aXYd", folder_.Read("file"));
}

TEST_F(PosixFileTest, AppendsAtTheEndAndMakesTheFile) {
  PosixFile(folder_.File("log"), PosixFile::Use::Append).Write("one");
  PosixFile(folder_.File("log"), PosixFile::Use::Append).Write("two");
  EXPECT_EQ("onetwo", folder_.Read("log"));
}

TEST_F(PosixFileTest, MakesNoNewFileWhereALinkToNothingIs) {
  std::filesystem::create_symlink("nowhere", folder_.File("file"));
  EXPECT_EQ(EEXIST, NumberOf([&] { PosixFile(folder_.File("file"), PosixFile::Use::MakeNew); }));
}

TEST_F(PosixFileTest, NeverWaitsForAPipe) {
  mkfifo(folder_.File("pipe").c_str(), 0600);
  EXPECT_EQ(EINVAL, NumberOf([&] { PosixFile(folder_.File("pipe"), PosixFile::Use::Read); }));
}

TEST_F(PosixFileTest, IsNoFolderAndNoDevice) {
  EXPECT_EQ(EISDIR, NumberOf([&] { PosixFile(folder_.path(), PosixFile::Use::Read); }));
  EXPECT_EQ(EINVAL, NumberOf([&] { PosixFile("/dev/zero", PosixFile::Use::Read); }));
}

TEST_F(PosixFileTest, TakesItsHandleAlongWhenItIsMoved) {
  folder_.Write("file", "abc");
  PosixFile first(folder_.File("file"), PosixFile::Use::Read);
  const PosixFile second(std::move(first));
  EXPECT_EQ(3U, second.Size());
}

TEST_F(PosixFileTest, ReadsAWholeFileUpToALimit) {
  folder_.Write("file", "abc");
  EXPECT_EQ("abc", ReadWholeFile(folder_.File("file"), 3));
  EXPECT_EQ(EFBIG, NumberOf([&] { ReadWholeFile(folder_.File("file"), 2); }));
}

TEST_F(PosixFileTest, MakesAWholeFileAndLeavesNothingElse) {
  MakeWholeFile(folder_.File("file"), "contents");
  EXPECT_EQ("contents", folder_.Read("file"));
  EXPECT_EQ((Names{"file"}), folder_.Names());
}

TEST_F(PosixFileTest, GivesAWholeFileTheRightsOfAnyOther) {
  const mode_t mask = umask(027);
  MakeWholeFile(folder_.File("file"), "contents");
  umask(mask);
  EXPECT_EQ(0640U, RightsOf(folder_.File("file")));
}

TEST_F(PosixFileTest, MakesNoWholeFileOverAnother) {
  folder_.Write("file", "first");
  EXPECT_EQ(EEXIST, NumberOf([&] { MakeWholeFile(folder_.File("file"), "second"); }));
  EXPECT_EQ("first", folder_.Read("file"));
  EXPECT_EQ((Names{"file"}), folder_.Names());
}

TEST_F(PosixFileTest, ReplacesAFileThatKeepsItsRights) {
  folder_.Write("file", "first");
  chmod(folder_.File("file").c_str(), 0640);
  PutWholeFile(folder_.File("file"), "second");
  EXPECT_EQ("second", folder_.Read("file"));
  EXPECT_EQ(0640U, RightsOf(folder_.File("file")));
  EXPECT_EQ((Names{"file"}), folder_.Names());
}

TEST_F(PosixFileTest, PutsAFileWhereThereWasNone) {
  PutWholeFile(folder_.File("file"), "contents");
  EXPECT_EQ("contents", folder_.Read("file"));
  EXPECT_EQ((Names{"file"}), folder_.Names());
}

TEST_F(PosixFileTest, RenamesOverAnotherOnlyWhenToldTo) {
  folder_.Write("one", "1");
  folder_.Write("two", "2");
  EXPECT_EQ(EEXIST, RenameWithoutReplacing(folder_.File("one"), folder_.File("two")));
  EXPECT_EQ(0, RenameWithoutReplacing(folder_.File("one"), folder_.File("three")));
  Rename(folder_.File("three"), folder_.File("two"));
  EXPECT_EQ("1", folder_.Read("two"));
}

TEST_F(PosixFileTest, RemovesAFileThatNeedNotBeThere) {
  folder_.Write("file", "");
  RemoveFile(folder_.File("file"));
  RemoveFile(folder_.File("file"));
  EXPECT_TRUE(folder_.Names().empty());
}

TEST_F(PosixFileTest, FlushesFilesAndFolders) {
  folder_.Write("file", "");
  EXPECT_EQ(0, NumberOf([&] { FlushByName(folder_.File("file")); }));
  EXPECT_EQ(0, NumberOf([&] { FlushFolderOf(folder_.File("file")); }));
  EXPECT_EQ(ENOENT, NumberOf([&] { FlushByName(folder_.File("missing")); }));
}

TEST_F(PosixFileTest, SaysWhatAFullDiskIs) {
  EXPECT_EQ("the disk is full", SystemErrorText(ENOSPC));
  EXPECT_STREQ("the disk is full", PosixFileError(ENOSPC).what());
}

}  // namespace
}  // namespace veyra
