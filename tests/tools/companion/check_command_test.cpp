#include <algorithm>
#include <filesystem>

#include "tests/data/sqlite/foreign_program.h"
#include "tests/tools/companion/kept_calendar.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

const Value kSlot10{std::int64_t{10}};
const Value kSlot12{std::int64_t{12}};

class CheckCommandTest : public KeptCalendarTest {
 protected:
  static Ended Check(Arguments arguments, const std::string& input = {}) {
    arguments.insert(arguments.begin(), "check");
    return RunProgram(arguments, input);
  }

  /// The kinds of what is found, in their order, each followed by a blank.
  std::string Kinds() const {
    std::string kinds;
    const std::string found = Check({Folder()}).Out;
    for (std::size_t at = 0; at < found.size(); at = found.find('\n', at) + 1) {
      const std::size_t end = found.find_first_of(":\n", at);
      kinds += found.substr(at, end - at) + " ";
    }
    return kinds;
  }

  std::string Found() const { return Check({Folder()}).Out; }

  void MakeSettings(const std::string& header_color, std::int64_t id = 1) const {
    const auto store = Desk();
    store->CreateTable(CalendarTables().back());
    store->Insert("Settings", {{"ID", id},
                               {"BkGrnd", std::string("0")},
                               {"HeaderTxt", header_color},
                               {"DaysTxtColor", std::string("0")},
                               {"TodayColor", std::string("255")},
                               {"TodayBColor", std::string("-2147483643")}});
  }

  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(Folder())) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }
};

VEYRA_FOR_ALL_KINDS(CheckCommandTest);

TEST_P(CheckCommandTest, ASoundCalendarHasNothingWrong) {
  Book(pool_, "2026-03-02", 1, 10, "A");
  Book(pool_, "2026-03-02", 11, 12, "Next to A");
  Book(hall_, "2026-03-02", 1, 10, "Elsewhere");
  MakeSettings("12582912");
  const Ended ended = Check({Folder()});
  EXPECT_EQ(CalendarName() + ": nothing is wrong.\n", ended.Out);
  EXPECT_EQ(0, ended.Status);
}

TEST_P(CheckCommandTest, OverlapsAreFoundTheEnclosingCaseToo) {
  Book(pool_, "2026-03-02", 1, 20, "Long");
  Book(pool_, "2026-03-02", 3, 4, "Inside");
  Book(pool_, "2026-03-02", 20, 20, "At its end");
  const Ended ended = Check({Folder()});
  EXPECT_EQ(1, ended.Status);
  EXPECT_EQ("overlap overlap ", Kinds());
  EXPECT_NE(std::string::npos,
            ended.Out.find("overlap: Pool, 3/2/2026, 12:00A-10:00A Long overlaps "
                           " 1:00A- 2:00A Inside. Delete one of the two"))
      << ended.Out;
}

TEST_P(CheckCommandTest, BookingsThatNoWindowShows) {
  Book(0, "2026-03-02", 1, 2, "Nowhere");
  Book(77, "2026-03-02", 1, 2, "Gone");
  EXPECT_EQ("no-facility no-facility ", Kinds());
  EXPECT_NE(std::string::npos, Found().find("no facility (77), 3/2/2026"));
}

TEST_P(CheckCommandTest, SlotsOutOfRangeOrOrder) {
  Book(pool_, "2026-03-02", 0, 2, "Zero");
  Book(pool_, "2026-03-02", 3, 49, "Late");
  Book(pool_, "2026-03-02", 12, 10, "Turned");
  EXPECT_EQ("bad-slots bad-slots slots-reversed ", Kinds());
}

TEST_P(CheckCommandTest, ADateThatCannotBeRead) {
  if (GetParam() == StoreKind::Access) {
    Desk()->Insert("Reserv", {{"RmID", pool_}, {"TimeFrom", kSlot10}, {"TimeTo", kSlot12}});
    EXPECT_EQ("bad-date ", Kinds());
    return;
  }
  Book(Value(pool_), "soon", kSlot10, kSlot12, "A");
  EXPECT_EQ("bad-date ", Kinds());
}

TEST_P(CheckCommandTest, NoneOrSeveralActiveFacilities) {
  AddRoom("Studio", true);
  EXPECT_EQ("several-active ", Kinds());
  const auto rows = Desk();
  for (const std::string name : {"Pool", "Studio"}) {
    const auto source = rows->Select(ParseQuery("SELECT * FROM Rooms WHERE Name = '" + name + "'"));
    Row row;
    ASSERT_TRUE(source->Next(row));
    rows->Update("Rooms", row, {{"Active", std::int64_t{0}}});
  }
  EXPECT_EQ("none-active ", Kinds());
}

TEST_P(CheckCommandTest, TwoFacilitiesOfOneName) {
  AddRoom("Pool", false);
  AddRoom("Pool (2)", false);
  EXPECT_EQ("same-name ", Kinds());
  EXPECT_NE(std::string::npos, Found().find("Pool (3)"));
}

