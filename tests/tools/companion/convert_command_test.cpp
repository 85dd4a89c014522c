#include "tools/companion/convert_command.h"

#include <gtest/gtest.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <fstream>
#include <memory>
#include <sstream>
#include <stdexcept>

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

using Lines = std::vector<std::string>;

const Date kToday = MakeDate(2026, 11, 21).value();
constexpr const char* kKept = "Calendar-before-2026-11-21.mdb";

std::string ValueText(const Value& value) {
  return IsNull(value) ? "\\N" : ToText(value);
}

/// All rows of a table, a line each, in the order of the file; dates as ISO texts.
Lines RowsOf(Store& store, const std::string& table) {
  Query query;
  query.Table = table;
  query.WithTimes = true;
  const auto rows = store.Select(query);
  Lines lines;
  for (Row row; rows->Next(row);) {
    std::string line;
    for (const Value& value : row.Values) line += (line.empty() ? "" : "|") + ValueText(value);
    lines.push_back(line);
  }
  return lines;
}

/// The whole of a database, tables and columns included.
Lines Everything(Store& store) {
  Lines lines;
  for (const std::string& table : store.TableNames()) {
    lines.push_back("table " + table);
    for (const std::string& column : store.ColumnNames(table)) lines.push_back(column);
    const Lines rows = RowsOf(store, table);
    lines.insert(lines.end(), rows.begin(), rows.end());
  }
  return lines;
}

class ConvertCommandTest : public ::testing::Test {
 protected:
  std::string File() const { return temp_.File("Calendar.mdb").string(); }

  void Convert(
      const std::string& to, const CopyObserver& observer = [](const CopyStep&) {}) {
    RunWith(ConvertCommand(kToday, observer), {temp_.path().string(), "--to=" + to}, out_);
  }

  std::unique_ptr<Store> Make(FileKind kind) const {
    auto store = CreateStore(File(), Durability::WhenAsked, kind);
    store->CreateTable(RoomsTable());
    store->CreateTable(ReservTable());
    return store;
  }

  std::unique_ptr<Store> Open(StoreAccess access = StoreAccess::ReadOnly) const {
    return OpenStore(File(), access);
  }

  FileKind Kind() const { return Open()->Describe().Kind; }

  /// Facilities with gaps in their numbers, and bookings of every sort.
  static void Fill(Store& store, int bookings) {
    const char* names[] = {"Main Hall", "Café 🎂", "Зал", ""};
    for (std::int64_t i = 0; i < 4; ++i) {
      store.Insert("Rooms", {{"ID", i * i + 2}, {"Name", names[i]}, {"Active", std::int64_t{0}}});
    }
    store.Insert("Rooms", {{"ID", std::int64_t{40}}});
    for (std::int64_t i = 0; i < bookings; ++i) AddBooking(store, i);
  }

  static void AddBooking(Store& store, std::int64_t i) {
    const Date day{std::chrono::sys_days(kToday) - std::chrono::days(i * 37 % 9000)};
    const Value keys[] = {Null{}, 0.0, 20140406153012.0 + static_cast<double>(i)};
    const Value events[] = {"Smith", Null{}, "", "Tea 🍰 for two", std::string(50, 'W'), "O'Hara"};
    store.Insert("Reserv", {{"RmID", i * 3 % 7},
                            {"Event", events[i % 6]},
                            {"DateOfRes", i % 19 == 0 ? Value(Null{}) : Value(day)},
                            {"TimeFrom", i % 48 + 1},
                            {"TimeTo", std::int64_t{48}},
                            {"MultKey", keys[i % 3]}});
  }

  /// A calendar with one more table, of a column of every type.
  static TableDefinition Notes() {
    return {.Name = "Notes",
            .Columns = {{.Name = "Nr", .Type = ColumnType::WholeNumber, .AutoIncrement = true},
                        {.Name = "Note", .Type = ColumnType::Text, .Size = 50},
                        {.Name = "Paper", .Type = ColumnType::Text},
                        {.Name = "Price", .Type = ColumnType::Double},
                        {.Name = "At", .Type = ColumnType::Day},
                        {.Name = "Pieces", .Type = ColumnType::WholeNumber}}};
  }

  static const ColumnDescription& Column(const StoreDescription& store, const std::string& name) {
    for (const TableDescription& table : store.Tables) {
      for (const ColumnDescription& column : table.Columns) {
        if (column.Name == name) return column;
      }
    }
    throw std::runtime_error("no column " + name);
  }

