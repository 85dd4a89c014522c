#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>

#include "data/errors.h"
#include "data/open_store.h"
#include "data/schema.h"
#include "data/store.h"
#include "tests/data/sqlite/foreign_program.h"
#include "tests/store_kind.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

namespace fs = std::filesystem;

/// A calendar that somebody replaces, moves or removes while the program has it open. It holds the
/// facility Pool; a backup of it, without facilities, lies beside its folder.
class ReplacedFileTest : public testing::TestWithParam<StoreKind> {
 protected:
  ReplacedFileTest() {
    fs::create_directory(Folder());
    CreateStoreOfKind(GetParam(), File())->CreateTable(RoomsTable());
    fs::copy_file(File(), Backup());
    store_ = OpenStore(File(), StoreAccess::ReadWrite);
    pool_ = AddRoom("Pool");
  }

  fs::path Folder() const { return folder_.File("data"); }
  std::string File() const { return (Folder() / "Calendar.mdb").string(); }
  fs::path Backup() const { return folder_.File("backup"); }

  Row AddRoom(const std::string& name) { return store_->Insert("Rooms", {{"Name", name}}); }

  static std::string RoomsIn(Store& store) {
    std::string names;
    const auto rows = store.Select(ParseQuery("SELECT * FROM Rooms"));
    for (Row row; rows->Next(row);) {
      names += ToText(row.Values.at(1)) + ";";
    }
    return names;
  }

  /// The facilities in a file as the next start finds them.
  std::string RoomsAfterStart(const std::string& file) {
    store_.reset();
    return RoomsIn(*OpenStore(file, StoreAccess::ReadWrite));
  }

  /// What the operator is told of a change that is refused.
  std::string CauseOfRefusal() {
    try {
      AddRoom("Hall");
    } catch (const FileReplacedError& error) {
      EXPECT_EQ(File(), error.report().File);
      EXPECT_NE("", error.report().Advice);
      return error.report().Cause.English();
    }
    ADD_FAILURE() << "no report";
    return {};
  }

  TempFolder folder_;
  std::unique_ptr<Store> store_;
  Row pool_;
};

INSTANTIATE_TEST_SUITE_P(Kinds, ReplacedFileTest, testing::ValuesIn(kFileKinds),
                         [](const auto& kind) { return NameOf(kind.param); });

constexpr const char* kReplaced =
    "The file was replaced by another one while the calendar was open.";
constexpr const char* kGone = "The file was removed, moved or renamed while the calendar was open.";

TEST_P(ReplacedFileTest, RefusesEachChangeOfAFileThatWasReplaced) {
  fs::rename(Backup(), File());
  EXPECT_EQ(kReplaced, CauseOfRefusal());
  EXPECT_THROW(store_->Update("Rooms", pool_, {{"Name", "Hall"}}), FileReplacedError);
  EXPECT_THROW(store_->Delete("Rooms", pool_), FileReplacedError);
  EXPECT_THROW(store_->CreateTable(GuestTable()), FileReplacedError);
  EXPECT_THROW(store_->AddColumn("Rooms", {.Name = "Note"}), FileReplacedError);
}

TEST_P(ReplacedFileTest, ShowsNoRowsOfAFileThatWasReplaced) {
  fs::rename(Backup(), File());
  EXPECT_THROW(RoomsIn(*store_), FileReplacedError);
  EXPECT_THROW(store_->TableNames(), FileReplacedError);
  EXPECT_THROW(store_->ColumnNames("Rooms"), FileReplacedError);
}

TEST_P(ReplacedFileTest, LeavesTheFileThatTookThePlaceAsItIs) {
  const std::string backup = folder_.Read("backup");
  fs::rename(Backup(), File());
  CauseOfRefusal();
  store_.reset();
  EXPECT_EQ(backup, folder_.Read("data/Calendar.mdb"));
}

TEST_P(ReplacedFileTest, RefusesAChangeOfAFileThatWasDeleted) {
  fs::remove(File());
  EXPECT_EQ(kGone, CauseOfRefusal());
  EXPECT_FALSE(fs::exists(File()));
}

TEST_P(ReplacedFileTest, RefusesAChangeOfAFileThatWasMovedAway) {
  fs::rename(File(), folder_.File("elsewhere"));
  EXPECT_EQ(kGone, CauseOfRefusal());
}

TEST_P(ReplacedFileTest, RefusesAChangeWhoseFolderWasRemoved) {
  fs::remove_all(Folder());
  EXPECT_EQ(kGone, CauseOfRefusal());
}

