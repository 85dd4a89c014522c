#include "tools/companion/convert_command.h"

#include <gtest/gtest.h>

#include <CLI/CLI.hpp>
#include <filesystem>

#include "tests/tools/companion/convert_fixture.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

TEST_F(ConvertCommandTest, AnAccessCalendarHoldsTheSameRows) {
  Fill(*Make(FileKind::Sqlite), 2000);
  const Lines before = Everything(*Open());
  Convert("access");
  EXPECT_EQ(FileKind::Access, Kind());
  EXPECT_EQ(before, Everything(*Open()));
}

TEST_F(ConvertCommandTest, ThereAndBackIsTheSame) {
  Fill(*Make(FileKind::Sqlite), 2000);
  const Lines before = Everything(*Open());
  Convert("access");
  Convert("sqlite");
  EXPECT_EQ(FileKind::Sqlite, Kind());
  EXPECT_EQ(before, Everything(*Open()));
}

TEST_F(ConvertCommandTest, SqliteIsWhatIsMadeUnlessSaid) {
  Make(FileKind::Access);
  RunWith(ConvertCommand(kToday, [](const CopyStep&) {}), {temp_.path().string()}, out_);
  EXPECT_EQ(FileKind::Sqlite, Kind());
}

TEST_F(ConvertCommandTest, TheOldFileIsKept) {
  Fill(*Make(FileKind::Sqlite), 10);
  const std::string before = temp_.Read("Calendar.mdb");
  Convert("access");
  EXPECT_EQ((Lines{kKept, "Calendar.mdb"}), temp_.Names());
  EXPECT_TRUE(before == temp_.Read(kKept));
}

TEST_F(ConvertCommandTest, AFileThatIsKeptAlreadyIsNotWrittenOver) {
  Make(FileKind::Sqlite);
  temp_.Write(kKept, "precious");
  Convert("access");
  Convert("sqlite");
  EXPECT_EQ("precious", temp_.Read(kKept));
  EXPECT_EQ((Lines{"Calendar-before-2026-11-21-2.mdb", "Calendar-before-2026-11-21-3.mdb", kKept,
                   "Calendar.mdb"}),
            temp_.Names());
}

TEST_F(ConvertCommandTest, SaysWhatItMade) {
  Fill(*Make(FileKind::Sqlite), 10);
  Convert("access");
  EXPECT_EQ(File() +
                " is an Access file now: 2 tables, 15 rows, all compared.\n"
                "The old file is kept as Calendar-before-2026-11-21.mdb.\n",
            out_.str());
}

/// An older copy was put in the place of a calendar that had not been closed.
TEST_F(ConvertCommandTest, TellsOfALogThatWasSetAside) {
  Fill(*Make(FileKind::Sqlite), 10);
  fs::copy_file(File(), File() + ".older");
  AddBooking(*Open(StoreAccess::ReadWrite), 11);
  {
    const auto killed = Open(StoreAccess::ReadWrite);
    AddBooking(*killed, 12);
    fs::copy_file(File() + "-wal", File() + ".log");
    fs::copy_file(File() + "-open", File() + ".note");
  }
  fs::rename(File() + ".older", File());
  fs::rename(File() + ".log", File() + "-wal");
  fs::rename(File() + ".note", File() + "-open");
  Convert("access");
  EXPECT_NE(std::string::npos, out_.str().find(" rows, all compared.\n")) << out_.str();
  EXPECT_NE(std::string::npos, out_.str().find("Calendar.mdb-wal set aside ")) << out_.str();
}

TEST_F(ConvertCommandTest, AFileOfThatKindIsLeftAlone) {
  Fill(*Make(FileKind::Sqlite), 10);
  const std::string before = temp_.Read("Calendar.mdb");
  Convert("sqlite");
  EXPECT_EQ(File() + " is a SQLite file already; nothing was changed.\n", out_.str());
  EXPECT_EQ(Lines{"Calendar.mdb"}, temp_.Names());
  EXPECT_TRUE(before == temp_.Read("Calendar.mdb"));
}

INSTANTIATE_TEST_SUITE_P(, ConvertToTest, ::testing::Values("sqlite", "access"));

TEST_P(ConvertToTest, BrokenOffWhileReadingItLeavesTheFolderAsItWas) {
  RefuseToGoOnAfter("Read");
}

TEST_P(ConvertToTest, BrokenOffWhileCopyingItLeavesTheFolderAsItWas) {
  RefuseToGoOnAfter("Copied");
}

TEST_P(ConvertToTest, BrokenOffWhileComparingItLeavesTheFolderAsItWas) {
  RefuseToGoOnAfter("Compared");
}