  /// Converts, expecting a report that says `cause`; the folder must be as it was.
  void ExpectRefusal(const std::string& to, const std::string& cause) {
    const Lines names = temp_.Names();
    const std::string bytes = temp_.Read("Calendar.mdb");
    try {
      Convert(to);
      ADD_FAILURE() << "converted";
    } catch (const Error& error) {
      EXPECT_NE(std::string::npos, error.report().Cause.find(cause)) << error.what();
      EXPECT_EQ(File(), error.report().File);
    }
    EXPECT_EQ(names, temp_.Names());
    EXPECT_TRUE(bytes == temp_.Read("Calendar.mdb"));
  }

  TempFolder temp_;
  std::ostringstream out_;
};

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

class ConvertToTest : public ConvertCommandTest, public ::testing::WithParamInterface<const char*> {
 protected:
  std::string To() const { return GetParam(); }
  FileKind From() const { return To() == "access" ? FileKind::Sqlite : FileKind::Access; }

  void RefuseToGoOnAfter(const std::string& verb) {
    Fill(*Make(From()), 10);
    const std::string before = temp_.Read("Calendar.mdb");
    const auto break_off = [&](const CopyStep& step) {
      if (step.Verb == verb && step.Rows == 12) throw std::runtime_error("broken off");
    };
    EXPECT_THROW(Convert(To(), break_off), std::runtime_error);
    EXPECT_EQ(Lines{"Calendar.mdb"}, temp_.Names());
    EXPECT_TRUE(before == temp_.Read("Calendar.mdb"));
  }
};

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

TEST_F(ConvertCommandTest, AnUnreadableDateIsReportedWithItsRow) {
  {
    const auto store = Make(FileKind::Sqlite);
    Fill(*store, 5);
    store->Insert("Reserv", {{"DateOfRes", std::string("31/12/2014")}});
  }
  ExpectRefusal("access",
                "Row 6 of the table Reserv cannot be converted. DateOfRes holds \"31/12/2014\", "
                "which is no date.");
}