TEST_P(ReplacedFileTest, StillShowsTheRowsOfAFileThatIsGone) {
  fs::remove(File());
  EXPECT_EQ("Pool;", RoomsIn(*store_));
}

TEST_P(ReplacedFileTest, GoesOnInAFolderThatWasRenamed) {
  fs::rename(Folder(), folder_.File("moved"));
  AddRoom("Hall");
  EXPECT_EQ("Pool;Hall;", RoomsIn(*store_));
  EXPECT_EQ("Pool;Hall;", RoomsAfterStart(folder_.File("moved").string() + "/Calendar.mdb"));
}

TEST_P(ReplacedFileTest, RefusesAChangeWhenAnotherFolderTookThePlace) {
  fs::rename(Folder(), folder_.File("moved"));
  fs::create_directory(Folder());
  fs::copy_file(Backup(), File());
  EXPECT_EQ(kReplaced, CauseOfRefusal());
}

TEST_P(ReplacedFileTest, GoesOnWhenTheFileIsBackInItsPlace) {
  fs::rename(File(), folder_.File("elsewhere"));
  CauseOfRefusal();
  fs::rename(folder_.File("elsewhere"), File());
  AddRoom("Hall");
  EXPECT_EQ("Pool;Hall;", RoomsIn(*store_));
}

/// What only a file with a log beside it can meet.
class OverwrittenFileTest : public ReplacedFileTest {
 protected:
  /// File times move in ticks, and nobody overwrites a file within one.
  void Overwrite() {
    const std::string backup = folder_.Read("backup");
    do {
      folder_.Write("clock", "tick");
    } while (fs::last_write_time(folder_.File("clock")) <= fs::last_write_time(File() + "-wal"));
    folder_.Write("data/Calendar.mdb", backup);
  }
};

INSTANTIATE_TEST_SUITE_P(Kinds, OverwrittenFileTest, testing::Values(StoreKind::Sqlite),
                         [](const auto& kind) { return NameOf(kind.param); });

TEST_P(OverwrittenFileTest, RefusesAChange) {
  Overwrite();
  EXPECT_EQ("The file was overwritten by another program while the calendar was open.",
            CauseOfRefusal());
}

TEST_P(OverwrittenFileTest, ShowsNoRows) {
  Overwrite();
  EXPECT_THROW(RoomsIn(*store_), FileReplacedError);
}

TEST_P(OverwrittenFileTest, LeavesTheFileAsItIs) {
  Overwrite();
  CauseOfRefusal();
  store_.reset();
  EXPECT_TRUE(folder_.Read("backup") == folder_.Read("data/Calendar.mdb"));
  EXPECT_EQ("", RoomsAfterStart(File()));
}

TEST_P(OverwrittenFileTest, LeavesTheFileAsItIsWhenNothingIsAskedOfItBeforeTheEnd) {
  Overwrite();
  EXPECT_EQ("", RoomsAfterStart(File()));
}

using OverwrittenAccessFileTest = ReplacedFileTest;

INSTANTIATE_TEST_SUITE_P(Kinds, OverwrittenAccessFileTest, testing::Values(StoreKind::Access),
                         [](const auto& kind) { return NameOf(kind.param); });

/// It keeps no log: what is written after that goes into the file that is there.
TEST_P(OverwrittenAccessFileTest, TakesTheNextChange) {
  fs::copy_file(Backup(), File(), fs::copy_options::overwrite_existing);
  AddRoom("Hall");
  EXPECT_EQ("Hall;", RoomsAfterStart(File()));
}

TEST_P(OverwrittenFileTest, GoesOnWhenAnotherProgramHasPutTheLogIntoTheFile) {
  ForeignProgram(File()).Run("PRAGMA wal_checkpoint(TRUNCATE); INSERT INTO Rooms(Name) VALUES (1)");
  AddRoom("Hall");
  EXPECT_EQ("Pool;1;Hall;", RoomsAfterStart(File()));
}

TEST_P(OverwrittenFileTest, GoesOnWhenTwoProgramsChangeItByTurns) {
  const auto other = OpenStore(File(), StoreAccess::ReadWrite);
  for (int i = 0; i < 600; ++i) {
    (i % 2 == 0 ? *store_ : *other).Insert("Rooms", {{"Name", std::string(900, 'x')}});
  }
  EXPECT_LT(fs::file_size(File() + "-wal"), 6'000'000U);
  const std::string names = RoomsIn(*store_);
  EXPECT_EQ(601, std::count(names.begin(), names.end(), ';'));
}

}  // namespace
}  // namespace veyra
