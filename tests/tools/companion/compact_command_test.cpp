#include "tools/companion/compact_command.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "data/create_store.h"
#include "data/errors.h"
#include "data/open_store.h"
#include "data/schema.h"
#include "tests/data/access/fixtures.h"
#include "tests/temp_folder.h"
#include "tests/tools/companion/run_command.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

const Date kToday = MakeDate(2026, 11, 21).value();

class CompactCommandTest : public testing::Test {
 protected:
  std::string File() const { return temp_.File("Calendar.mdb").string(); }

  ExitStatus Compact(const CopyObserver& observer = [](const CopyStep&) {}) {
    return RunWith(CompactCommand(kToday, observer), {temp_.path().string()}, out_);
  }

  /// A calendar with three facilities and a long text that was deleted.
  void Make(FileKind kind) const {
    const auto store = CreateStore(File(), Durability::WhenAsked, kind);
    store->CreateTable(RoomsTable());
    for (const char* name : {"Pool", "Hall", "Bar"}) {
      store->Insert("Rooms", {{"Name", name}});
    }
    store->CreateTable({.Name = "Notes", .Columns = {{.Name = "Text"}}});
    store->Delete("Notes", store->Insert("Notes", {{"Text", std::string(900'000, 'x')}}));
  }

  std::string Names() const {
    const auto store = OpenStore(File(), StoreAccess::ReadOnly);
    const auto rows = store->Select(ParseQuery("SELECT * FROM Rooms"));
    std::string names;
    for (Row row; rows->Next(row);) {
      names += ToText(row.Values.at(0)) + ToText(row.Values.at(1)) + ";";
    }
    return names;
  }

  TempFolder temp_;
  std::ostringstream out_;
};

TEST_F(CompactCommandTest, GivesBackTheRoomOfWhatWasDeleted) {
  Make(FileKind::Access);
  const auto before = fs::file_size(File());
  EXPECT_EQ(ExitStatus::Fine, Compact());
  EXPECT_LT(fs::file_size(File()), before / 4);
  EXPECT_EQ("1Pool;2Hall;3Bar;", Names());
  EXPECT_EQ(std::vector<std::string>{"Calendar.mdb"}, temp_.Names());
  EXPECT_NE(std::string::npos, out_.str().find(" KB less: 2 tables, 3 rows, all compared."));
}

TEST_F(CompactCommandTest, ANumberThatWasGivenIsNotGivenAgain) {
  Make(FileKind::Access);
  {
    const auto store = OpenStore(File(), StoreAccess::ReadWrite);
    store->Delete("Rooms", store->Insert("Rooms", {{"Name", "Attic"}}));
  }
  EXPECT_EQ(ExitStatus::Fine, Compact());
  OpenStore(File(), StoreAccess::ReadWrite)->Insert("Rooms", {{"Name", "Cellar"}});
  EXPECT_EQ("1Pool;2Hall;3Bar;5Cellar;", Names());
}

TEST_F(CompactCommandTest, TellsOfAnOlderFileBesideIt) {
  Make(FileKind::Access);
  temp_.Write("Calendar-before-2026-11-20.mdb", "old");
  EXPECT_EQ(ExitStatus::Fine, Compact());
  EXPECT_NE(std::string::npos, out_.str().find("older file Calendar-before-2026-11-20.mdb."));
  EXPECT_EQ("old", temp_.Read("Calendar-before-2026-11-20.mdb"));
}

TEST_F(CompactCommandTest, BrokenOffLeavesTheFileAsItWas) {
  Make(FileKind::Access);
  const std::string before = temp_.Read("Calendar.mdb");
  for (const std::string verb : {"Read", "Copied", "Compared"}) {
    EXPECT_THROW(Compact([&verb](const CopyStep& step) {
                   if (step.Verb == verb) {
                     throw std::runtime_error("broken off");
                   }
                 }),
                 std::runtime_error);
    EXPECT_EQ(before, temp_.Read("Calendar.mdb"));
    EXPECT_EQ(std::vector<std::string>{"Calendar.mdb"}, temp_.Names());
  }
}

TEST_F(CompactCommandTest, LeavesAFileInUseAsItIs) {
  Make(FileKind::Access);
  const auto user = OpenStore(File(), StoreAccess::ReadWrite);
  const std::string before = temp_.Read("Calendar.mdb");
  EXPECT_THROW(Compact(), DatabaseBusyError);
  EXPECT_EQ(before, temp_.Read("Calendar.mdb"));
}

TEST_F(CompactCommandTest, LeavesASqliteFileAsItIs) {
  Make(FileKind::Sqlite);
  const std::string before = temp_.Read("Calendar.mdb");
  EXPECT_EQ(ExitStatus::Found, Compact());
  EXPECT_EQ(before, temp_.Read("Calendar.mdb"));
}

}  // namespace
}  // namespace veyra