TEST_F(ConvertCommandTest, ANumberThatAccessCannotHoldIsReportedWithItsRow) {
  {
    const auto store = Make(FileKind::Sqlite);
    store->Insert("Rooms", {{"ID", std::int64_t{5'000'000'000}}});
  }
  ExpectRefusal("access", "Row 1 of the table Rooms cannot be converted. The column ID cannot");
}

TEST_F(ConvertCommandTest, ATextThatWouldBecomeAnotherIsReportedWithItsRow) {
  {
    const auto store = Make(FileKind::Sqlite);
    Fill(*store, 1);
    store->Insert("Reserv", {{"Event", std::string("bad \xFF byte")}});
  }
  ExpectRefusal("access", "Row 2 of the table Reserv cannot be converted. Event is \"bad");
}

TEST_F(ConvertCommandTest, ADateBeyondTheYearsIsReportedWithItsRow) {
  {
    const auto store = Make(FileKind::Access);
    Fill(*store, 1);
    store->Insert("Reserv", {{"DateOfRes", 1e8}});
  }
  ExpectRefusal("sqlite", "Row 2 of the table Reserv cannot be converted. DateOfRes holds");
}

TEST_F(ConvertCommandTest, ATableNameThatAccessFilesCannotHaveIsReported) {
  {
    const auto store = Make(FileKind::Sqlite);
    store->CreateTable({.Name = "Büro.1", .Columns = {{.Name = "A"}}});
  }
  ExpectRefusal("access", "The table Büro.1 cannot be converted.");
}

TEST_F(ConvertCommandTest, ANumberWrittenAsTextBecomesTheNumber) {
  {
    const auto store = Make(FileKind::Sqlite);
    store->CreateTable({.Name = "Settings", .Columns = {{.Name = "ID"}, {.Name = "BkGrnd"}}});
    store->Insert("Settings", {{"ID", std::string("1")}, {"BkGrnd", std::string("255")}});
  }
  Convert("access");
  EXPECT_EQ(Lines{"1|255"}, RowsOf(*Open(), "Settings"));
}

TEST_F(ConvertCommandTest, ALongEventMakesItsColumnWider) {
  const auto sizes_with = [&](std::size_t length) {
    fs::remove(File());
    Make(FileKind::Sqlite)->Insert("Reserv", {{"Event", std::string(length, 'e')}});
    Convert("access");
    const ColumnDescription event = Column(Open()->Describe(), "Event");
    return event.TypeName + " " + std::to_string(event.Size);
  };
  EXPECT_EQ("text 50", sizes_with(50));
  EXPECT_EQ("text 255", sizes_with(51));
  EXPECT_EQ("memo 0", sizes_with(256));
}

TEST_F(ConvertCommandTest, NamesOfFacilitiesAreTextsInAnAccessFileAsLongAsTheyFit) {
  const auto type_with = [&](std::size_t length) {
    fs::remove(File());
    Make(FileKind::Sqlite)->Insert("Rooms", {{"Name", std::string(length, 'n')}});
    Convert("access");
    return Column(Open()->Describe(), "Name").TypeName;
  };
  EXPECT_EQ("text", type_with(255));
  EXPECT_EQ("memo", type_with(256));
}

TEST_F(ConvertCommandTest, AnEmojiCountsAsAccessCountsIt) {
  std::string event;
  for (int i = 0; i < 26; ++i) event += "🍰";
  Make(FileKind::Sqlite)->Insert("Reserv", {{"Event", event}});
  Convert("access");
  EXPECT_EQ(255, Column(Open()->Describe(), "Event").Size);
}

TEST_F(ConvertCommandTest, TimesOfDayAreKeptAsText) {
  {
    const auto store = Make(FileKind::Access);
    store->CreateTable(Notes());
    store->Insert("Notes", {{"At", 41735.5625}});
    store->Insert("Notes", {{"At", kToday}});
  }
  Convert("sqlite");
  EXPECT_EQ((Lines{"1|\\N|\\N|\\N|2014-04-06 13:30:00|\\N", "2|\\N|\\N|\\N|2026-11-21|\\N"}),
            RowsOf(*Open(), "Notes"));
}

TEST_F(ConvertCommandTest, TheTimeOfDayOfABookingsDayIsDropped) {
  Make(FileKind::Access)->Insert("Reserv", {{"DateOfRes", 41735.5625}});
  Convert("sqlite");
  EXPECT_EQ(Lines{"\\N|\\N|2014-04-06|\\N|\\N|\\N"}, RowsOf(*Open(), "Reserv"));
}

TEST_F(ConvertCommandTest, FacilitiesOutOfOrderAreConverted) {
  {
    const auto store = Make(FileKind::Access);
    store->Insert("Rooms", {{"ID", std::int64_t{9}}, {"Name", "Attic"}});
    store->Insert("Rooms", {{"ID", std::int64_t{4}}, {"Name", "Cellar"}});
  }
  Convert("sqlite");
  EXPECT_EQ((Lines{"4|Cellar|\\N", "9|Attic|\\N"}), RowsOf(*Open(), "Rooms"));
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

/// A calendar that another program made, and what each of its tables holds.
class ConvertFixtureTest : public ConvertToTest {
 protected:
  static fs::path Source() { return FixtureFolder() / GetParam(); }

  /// The lines of "Rooms.tsv", with dates as this test writes them.
  static Lines Expected(const std::string& table) {
    std::ifstream file(Source() / (table + ".tsv"));
    Lines lines;
    for (std::string line; std::getline(file, line);) {
      std::replace(line.begin(), line.end(), '\t', '|');
      const std::size_t midnight = line.find("T00:00:00");
      if (midnight != std::string::npos) line.erase(midnight, 9);
      lines.push_back(line);
    }
    lines.erase(lines.begin());
    return lines;
  }

  void ExpectRowsOfFixture() {
    const auto store = Open();
    for (const auto& entry : fs::directory_iterator(Source())) {
      const fs::path name = entry.path().filename();
      if (name.extension() != ".tsv") continue;
      EXPECT_EQ(Expected(name.stem()), RowsOf(*store, name.stem())) << name;
    }
  }
};

INSTANTIATE_TEST_SUITE_P(, ConvertFixtureTest,
                         ::testing::Values("calendar-old", "calendar-current", "calendar-memo"));

TEST_P(ConvertFixtureTest, HoldsTheSameRowsInEitherKind) {
  VEYRA_NEED_FIXTURES();
  fs::copy_file(Source() / "Calendar.mdb", File());
  fs::permissions(File(), fs::perms::owner_write, fs::perm_options::add);
  ExpectRowsOfFixture();
  Convert("sqlite");
  EXPECT_EQ(FileKind::Sqlite, Kind());
  ExpectRowsOfFixture();
  Convert("access");
  EXPECT_EQ(FileKind::Access, Kind());
  ExpectRowsOfFixture();
}

/// Files that this program reads but never writes to.
class ConvertOldKindTest : public ConvertToTest {};

INSTANTIATE_TEST_SUITE_P(, ConvertOldKindTest,
                         ::testing::Values("guests-jet3/Veyra.mdb", "real/jet4-encoded-rc4.mdb"));

TEST_P(ConvertOldKindTest, BecomesAnAccessFileThatCanBeWrittenTo) {
  VEYRA_NEED_FIXTURES();
  fs::copy_file(FixtureFolder() / GetParam(), File());
  fs::permissions(File(), fs::perms::owner_write, fs::perm_options::add);
  const Lines before = Everything(*Open());
  EXPECT_FALSE(Open()->Describe().IsWritable);
  Convert("access");
  EXPECT_TRUE(Open()->Describe().IsWritable);
  EXPECT_EQ(before, Everything(*Open()));
}

}  // namespace
}  // namespace veyra
