#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <random>

#include "data/errors.h"
#include "help/qt_help_file.h"
#include "help/topic_search.h"
#include "tests/help/help_samples.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

using std::chrono::steady_clock;

/// Help files that are none, or are damaged. Whatever is in them, this process stays alive and
/// soon has its answer.
class DamagedHelpTest : public testing::Test {
 protected:
  /// Opens a file of these bytes and asks it everything. Whether it could be read.
  bool Reads(const std::string& bytes) {
    folder_.Write("help.chm", bytes);
    const auto begin = steady_clock::now();
    const bool reads = ReadsFile(folder_.File("help.chm"));
    slowest_ = std::max(slowest_, steady_clock::now() - begin);
    return reads;
  }

  static bool ReadsFile(const std::filesystem::path& file) {
    try {
      AskEverything(ReadHelpFile(file, kReader));
      return true;
    } catch (const FileError& failure) {
      EXPECT_EQ("The help file cannot be read.", failure.report().Cause);
      EXPECT_EQ(file.string(), failure.report().File);
      return false;
    }
  }

  static void AskEverything(const ChmArchive& archive) {
    for (const int number : {20, 30, 60, 80}) {
      archive.Topic(number);
    }
    for (const ContentsEntry& entry : archive.Contents()) {
      archive.Page(entry.Page);
    }
    archive.Page(archive.FirstPage());
    TopicSearch(archive).Find("month");
  }

  std::size_t Place(std::size_t from, std::size_t to) {
    return std::uniform_int_distribution<std::size_t>(from, to - 1)(random_);
  }
  char Byte() { return static_cast<char>(Place(0, 256)); }

  TempFolder folder_;
  const std::string good_ = FileBytes(kHelpFileName);
  std::mt19937 random_{20140406};
  steady_clock::duration slowest_{};
};

TEST_F(DamagedHelpTest, TheSoundFileIsRead) {
  EXPECT_TRUE(Reads(good_));
}

TEST_F(DamagedHelpTest, WhatIsNoHelpFileCannotBeRead) {
  EXPECT_FALSE(Reads(""));
  EXPECT_FALSE(Reads("ITSF"));
  EXPECT_FALSE(Reads("<html><body>Help</body></html>"));
  EXPECT_FALSE(Reads(std::string(100000, '\0')));
  EXPECT_FALSE(Reads(FileBytes(kHelpFolder / "topics/pictures/month.png")));
}

TEST_F(DamagedHelpTest, AMissingFileOrAFolderCannotBeRead) {
  EXPECT_FALSE(ReadsFile(folder_.File("none.chm")));
  EXPECT_FALSE(ReadsFile(folder_.path()));
}

TEST_F(DamagedHelpTest, WithoutTheReaderNoFileCanBeRead) {
  EXPECT_THROW(ReadHelpFile(kHelpFileName, folder_.File("no-reader")), FileError);
}

TEST_F(DamagedHelpTest, AFileCutShortAnywhereCannotBeRead) {
  for (std::size_t i = 0; i < 60; ++i) {
    const std::size_t length = good_.size() * i / 60;
    EXPECT_FALSE(Reads(good_.substr(0, length))) << length;
  }
  EXPECT_FALSE(Reads(good_.substr(0, good_.size() - 1)));
}

TEST_F(DamagedHelpTest, BytesBehindTheEndDoNoHarm) {
  EXPECT_TRUE(Reads(good_ + std::string(1000, 'x')));
}

TEST_F(DamagedHelpTest, HundredsOfDamagedFilesNeitherCrashNorHangTheProgram) {
  constexpr std::size_t kDirectoryEnd = 5000;
  const std::function<void(std::string&)> damages[] = {
      [&](std::string& file) { file[Place(0, file.size())] = Byte(); },
      [&](std::string& file) { file[Place(0, 0x100)] = Byte(); },
      [&](std::string& file) {
        for (int i = 0; i < 8; ++i) {
          file[Place(0, kDirectoryEnd)] = Byte();
        }
      },
      [&](std::string& file) {
        for (int i = 0; i < 32; ++i) {
          file[Place(kDirectoryEnd, file.size())] = Byte();
        }
      },
      [&](std::string& file) {
        const std::size_t begin = Place(0, file.size() - 600);
        std::fill_n(file.begin() + static_cast<std::ptrdiff_t>(begin), 600, '\xFF');
      },
      [&](std::string& file) { file.erase(Place(0, file.size()), 7); },
  };
  int unreadable = 0;
  for (int i = 0; i < 480; ++i) {
    std::string file = good_;
    damages[static_cast<std::size_t>(i) % std::size(damages)](file);
    if (!Reads(file)) {
      ++unreadable;
    }
  }
  RecordProperty("unreadable", unreadable);
  EXPECT_GT(unreadable, 100);
  EXPECT_LT(unreadable, 480);
  EXPECT_LT(slowest_, std::chrono::seconds(10));
}

}  // namespace
}  // namespace veyra
