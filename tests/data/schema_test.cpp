#include "data/schema.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "data/color_settings.h"
#include "data/errors.h"
#include "tests/data/sqlite/foreign_program.h"
#include "tests/store_kind.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

namespace fs = std::filesystem;

class CountedWaits : public WaitObserver {
 public:
  bool StillWaiting(const std::string&, std::chrono::milliseconds) override { return true; }
  void WaitEnded() override { ++Ended; }

  int Ended = 0;
};

class SchemaTest : public testing::Test {
 protected:
  SchemaTest() {
    databases_.AppFolder = folder_.path().string();
    databases_.DataFolder = folder_.path().string();
    databases_.Waiting = std::chrono::milliseconds(50);
  }

  std::string File(const std::string& name) const { return folder_.File(name).string(); }

  std::unique_ptr<Store> Make(const std::string& name, const std::vector<TableDefinition>& tables) {
    auto store = CreateStoreOfKind(TestedStoreKind(), File(name));
    for (const TableDefinition& table : tables) store->CreateTable(table);
    return store;
  }

  /// Reserv as older calendars have it.
  static TableDefinition OldReservTable() {
    TableDefinition table = ReservTable();
    table.Columns.pop_back();
    table.Indexes.pop_back();
    return table;
  }

  /// A calendar as the program finds it when it is first started.
  void MakeCalendar() { Make("Calendar.mdb", {RoomsTable(), ReservTable()}); }

  /// The schema routines of a start, in their order.
  void Start() {
    CreateResCon(databases_);
    EnsureSettingsRow(databases_);
    EnsureMultKeyColumn(databases_);
    EnsureTodayBColorColumn(databases_);
  }

  /// The whole of a table: its columns, then a line for each row.
  std::string Table(const std::string& name) {
    std::string text;
    const auto columns = databases_.ResCon->ColumnNames(name);
    for (const std::string& column : columns) text += column + " ";
    const auto rows =
        databases_.ResCon->Open("SELECT * FROM " + name, CursorType::ForwardOnlyReadOnly);
    for (; !rows->AtEnd(); rows->MoveNext()) {
      text += "\n";
      for (const std::string& column : columns) {
        const Value value = rows->Field(column);
        text += (IsNull(value) ? "NULL" : ToText(value)) + " ";
      }
    }
    return text;
  }

  Report ReportOf(void (*open)(Databases&)) {
    try {
      open(databases_);
    } catch (const DatabaseError& error) {
      return error.report();
    }
    ADD_FAILURE() << "no report";
    return {};
  }

  TempFolder folder_;
  CountedWaits waits_;
  Databases databases_;
};

/// Another program in the middle of a change of a calendar, of the kind that is tested.
class OtherWriter {
 public:
  explicit OtherWriter(const std::string& file) {
    if (TestedStoreKind() == StoreKind::Access) {
      std::ofstream(fs::path(file).replace_extension(".ldb")) << std::string(64, 'x');
    } else {
      sqlite_.emplace(file);
      sqlite_->Run("BEGIN IMMEDIATE");
    }
  }

 private:
  std::optional<ForeignProgram> sqlite_;
};

constexpr const char* kDefaultSettings =
    "ID BkGrnd HeaderTxt DaysTxtColor TodayColor TodayBColor \n"
    "1 -2147483643 12582912 0 255 -2147483643 ";

// Opening

TEST_F(SchemaTest, OpensTheCalendarInTheDataFolder) {
  MakeCalendar();
  CreateResCon(databases_);
  EXPECT_EQ(File("Calendar.mdb"), databases_.ResCon->FileName());
}

TEST_F(SchemaTest, OpensTheGuestsInTheDataFolder) {
  Make("Veyra.mdb", {GuestTable()});
  CreateVeyraCon(databases_);
  EXPECT_EQ(File("Veyra.mdb"), databases_.GuestCon->FileName());
}

TEST_F(SchemaTest, OpensTheGuestsForReadingOnly) {
  Make("Veyra.mdb", {GuestTable()});
  CreateVeyraCon(databases_);
  const auto guests =
      databases_.GuestCon->Open("SELECT * FROM Guest", CursorType::StaticOptimistic);
  guests->AddNew();
  EXPECT_THROW(guests->Update(), DatabaseError);
}

TEST_F(SchemaTest, ReadsGuestsFromAFileThatNobodyMayWriteTo) {
  Make("Veyra.mdb", {GuestTable()})->Insert("Guest", {{"Name", "Ann"}});
  fs::permissions(File("Veyra.mdb"), fs::perms::owner_read);
  CreateVeyraCon(databases_);
  EXPECT_EQ(Value("Ann"),
            databases_.GuestCon->Open("SELECT * FROM Guest", CursorType::ForwardOnlyReadOnly)
                ->Field("Name"));
}

