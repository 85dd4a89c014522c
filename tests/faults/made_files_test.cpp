#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "app/file_opener.h"
#include "data/errors.h"
#include "data/open_store.h"
#include "data/posix_file.h"
#include "tests/fake_dialogs.h"
#include "tests/faults/contents.h"
#include "tests/faults/disk.h"
#include "tests/faults/office.h"
#include "tests/temp_folder.h"
#include "tests/tools/companion/run_command.h"
#include "tools/care/rescue.h"
#include "tools/companion/compact_command.h"
#include "tools/companion/convert_command.h"
#include "tools/companion/new_command.h"

namespace veyra::faults {
namespace {

namespace fs = std::filesystem;

using Names = std::vector<std::string>;

constexpr int kPart = 6;     ///< Of the points of a work, so many are tried,
constexpr int kWhole = 200;  ///< or so many.
constexpr int kLastSteps = 4;
const Date kToday = MakeDate(2026, 11, 21).value();

/// Something that makes files, killed on the way and done again.
class MadeFilesTest : public testing::Test {
 protected:
  using Work = std::function<void()>;

  std::string Folder() const { return folder_->path().string(); }
  std::string File(const std::string& name) const { return folder_->File(name).string(); }

  Names NamesIn(const std::string& name) const {
    Names names;
    std::error_code missing;
    for (const auto& entry : fs::directory_iterator(folder_->File(name), missing)) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  /// Begins with a fresh folder, which `prepare` fills, for each kill; `check` looks at what it
  /// left.
  void KillEverywhere(const Work& prepare, const Work& work, const Work& check) {
    Begin(prepare);
    Watch({.Folder = Folder()});
    work();
    const int steps = EndWatch().Steps;
    const int points = std::min(Tries(kPart, kWhole), steps);
    std::set<int> chosen;
    for (int point = 0; point < points; ++point) {
      chosen.insert(1 + point * (steps - 1) / std::max(points - 1, 1));
    }
    // At the end the files get their names: each of these steps is tried in a part, too.
    for (int step = std::max(1, steps - kLastSteps); step <= steps; ++step) {
      chosen.insert(step);
    }
    for (const int step : chosen) {
      if (HasFailure()) {
        break;
      }
      SCOPED_TRACE("killed at step " + std::to_string(step) + " of " + std::to_string(steps));
      Begin(prepare);
      Kill(step, work);
      check();
    }
    EXPECT_GT(points, 2);
  }

  static std::string OutputOf(const Command& command, const Arguments& arguments) {
    std::ostringstream out;
    RunWith(command, arguments, out);
    return out.str();
  }

  void New(FileKind kind, bool with_bookings = false) const {
    Arguments arguments{File("data")};
    if (with_bookings) {
      arguments.emplace_back("--sample");
    }
    if (kind == FileKind::Access) {
      arguments.emplace_back("--access");
    }
    OutputOf(NewCommand(kToday), arguments);
  }

  void Convert(const std::string& to) const {
    OutputOf(ConvertCommand(kToday, [](const CopyStep&) {}), {File("data"), "--to=" + to});
  }

  /// Makes the folder anew unless it is there; then both files are, whole.
  void ExpectThatNewMakesIt(FileKind kind) const {
    const bool was_made = NamesIn("data") == Names{"Calendar.mdb", "Veyra.mdb"};
    try {
      New(kind);
    } catch (const FileError& error) {
      EXPECT_NE(std::string::npos, error.report().Cause.English().find("there already"))
          << error.what();
      EXPECT_TRUE(was_made || !NamesIn("data").empty());
    }
    EXPECT_EQ((Names{"Calendar.mdb", "Veyra.mdb"}), NamesIn("data"));
    EXPECT_EQ("", Damage(File("data/Calendar.mdb")) + Damage(File("data/Veyra.mdb")));
    EXPECT_EQ((Names{"data"}), NamesIn(""));
  }

 private:
  void Begin(const Work& prepare) {
    folder_ = std::make_unique<TempFolder>();
    prepare();
  }

  void Kill(int step, const Work& work) const {
    const pid_t child = fork();
    if (child == 0) {
      Watch({.Folder = Folder(), .KillAt = step});
      work();
      _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status));
  }

  std::unique_ptr<TempFolder> folder_;
};

class NewFolderTest : public MadeFilesTest, public testing::WithParamInterface<FileKind> {};

INSTANTIATE_TEST_SUITE_P(Kinds, NewFolderTest, testing::Values(FileKind::Sqlite, FileKind::Access),
                         [](const auto& kind) {
                           return kind.param == FileKind::Access ? "Access" : "Sqlite";
                         });

TEST_P(NewFolderTest, ThatWasMissingAppearsWithBothFilesOrNotAtAll) {
  KillEverywhere([] {}, [this] { New(GetParam()); },
                 [this] {
                   const Names found = NamesIn("data");
                   EXPECT_TRUE(found.empty() || found == (Names{"Calendar.mdb", "Veyra.mdb"}));
                   ExpectThatNewMakesIt(GetParam());
                 });
}

TEST_P(NewFolderTest, ThatIsThereGetsBothFilesByTheNextRunAtLast) {
  KillEverywhere([this] { fs::create_directory(File("data")); }, [this] { New(GetParam()); },
                 [this] {
                   if (fs::exists(File("data/Calendar.mdb"))) {
                     EXPECT_TRUE(fs::exists(File("data/Veyra.mdb")));
                   }
                   ExpectThatNewMakesIt(GetParam());
                 });
}

class ConversionTest : public MadeFilesTest, public testing::WithParamInterface<FileKind> {
 protected:
  static std::string Word(bool is_access) { return is_access ? "access" : "sqlite"; }
};

INSTANTIATE_TEST_SUITE_P(To, ConversionTest, testing::Values(FileKind::Sqlite, FileKind::Access),
                         [](const auto& kind) {
                           return kind.param == FileKind::Access ? "Access" : "Sqlite";
                         });

TEST_P(ConversionTest, LeavesTheOldCalendarOrTheNewOne) {
  const bool to_access = GetParam() == FileKind::Access;
  std::string before;
  KillEverywhere(
      [&] {
        New(to_access ? FileKind::Sqlite : FileKind::Access, true);
        before = Contents(File("data/Calendar.mdb"));
      },
      [&] { Convert(Word(to_access)); },
      [&] {
        EXPECT_EQ(before, Contents(File("data/Calendar.mdb")));
        Convert(Word(to_access));
        EXPECT_EQ(before, Contents(File("data/Calendar.mdb")));
        EXPECT_EQ("", Damage(File("data/Calendar.mdb")));
        for (const std::string& name : NamesIn("data")) {
          EXPECT_TRUE(name == "Calendar.mdb" || name == "Veyra.mdb" ||
                      name.starts_with("Calendar-before-2026-11-21"))
              << name;
        }
      });
}

class CompactedFileTest : public MadeFilesTest {
 protected:
  std::string Compact() const {
    return OutputOf(CompactCommand(kToday, [](const CopyStep&) {}), {File("data")});
  }