TEST_P(CheckCommandTest, GroupsWhoseRowsDiffer) {
  const Value group(20260302093000.0);
  Book(pool_, "2026-03-02", 1, 2, "Class", group);
  Book(pool_, "2026-03-03", 1, 2, "Class", group);
  EXPECT_EQ("", Check({Folder()}).Err);
  EXPECT_EQ(0, Check({Folder()}).Status);
  Book(pool_, "2026-03-04", 1, 3, "Class", group);
  Book(hall_, "2026-03-04", 1, 9, "Another facility's", group);
  const Ended ended = Check({Folder()});
  EXPECT_EQ(
      "group-differs: The 3 bookings of group 20260302093000 differ in their times: Pool, Class. "
      "Nothing to do when one was renamed on purpose; else rename or delete them one by one.\n",
      ended.Out);
}

TEST_P(CheckCommandTest, ANameLongerThanTheColumn) {
  if (GetParam() == StoreKind::Access) {
    // Such a file cannot hold one.
    return;
  }
  Book(pool_, "2026-03-02", 1, 2, std::string(50, 'a'));
  EXPECT_EQ(0, Check({Folder()}).Status);
  Book(pool_, "2026-03-03", 1, 2, std::string(51, 'a'));
  EXPECT_EQ("long-name ", Kinds());
}

TEST_P(CheckCommandTest, ColoursThatAreNoNumberAndAMissingRow) {
  MakeSettings("blue");
  EXPECT_EQ("bad-color ", Kinds());
}

TEST_P(CheckCommandTest, SettingsWithoutRowOne) {
  MakeSettings("0", 2);
  EXPECT_EQ("no-settings ", Kinds());
}

TEST_P(CheckCommandTest, MendingAsksFirstKeepsACopyAndSaysWhatItDid) {
  Book(pool_, "2026-03-02", 12, 10, "Turned");
  Book(77, "2026-03-02", 1, 2, "Gone");
  AddRoom("Pool", true);
  MakeSettings("blue", 2);
  const Ended ended = Check({Folder(), "--mend"}, "y\n");
  EXPECT_EQ(1, ended.Status) << ended.Err;
  EXPECT_NE(std::string::npos, ended.Err.find("Mend 4 of these 5, and keep a copy?")) << ended.Err;
  EXPECT_NE(std::string::npos, ended.Err.find("The later one was named Pool (2).")) << ended.Err;
  EXPECT_EQ("no-facility ", Kinds());
  EXPECT_NE(std::string::npos, Rows("Reserv").find("Turned 2026-03-02 10 12"));
  ASSERT_EQ(3U, Names().size());
  EXPECT_EQ(0U, Names()[0].find("Calendar-before-"));
  EXPECT_NE(std::string::npos, ended.Err.find("kept as " + Names()[0]));
}

TEST_P(CheckCommandTest, TheKeptCopyIsTheCalendarAsItWas) {
  Book(pool_, "2026-03-02", 12, 10, "Turned");
  const std::string before = Rows("Reserv");
  EXPECT_EQ(0, Check({Folder(), "--mend", "--yes"}).Status);
  const std::string after = Rows("Reserv");
  fs::rename(Folder() + "/" + Names()[0], CalendarName());
  EXPECT_EQ(before, Rows("Reserv"));
  EXPECT_NE(before, after);
}

TEST_P(CheckCommandTest, WithoutConsentNothingIsMended) {
  Book(pool_, "2026-03-02", 12, 10, "Turned");
  for (const char* answer : {"", "n\n", "\n"}) {
    const Ended ended = Check({Folder(), "--mend"}, answer);
    EXPECT_EQ(1, ended.Status);
    EXPECT_NE(std::string::npos, ended.Err.find("Nothing was changed."));
  }
  EXPECT_EQ("slots-reversed ", Kinds());
  EXPECT_EQ((std::vector<std::string>{"Calendar.mdb", "Veyra.mdb"}), Names());
}

TEST_P(CheckCommandTest, TheCalendarMayBeOpen) {
  const auto desk = Desk();
  EXPECT_EQ(0, Check({Folder()}).Status) << Check({Folder()}).Out;
  Book(pool_, "2026-03-02", 12, 10, "Turned");
  EXPECT_EQ(0, Check({Folder(), "--mend", "--yes"}).Status);
  EXPECT_EQ(0, Check({Folder()}).Status);
}

TEST_P(CheckCommandTest, ProgramsGetTheSameAsJson) {
  Book(pool_, "2026-03-02", 12, 10, "Turned");
  EXPECT_EQ(
      "[\n"
      "  {\n"
      "    \"kind\": \"slots-reversed\",\n"
      "    \"what\": \"It ends before it begins: Pool, 3/2/2026,  5:30A- 5:00A Turned.\",\n"
      "    \"advice\": \"--mend puts its two ends in order.\",\n"
      "    \"mendable\": true\n"
      "  }\n"
      "]\n",
      Check({Folder(), "--json"}).Out);
}