TEST_F(SchemaTest, DropsAnEarlierConnection) {
  MakeCalendar();
  CreateResCon(databases_);
  databases_.DataFolder = File("elsewhere");
  EXPECT_THROW(CreateResCon(databases_), DatabaseError);
  EXPECT_EQ(nullptr, databases_.ResCon);
}

TEST_F(SchemaTest, NamesTheMissingCalendarInFull) {
  EXPECT_EQ(File("Calendar.mdb"), ReportOf(CreateResCon).File);
}

TEST_F(SchemaTest, NamesTheMissingGuestFileInFull) {
  EXPECT_EQ(File("Veyra.mdb"), ReportOf(CreateVeyraCon).File);
}

TEST_F(SchemaTest, SaysWhereTheDataFolderIsNamed) {
  EXPECT_EQ("The first line of " + File("path.txt") +
                " must name the folder that holds Calendar.mdb and Veyra.mdb.",
            ReportOf(CreateResCon).Advice);
}

TEST_F(SchemaTest, SaysWhetherTheDataFolderIsMissingToo) {
  databases_.DataFolder = File("nowhere");
  EXPECT_EQ("There is no such file, and no folder " + File("nowhere") + ".",
            ReportOf(CreateResCon).Cause);
}

TEST_F(SchemaTest, LooksAtTheRootWhenNoDataFolderIsKnown) {
  databases_.DataFolder.clear();
  EXPECT_EQ("/Calendar.mdb", ReportOf(CreateResCon).File);
}

TEST_F(SchemaTest, GivesADataFolderThatIsRelativeInFull) {
  databases_.DataFolder = "no-such-folder";
  EXPECT_EQ((fs::current_path() / "no-such-folder/Calendar.mdb").string(),
            ReportOf(CreateResCon).File);
}

TEST_F(SchemaTest, MakesNoCalendarThatIsMissing) {
  ReportOf(CreateResCon);
  EXPECT_TRUE(folder_.Names().empty());
}

TEST_F(SchemaTest, ReportsACalendarThatCannotBeWritten) {
  MakeCalendar();
  fs::permissions(File("Calendar.mdb"), fs::perms::owner_read);
  EXPECT_EQ("The file is write-protected, so nothing could be saved.",
            ReportOf(CreateResCon).Cause);
}

// Settings

TEST_F(SchemaTest, GivesANewCalendarItsSettings) {
  MakeCalendar();
  Start();
  EXPECT_EQ(kDefaultSettings, Table("Settings"));
}

TEST_F(SchemaTest, GivesANewCalendarItsSettingsOnce) {
  MakeCalendar();
  Start();
  Start();
  EXPECT_EQ(kDefaultSettings, Table("Settings"));
}

TEST_F(SchemaTest, LeavesSettingsThatAreThere) {
  MakeCalendar();
  Start();
  const auto row = databases_.ResCon->Open("SELECT * FROM Settings", CursorType::StaticOptimistic);
  row->SetField("BkGrnd", "255");
  row->Update();
  const std::string before = Table("Settings");
  Start();
  EXPECT_EQ(before, Table("Settings"));
}

TEST_F(SchemaTest, LeavesSettingsWithoutRowsEmpty) {
  MakeCalendar();
  Start();
  databases_.ResCon->Open("SELECT * FROM Settings", CursorType::StaticOptimistic)->Delete();
  Start();
  EXPECT_EQ("ID BkGrnd HeaderTxt DaysTxtColor TodayColor TodayBColor ", Table("Settings"));
}

TEST_F(SchemaTest, KeepsItsSettingsOnceClosed) {
  MakeCalendar();
  Start();
  databases_.ResCon.reset();
  CreateResCon(databases_);
  EXPECT_EQ(kDefaultSettings, Table("Settings"));
}

// Upgrades

TEST_F(SchemaTest, AddsTheGroupKeyToAnOlderCalendar) {
  Make("Calendar.mdb", {RoomsTable(), OldReservTable()});
  Start();
  EXPECT_EQ("RmID Event DateOfRes TimeFrom TimeTo MultKey ", Table("Reserv"));
}

TEST_F(SchemaTest, ReadsTheGroupKeyOfOlderBookingsAsZero) {
  Make("Calendar.mdb", {RoomsTable(), OldReservTable()})
      ->Insert("Reserv", {{"RmID", 1}, {"Event", "old"}});
  Start();
  EXPECT_EQ("RmID Event DateOfRes TimeFrom TimeTo MultKey \n1 old NULL NULL NULL 0 ",
            Table("Reserv"));
}