  /// Half of the bookings are deleted.
  void MakeHoles() const {
    New(FileKind::Access, true);
    const auto store = OpenStore(File("data/Calendar.mdb"), StoreAccess::ReadWrite);
    std::vector<Row> rows;
    {
      const auto source = store->Select(ParseQuery("SELECT * FROM Reserv"));
      for (Row row; source->Next(row);) {
        rows.push_back(row);
      }
    }
    for (std::size_t i = 0; i < rows.size(); i += 12) {
      store->Delete("Reserv", rows[i]);
    }
  }
};

TEST_F(CompactedFileTest, IsTheOldOneOrTheNewOneWhole) {
  std::string before;
  KillEverywhere(
      [&] {
        MakeHoles();
        before = Contents(File("data/Calendar.mdb"));
      },
      [&] { Compact(); },
      [&] {
        EXPECT_EQ(before, Contents(File("data/Calendar.mdb")));
        EXPECT_EQ("", Damage(File("data/Calendar.mdb")));
        const bool has_kept = fs::exists(File("data/Calendar-before-2026-11-21.mdb"));
        const std::string told = Compact();
        EXPECT_EQ(has_kept, told.find("older file Calendar-before") != std::string::npos) << told;
        EXPECT_EQ(before, Contents(File("data/Calendar.mdb")));
        EXPECT_EQ(has_kept ? 3U : 2U, NamesIn("data").size());
      });
}

class RescuedFolderTest : public MadeFilesTest, public testing::WithParamInterface<FileKind> {};

INSTANTIATE_TEST_SUITE_P(Kinds, RescuedFolderTest,
                         testing::Values(FileKind::Sqlite, FileKind::Access), [](const auto& kind) {
                           return kind.param == FileKind::Access ? "Access" : "Sqlite";
                         });

TEST_P(RescuedFolderTest, IsMadeWholeOrNotAtAll) {
  const auto rescue = [this] {
    RescueFile(File("data/Calendar.mdb"), File("rescued"), [](const CopyStep&) {});
  };
  std::string before;
  KillEverywhere(
      [&] {
        New(GetParam(), true);
        before = Contents(File("data/Calendar.mdb"));
      },
      rescue,
      [&] {
        const Names found = NamesIn("rescued");
        EXPECT_TRUE(found.empty() || found == Names{"Calendar.mdb"});
        if (found.empty()) {
          rescue();
        }
        EXPECT_EQ(before, Contents(File("rescued/Calendar.mdb")));
        EXPECT_EQ(before, Contents(File("data/Calendar.mdb")));
      });
}

class PathFileTest : public MadeFilesTest {
 protected:
  /// What a start makes of it, whether it is there, empty or missing.
  void Start() const {
    FakeDialogs dialogs;
    Files files(Folder(), dialogs);
    std::string name = Folder() + "\\path.txt";
    const int handle = files.FileOpener(name, 2, 80, false);
    if (handle != 0 && files.AtEnd(handle)) {
      files.Close(handle);
      files.FillEmptyFile(name);
    }
  }

  std::string PathFile() const { return fs::exists(File("path.txt")) ? Text() : "missing"; }
  std::string Text() const { return ReadWholeFile(File("path.txt"), 4096); }
};

TEST_F(PathFileTest, IsMadeWholeOrNotAtAll) {
  KillEverywhere([] {}, [this] { Start(); },
                 [this] {
                   const std::string whole = Folder() + "\r\n" + Folder() + "\r\n";
                   EXPECT_TRUE(PathFile() == "missing" || PathFile() == whole) << PathFile();
                   Start();
                   EXPECT_EQ(whole, PathFile());
                   EXPECT_EQ((Names{"path.txt"}), NamesIn(""));
                 });
}

TEST_F(PathFileTest, IsFilledWholeOrStaysEmpty) {
  KillEverywhere([this] { std::ofstream(File("path.txt")).close(); }, [this] { Start(); },
                 [this] {
                   const std::string whole = Folder() + "\r\n" + Folder() + "\r\n";
                   EXPECT_TRUE(PathFile().empty() || PathFile() == whole) << PathFile();
                   Start();
                   EXPECT_EQ(whole, PathFile());
                   EXPECT_EQ((Names{"path.txt"}), NamesIn(""));
                 });
}

}  // namespace
}  // namespace veyra::faults