TEST_P(CheckCommandTest, ALogThatNobodyIsUsingIsNamed) {
  temp_.Write("data/Calendar.mdb-journal", "x");
  EXPECT_NE(std::string::npos, Found().find("log-left: Calendar.mdb-journal was left"));
}

TEST_P(CheckCommandTest, ALogWithoutAnyChangeIsNothingWrong) {
  temp_.Write("data/Calendar.mdb-journal", "");
  EXPECT_EQ(std::string::npos, Found().find("log-left")) << Found();
}

TEST_P(CheckCommandTest, ADamagedFileIsFoundToBeSo) {
  for (int i = 1; i <= 48; ++i) {
    Book(pool_, "2026-03-02", i, i, "Booking");
  }
  std::string bytes = temp_.Read("data/Calendar.mdb");
  const auto half = static_cast<std::ptrdiff_t>(bytes.size() / 2);
  std::fill(bytes.begin() + half, bytes.end(), 'Z');
  temp_.Write("data/Calendar.mdb", bytes);
  const Ended ended = Check({Folder()});
  EXPECT_TRUE(ended.Status == 1 || ended.Status == 2) << ended.Status;
  EXPECT_NE(std::string::npos, (ended.Out + ended.Err).find("damaged")) << ended.Out << ended.Err;
}

/// An index of a SQLite file that was made for other columns.
TEST(CheckSqliteFileTest, AnIndexThatDiffersFromItsTableIsFound) {
  const TempFolder temp;
  const std::string folder = temp.File("data").string();
  ASSERT_EQ(0, RunProgram({"new", folder, "--sample"}).Status);
  ASSERT_EQ(0, RunProgram({"check", folder}).Status);
  ForeignProgram(folder + "/Calendar.mdb")
      .Run(
          "PRAGMA writable_schema = ON; UPDATE sqlite_schema"
          " SET sql = replace(sql, '\"DateOfRes\")', '\"Event\")') WHERE name = 'ReservByDate'");
  const Ended ended = RunProgram({"check", folder});
  EXPECT_EQ(1, ended.Status);
  EXPECT_EQ(0U, ended.Out.find("damaged: The file is damaged: ")) << ended.Out << ended.Err;
  EXPECT_NE(std::string::npos, ended.Out.find("ReservByDate")) << ended.Out;
}

TEST_P(CheckCommandTest, OneFileIsCheckedByItself) {
  temp_.Write("data/Calendar.mdb-journal", "x");
  EXPECT_EQ(CalendarName() + ": nothing is wrong.\n", Check({CalendarName()}).Out);
  Book(pool_, "2026-03-02", 12, 10, "Turned");
  EXPECT_EQ(0U, Check({CalendarName()}).Out.find("slots-reversed: "));
  const std::string guests = Folder() + "/Veyra.mdb";
  EXPECT_EQ(guests + ": nothing is wrong.\n", Check({guests}).Out);
}

TEST_P(CheckCommandTest, AnAccessIndexThatDiffersFromItsTableIsFound) {
  if (GetParam() != StoreKind::Access) {
    GTEST_SKIP() << "SQLite's own check has its own tests";
  }
  RenumberMainHallPastTheIndex();
  for (const std::string& named : {Folder(), CalendarName()}) {
    const Ended ended = Check({named});
    EXPECT_EQ(1, ended.Status);
    EXPECT_EQ(0U, ended.Out.find("damaged: The file is damaged: Index PrimaryKey of the table "
                                 "Rooms is wrong: 1 rows are missing in it"))
        << ended.Out;
  }
}

TEST_P(CheckCommandTest, WhatIsNoCalendarIsAClearError) {
  for (const char* bytes : {"", "Dear diary", "SQLite format 3"}) {
    temp_.Write("data/Calendar.mdb", bytes);
    const Ended ended = Check({Folder()});
    EXPECT_EQ(2, ended.Status) << bytes;
    EXPECT_NE(std::string::npos, ended.Err.find("Calendar.mdb\n")) << ended.Err;
  }
}

TEST_P(CheckCommandTest, AMissingGuestDatabaseIsNamed) {
  fs::remove(Folder() + "/Veyra.mdb");
  EXPECT_NE(std::string::npos, Found().find("guests: The guest database Veyra.mdb: There is no"));
}

TEST_P(CheckCommandTest, BackupsThatAreNoLongerMadeAreNamed) {
  fs::create_directory(Folder() + "/backups");
  EXPECT_NE(std::string::npos, Found().find("old-backup: There is no copy in backups."));
  temp_.Write("data/backups/Calendar-2020-01-02.mdb", "x");
  EXPECT_NE(std::string::npos, Found().find("The newest copy in backups is of 1/2/2020."));
}

}  // namespace
}  // namespace veyra