TEST_F(SchemaTest, ReadsTheGroupKeyOfOlderBookingsAsADouble) {
  Make("Calendar.mdb", {RoomsTable(), OldReservTable()})->Insert("Reserv", {{"RmID", 1}});
  Start();
  EXPECT_EQ(Value(0.0),
            databases_.ResCon->Open("SELECT * FROM Reserv", CursorType::ForwardOnlyReadOnly)
                ->Field("MultKey"));
}

TEST_F(SchemaTest, LeavesTheGroupKeysThatAreThere) {
  Make("Calendar.mdb", {RoomsTable(), ReservTable()})
      ->Insert("Reserv", {{"RmID", 1}, {"MultKey", 20140406153012.0}});
  Start();
  EXPECT_EQ("RmID Event DateOfRes TimeFrom TimeTo MultKey \n1 NULL NULL NULL NULL 20140406153012 ",
            Table("Reserv"));
}

/// Settings as an older calendar has them: without TodayBColor, in colours of its own.
class OldSettingsTest : public SchemaTest {
 protected:
  OldSettingsTest() {
    TableDefinition settings{
        .Name = "Settings",
        .Columns = {{.Name = "ID", .Type = ColumnType::WholeNumber, .AutoIncrement = true},
                    {.Name = "BkGrnd", .Size = 16}}};
    store_ = Make("Calendar.mdb", {RoomsTable(), ReservTable(), settings});
  }

  std::unique_ptr<Store> store_;
};

TEST_F(OldSettingsTest, GetTodaysBackgroundFromTheWindows) {
  store_->Insert("Settings", {{"BkGrnd", "16711680"}});
  store_.reset();
  Start();
  EXPECT_EQ("ID BkGrnd TodayBColor \n1 16711680 16711680 ", Table("Settings"));
}

TEST_F(OldSettingsTest, GetItInTheFirstRowOnly) {
  store_->Insert("Settings", {{"BkGrnd", "1"}});
  store_->Insert("Settings", {{"BkGrnd", "2"}});
  store_.reset();
  Start();
  EXPECT_EQ("ID BkGrnd TodayBColor \n1 1 1 \n2 2 0 ", Table("Settings"));
}

TEST_F(OldSettingsTest, GetTheColumnThoughThereIsNoRow) {
  store_.reset();
  Start();
  EXPECT_EQ("ID BkGrnd TodayBColor ", Table("Settings"));
}

TEST_F(SchemaTest, SaysNothingWhenReservIsMissing) {
  Make("Calendar.mdb", {RoomsTable()});
  EXPECT_NO_THROW(Start());
}

TEST_F(SchemaTest, SaysNothingWhenTheCalendarCannotBeChanged) {
  Make("Calendar.mdb", {RoomsTable(), OldReservTable()});
  databases_.ResCon =
      std::make_unique<Connection>(OpenStore(File("Calendar.mdb"), StoreAccess::ReadOnly));
  EXPECT_NO_THROW(EnsureSettingsRow(databases_));
  EXPECT_NO_THROW(EnsureMultKeyColumn(databases_));
  EXPECT_NO_THROW(EnsureTodayBColorColumn(databases_));
}

/// What the operator is told when the colours are then read.
class HeldBackTest : public SchemaTest {
 protected:
  Report ReportOfColors() {
    ColorSettings current;
    ColorSettings stored;
    try {
      LoadColorSettings(*databases_.ResCon, current, stored);
    } catch (const MissingItemError& error) {
      return error.report();
    }
    ADD_FAILURE() << "nothing is missing";
    return {};
  }

  static bool Has(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
  }

  void MakeReadOnly() {
    databases_.ResCon =
        std::make_unique<Connection>(OpenStore(File("Calendar.mdb"), StoreAccess::ReadOnly));
    EnsureSettingsRow(databases_);
    EnsureMultKeyColumn(databases_);
    EnsureTodayBColorColumn(databases_);
  }
};

TEST_F(HeldBackTest, AMissingTableIsReportedWithTheReasonForIt) {
  MakeCalendar();
  MakeReadOnly();
  const Report report = ReportOfColors();
  EXPECT_TRUE(Has(report.Cause, "no table Settings")) << report.Cause;
  EXPECT_TRUE(Has(report.Cause, "opened for reading only")) << report.Cause;
  EXPECT_FALSE(Has(report.Advice, "backup")) << report.Advice;
  EXPECT_TRUE(Has(report.Advice, "next start")) << report.Advice;
}