/// More rows than are added at a time.
TEST_P(ConvertToTest, KilledWhileCopyingItLeavesTheCalendarAndNothingAfterTheNext) {
  {
    const auto store = Make(From());
    Fill(*store, 10);
    store->InsertAll("Reserv", std::vector<FieldValues>(21'000, {{"RmID", std::int64_t{1}}}));
  }
  const std::string bytes = temp_.Read("Calendar.mdb");
  const Lines before = Everything(*Open());
  ConvertAndBeKilledWhile("Copied", 20'900);
  EXPECT_TRUE(bytes == temp_.Read("Calendar.mdb"));
  Convert(To());
  EXPECT_EQ((Lines{kKept, "Calendar.mdb"}), temp_.Names());
  EXPECT_EQ(before, Everything(*Open()));
}

TEST_P(ConvertToTest, TheNextNewFacilityComesAfterTheHighestNumber) {
  Fill(*Make(From()), 0);
  Convert(To());
  const auto store = Open(StoreAccess::ReadWrite);
  EXPECT_EQ(Value(std::int64_t{41}), store->Insert("Rooms", {{"Name", "New"}}).Values.front());
}

TEST_P(ConvertToTest, TheNewFileCanBeBookedIn) {
  Fill(*Make(From()), 10);
  Convert(To());
  AddBooking(*Open(StoreAccess::ReadWrite), 100);
  EXPECT_EQ(11U, RowsOf(*Open(), "Reserv").size());
}

TEST_P(ConvertToTest, TablesAndColumnsOfOthersAreKept) {
  {
    const auto store = Make(From());
    Fill(*store, 30);
    store->AddColumn("Reserv", {.Name = "Remark", .Type = ColumnType::Text, .Size = 50});
    store->CreateTable(Notes());
    store->Insert("Notes", {{"Nr", std::int64_t{7}},
                            {"Note", std::string("short")},
                            {"Paper", std::string(3000, 'x')},
                            {"Price", 12.75},
                            {"At", kToday},
                            {"Pieces", std::int64_t{-3}}});
    store->Insert("Notes", {});
    store->Insert("Reserv", {{"Remark", std::string("bring chairs")}});
  }
  const Lines before = Everything(*Open());
  Convert(To());
  EXPECT_EQ(before, Everything(*Open()));
}

TEST_P(ConvertToTest, ACalendarOfBeforeTheGroupsStaysOne) {
  {
    const auto store = CreateStore(File(), Durability::WhenAsked, From());
    TableDefinition old = ReservTable();
    old.Columns.pop_back();
    old.Indexes.pop_back();
    old.Indexes.front().Held.pop_back();
    store->CreateTable(old);
    store->Insert("Reserv", {{"RmID", std::int64_t{1}}, {"DateOfRes", kToday}});
  }
  const Lines before = Everything(*Open());
  Convert(To());
  EXPECT_EQ(before, Everything(*Open()));
}

TEST_P(ConvertToTest, TheIndexesOfBookingsAreMade) {
  Make(From());
  Convert(To());
  const StoreDescription store = Open()->Describe();
  EXPECT_EQ("ReservByDay", store.Tables.back().Indexes.front().Name);
}

TEST_P(ConvertToTest, WhoCouldUseTheOldFileCanUseTheNewOne) {
  Make(From());
  const auto rights = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read |
                      fs::perms::group_write;
  fs::permissions(File(), rights);
  Convert(To());
  EXPECT_EQ(rights, fs::status(File()).permissions());
}

TEST_P(ConvertToTest, RefusedWhileAnotherHasTheCalendarOpen) {
  const auto at_the_desk = Make(From());
  Fill(*at_the_desk, 3);
  const Lines names = temp_.Names();
  EXPECT_THROW(Convert(To()), DatabaseBusyError);
  EXPECT_EQ(names, temp_.Names());
  EXPECT_EQ(3U, RowsOf(*at_the_desk, "Reserv").size());
}

TEST_P(ConvertToTest, ACalendarThatIsOnlyReadMeanwhileIsConverted) {
  Fill(*Make(From()), 3);
  const auto reader = Open();
  Convert(To());
  EXPECT_EQ((Lines{kKept, "Calendar.mdb"}), temp_.Names());
}

TEST_P(ConvertToTest, AMissingCalendarIsReported) {
  EXPECT_THROW(Convert(To()), MissingFileError);
  EXPECT_TRUE(temp_.Names().empty());
}

TEST_P(ConvertToTest, ADamagedCalendarIsLeftAsItIs) {
  Fill(*Make(From()), 400);
  fs::resize_file(File(), fs::file_size(File()) / 2);
  const std::string before = temp_.Read("Calendar.mdb");
  EXPECT_THROW(Convert(To()), DatabaseError);
  EXPECT_EQ(Lines{"Calendar.mdb"}, temp_.Names());
  EXPECT_TRUE(before == temp_.Read("Calendar.mdb"));
}

TEST_F(ConvertCommandTest, RefusedWhileAccessHasTheCalendarOpen) {
  Make(FileKind::Access);
  temp_.Write("Calendar.ldb", "FRONTDESK");
  ExpectRefusal("sqlite", "Another program has the database open");
}

TEST_F(ConvertCommandTest, ALinkedCalendarIsConvertedWhereItLies) {
  fs::create_directory(temp_.File("real"));
  Fill(*Make(FileKind::Sqlite), 3);
  fs::rename(File(), temp_.File("real/Calendar.mdb"));
  fs::create_symlink(temp_.File("real/Calendar.mdb"), File());
  Convert("access");
  EXPECT_TRUE(fs::is_symlink(File()));
  EXPECT_TRUE(fs::exists(temp_.File(std::string("real/") + kKept)));
}

TEST_F(ConvertCommandTest, ACommandLineThatIsNotUnderstoodDoesNothing) {
  const Command command = ConvertCommand(kToday, [](const CopyStep&) {});
  EXPECT_THROW(RunWith(command, {}, out_), CLI::ParseError);
  EXPECT_THROW(RunWith(command, {"a", "b"}, out_), CLI::ParseError);
  EXPECT_THROW(RunWith(command, {"a", "--to"}, out_), CLI::ParseError);
  EXPECT_THROW(RunWith(command, {"a", "--to", "paper"}, out_), CLI::ParseError);
}

}  // namespace
}  // namespace veyra
