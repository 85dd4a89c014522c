#include "tools/companion/show_command.h"

#include <gtest/gtest.h>

#include <CLI/CLI.hpp>
#include <sstream>

#include "data/create_store.h"
#include "data/errors.h"
#include "data/open_store.h"
#include "data/schema.h"
#include "tests/data/access/fixtures.h"
#include "tests/temp_folder.h"
#include "tests/tools/companion/run_command.h"

namespace veyra {
namespace {

class ShowCommandTest : public ::testing::Test {
 protected:
  std::string File() const { return temp_.File("Any.db").string(); }

  std::string Shown(const std::string& file) {
    out_.str("");
    RunWith(ShowCommand(), {file}, out_);
    return out_.str();
  }

  /// What follows the head of the file.
  std::string ShownTables() {
    const std::string shown = Shown(File());
    return shown.substr(shown.find("\n\n") + 2);
  }

  void Make(FileKind kind) const {
    const auto store = CreateStore(File(), Durability::WhenAsked, kind);
    TableDefinition rooms = RoomsTable();
    rooms.Columns[1].Size = 255;
    store->CreateTable(rooms);
    store->CreateTable(ReservTable());
    store->Insert("Rooms", {{"Name", "Hall"}});
  }

  TempFolder temp_;
  std::ostringstream out_;
};

TEST_F(ShowCommandTest, AnAccessFileFromHeadToIndexes) {
  Make(FileKind::Access);
  EXPECT_EQ(
      "file\n"
      "  name       " +
          File() +
          "\n"
          "  kind       Access 2000-2003\n"
          "  version    Jet 4\n"
          "  code page  1252\n"
          "  encoded    no\n"
          "  tables     2\n"
          "\n"
          "table Rooms\n"
          "  rows  1\n"
          "  column  long  4    auto  ID\n"
          "  column  text  255  -     Name\n"
          "  column  long  4    -     Active\n"
          "  index  ID  unique  PrimaryKey\n"
          "\n"
          "table Reserv\n"
          "  rows  0\n"
          "  column  long       4   -  RmID\n"
          "  column  text       50  -  Event\n"
          "  column  date/time  8   -  DateOfRes\n"
          "  column  long       4   -  TimeFrom\n"
          "  column  long       4   -  TimeTo\n"
          "  column  double     8   -  MultKey\n"
          "  index  RmID, DateOfRes, TimeFrom  -  ReservByDay\n"
          "  index  DateOfRes                  -  ReservByDate\n"
          "  index  RmID, MultKey              -  ReservByGroup\n",
      Shown(File()));
}

TEST_F(ShowCommandTest, TheTablesOfASqliteFile) {
  Make(FileKind::Sqlite);
  EXPECT_EQ(
      "table Rooms\n"
      "  rows  1\n"
      "  column  INTEGER  -    auto  ID\n"
      "  column  VARCHAR  255  -     Name\n"
      "  column  INTEGER  -    -     Active\n"
      "\n"
      "table Reserv\n"
      "  rows  0\n"
      "  column  INTEGER  -   -  RmID\n"
      "  column  VARCHAR  50  -  Event\n"
      "  column  DATE     -   -  DateOfRes\n"
      "  column  INTEGER  -   -  TimeFrom\n"
      "  column  INTEGER  -   -  TimeTo\n"
      "  column  DOUBLE   -   -  MultKey\n"
      "  index  RmID, DateOfRes, TimeFrom, TimeTo, Event, MultKey  -  ReservByDay\n"
      "  index  DateOfRes                                          -  ReservByDate\n"
      "  index  RmID, MultKey                                      -  ReservByGroup\n",
      ShownTables());
}

TEST_F(ShowCommandTest, TheHeadOfASqliteFile) {
  Make(FileKind::Sqlite);
  const std::string shown = Shown(File());
  EXPECT_NE(std::string::npos, shown.find("\n  kind       SQLite\n  version    3, written by 3."));
  EXPECT_NE(std::string::npos, shown.find("\n  code page  UTF-8\n"));
}

TEST_F(ShowCommandTest, AFileThatIsInUseIsShownAsItIs) {
  Make(FileKind::Sqlite);
  const auto desk = OpenStore(File(), StoreAccess::ReadWrite);
  desk->Insert("Rooms", {{"Name", "Studio"}});
  EXPECT_EQ(0U, ShownTables().find("table Rooms\n  rows  2\n"));
}

TEST_F(ShowCommandTest, NothingIsLeftBesideTheFile) {
  Make(FileKind::Sqlite);
  const std::string before = temp_.Read("Any.db");
  Shown(File());
  EXPECT_EQ(std::vector<std::string>{"Any.db"}, temp_.Names());
  EXPECT_TRUE(before == temp_.Read("Any.db"));
}

TEST_F(ShowCommandTest, AnAccess97FileIsCalledSo) {
  VEYRA_NEED_FIXTURES();
  const std::string shown = Shown(FixtureFolder() / "guests-jet3/Veyra.mdb");
  EXPECT_NE(std::string::npos, shown.find("kind       Access 97\n  version    Jet 3\n"));
  EXPECT_NE(std::string::npos, shown.find("table Guest\n  rows  26\n"));
}

TEST_F(ShowCommandTest, AnEncodedFileIsCalledSo) {
  VEYRA_NEED_FIXTURES();
  const std::string shown = Shown(FixtureFolder() / "real/jet4-encoded-rc4.mdb");
  EXPECT_NE(std::string::npos, shown.find("  encoded    yes\n"));
}

TEST_F(ShowCommandTest, WhatIsNoDatabaseIsReported) {
  temp_.Write("Any.db", "Dear diary");
  EXPECT_THROW(Shown(File()), DatabaseError);
}

TEST_F(ShowCommandTest, AMissingFileIsReported) {
  EXPECT_THROW(Shown(File()), MissingFileError);
}

TEST_F(ShowCommandTest, ACommandLineThatIsNotUnderstoodShowsNothing) {
  EXPECT_THROW(RunWith(ShowCommand(), {}, out_), CLI::ParseError);
  EXPECT_THROW(RunWith(ShowCommand(), {"a", "b"}, out_), CLI::ParseError);
  EXPECT_THROW(RunWith(ShowCommand(), {"a", "--all"}, out_), CLI::ParseError);
}

}  // namespace
}  // namespace veyra