TEST_F(HeldBackTest, AMissingColumnIsReportedWithTheReasonForIt) {
  TableDefinition settings = CalendarTables().back();
  settings.Columns.pop_back();
  Make("Calendar.mdb", {RoomsTable(), ReservTable(), settings})
      ->Insert("Settings", {{"BkGrnd", "1"}});
  MakeReadOnly();
  const Report report = ReportOfColors();
  EXPECT_TRUE(Has(report.Cause, "no column TodayBColor")) << report.Cause;
  EXPECT_TRUE(Has(report.Cause, "opened for reading only")) << report.Cause;
}

TEST_F(HeldBackTest, AGroupKeyThatIsMissingIsReportedWhenItIsWritten) {
  Make("Calendar.mdb", {RoomsTable(), OldReservTable()});
  MakeReadOnly();
  const auto rows = databases_.ResCon->Open("SELECT * FROM Reserv", CursorType::StaticOptimistic);
  rows->AddNew();
  try {
    rows->SetField("MultKey", 1.0);
    rows->Update();
    FAIL() << "the column is there";
  } catch (const Error& error) {
    EXPECT_TRUE(Has(error.what(), "opened for reading only")) << error.what();
  }
}

TEST_F(HeldBackTest, ATableThatNoUpgradeMakesIsReportedAsBefore) {
  Make("Calendar.mdb", {ReservTable()});
  MakeReadOnly();
  try {
    databases_.ResCon->Open("SELECT * FROM Rooms", CursorType::ForwardOnlyReadOnly);
    FAIL() << "the table is there";
  } catch (const MissingItemError& error) {
    EXPECT_EQ("The file has no table Rooms.", error.report().Cause);
  }
}

TEST_F(HeldBackTest, OneWaitIsEnoughForAllUpgrades) {
  Make("Calendar.mdb", {RoomsTable(), OldReservTable()});
  databases_.Waiting = {std::chrono::milliseconds(300), &waits_};
  CreateResCon(databases_);
  const OtherWriter other(File("Calendar.mdb"));
  EnsureSettingsRow(databases_);
  EnsureMultKeyColumn(databases_);
  EnsureTodayBColorColumn(databases_);
  EXPECT_LE(waits_.Ended, 1);
  EXPECT_TRUE(Has(ReportOfColors().Cause, "nother program")) << ReportOfColors().Cause;
  EXPECT_FALSE(Has(ReportOfColors().Advice, "backup copy")) << ReportOfColors().Advice;
}

TEST_F(HeldBackTest, ACalendarThatNeedsNoUpgradeIsNotWaitedFor) {
  MakeCalendar();
  Start();
  databases_.Waiting = {std::chrono::milliseconds(300), &waits_};
  CreateResCon(databases_);
  const OtherWriter other(File("Calendar.mdb"));
  EnsureSettingsRow(databases_);
  EnsureMultKeyColumn(databases_);
  EnsureTodayBColorColumn(databases_);
  EXPECT_EQ(0, waits_.Ended);
}

TEST_F(SchemaTest, LeavesAnUpToDateCalendarAlone) {
  MakeCalendar();
  Start();
  databases_.ResCon.reset();
  const std::string before = folder_.Read("Calendar.mdb");
  Start();
  databases_.ResCon.reset();
  EXPECT_EQ(before, folder_.Read("Calendar.mdb"));
}

TEST_F(SchemaTest, LeavesOneFileWhenItIsClosed) {
  MakeCalendar();
  Start();
  databases_.ResCon.reset();
  EXPECT_EQ(std::vector<std::string>{"Calendar.mdb"}, folder_.Names());
}

// HasNamedItem

TEST(HasNamedItemTest, FindsNothingInAnEmptyCollection) {
  EXPECT_FALSE(HasNamedItem({}, "ID"));
}

TEST(HasNamedItemTest, FindsNoEmptyNameInAnEmptyCollection) {
  EXPECT_FALSE(HasNamedItem({}, ""));
}

TEST(HasNamedItemTest, FindsTheLastItem) {
  EXPECT_TRUE(HasNamedItem({"a", "MultKey"}, "MultKey"));
}

TEST(HasNamedItemTest, MindsLetterCase) {
  EXPECT_FALSE(HasNamedItem({"MultKey"}, "multkey"));
}

TEST(HasNamedItemTest, FindsNoPartOfAName) {
  EXPECT_FALSE(HasNamedItem({"MultKey"}, "Mult"));
}

}  // namespace
}  // namespace veyra
