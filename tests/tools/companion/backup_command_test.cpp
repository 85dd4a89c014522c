#include <algorithm>
#include <filesystem>

#include "tests/tools/companion/kept_calendar.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

class BackupCommandTest : public KeptCalendarTest {
 protected:
  Ended Backup(const std::string& name) const {
    return RunProgram({"backup", File(name), Folder()});
  }
  Ended Rolling(bool once = false) const {
    Arguments arguments{"backup", "--rolling", Folder()};
    if (once) {
      arguments.push_back("--once");
    }
    return RunProgram(arguments);
  }
  Ended Restore(const std::string& name) const {
    return RunProgram({"restore-backup", File(name), Folder()});
  }

  std::vector<std::string> NamesIn(const std::string& folder) const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(File(folder))) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  std::string RowsOfFile(const std::string& name) const {
    const TempFolder other;
    fs::copy_file(File(name), other.File("Calendar.mdb"));
    const auto store = OpenStore(other.File("Calendar.mdb").string(), StoreAccess::ReadOnly);
    std::string events;
    const auto rows = store->Select(ParseQuery("SELECT * FROM Reserv"));
    for (Row row; rows->Next(row);) {
      events += ToText(row.Values.at(1)) + ";";
    }
    return events;
  }
};

VEYRA_FOR_ALL_KINDS(BackupCommandTest);

TEST_P(BackupCommandTest, TheCopyOfAnOpenCalendarHoldsWhatWasBookedLast) {
  const auto desk = Desk();
  Book(pool_, "2026-03-02", 1, 2, "First");
  desk->Insert("Reserv", {{"RmID", pool_}, {"Event", std::string("Last")}});
  const Ended ended = Backup("copy.mdb");
  EXPECT_EQ(0, ended.Status) << ended.Err;
  EXPECT_EQ("Made and checked " + File("copy.mdb") + ".\n", ended.Out);
  EXPECT_EQ("First;Last;", RowsOfFile("copy.mdb"));
  EXPECT_EQ((std::vector<std::string>{"copy.mdb", "data"}), temp_.Names());
}

TEST_P(BackupCommandTest, AFileThatIsThereIsNeverWrittenOver) {
  temp_.Write("copy.mdb", "mine");
  EXPECT_EQ(2, Backup("copy.mdb").Status);
  EXPECT_EQ("mine", temp_.Read("copy.mdb"));
  EXPECT_EQ((std::vector<std::string>{"copy.mdb", "data"}), temp_.Names());
}

TEST_P(BackupCommandTest, ADiskThatFillsHalfWayLeavesNothing) {
  for (int i = 1; i <= 40; ++i) {
    Book(pool_, "2026-03-02", i, i, "Booking");
  }
  const Ended ended =
      RunShell("trap '' XFSZ; ulimit -f 8; " + ProgramLine({"backup", File("copy.mdb"), Folder()}));
  EXPECT_EQ(2, ended.Status);
  EXPECT_NE("", ended.Err);
  EXPECT_EQ(std::vector<std::string>{"data"}, temp_.Names());
}

TEST_P(BackupCommandTest, ADamagedCalendarIsNotTakenForABackup) {
  for (int i = 1; i <= 48; ++i) {
    Book(pool_, "2026-03-02", i, i, "Booking");
  }
  std::string bytes = temp_.Read("data/Calendar.mdb");
  const auto half = static_cast<std::ptrdiff_t>(bytes.size() / 2);
  std::fill(bytes.begin() + half, bytes.end(), 'Z');
  temp_.Write("data/Calendar.mdb", bytes);
  EXPECT_EQ(2, Backup("copy.mdb").Status);
  EXPECT_EQ(std::vector<std::string>{"data"}, temp_.Names());
}

TEST_P(BackupCommandTest, RollingMakesTheDaysCopyAnew) {
  EXPECT_EQ(0, Rolling().Status);
  ASSERT_EQ(1U, NamesIn("data/backups").size());
  const std::string copy = "data/backups/" + NamesIn("data/backups")[0];
  EXPECT_EQ("", RowsOfFile(copy));
  Book(pool_, "2026-03-02", 1, 2, "First");
  EXPECT_EQ(0, Rolling().Status);
  EXPECT_EQ("First;", RowsOfFile(copy));
}

TEST_P(BackupCommandTest, OnceLeavesTheDaysCopyAlone) {
  EXPECT_EQ(0, Rolling(true).Status);
  Book(pool_, "2026-03-02", 1, 2, "First");
  EXPECT_EQ(1, Rolling(true).Status);
  EXPECT_EQ("", RowsOfFile("data/backups/" + NamesIn("data/backups")[0]));
}

TEST_P(BackupCommandTest, RollingRemovesWhatIsNoLongerNeededAndNothingElse) {
  fs::create_directory(File("data/backups"));
  for (int day = 10; day < 25; ++day) {
    temp_.Write("data/backups/Calendar-2019-03-" + std::to_string(day) + ".mdb", "x");
  }
  temp_.Write("data/backups/Letters.mdb", "mine");
  EXPECT_EQ(0, Rolling().Status);
  const auto names = NamesIn("data/backups");
  // Six days beside today's; the Saturdays of two earlier weeks, of which one is of those six.
  EXPECT_EQ(9U, names.size());
  EXPECT_TRUE(fs::exists(File("data/backups/Letters.mdb")));
  EXPECT_TRUE(fs::exists(File("data/backups/Calendar-2019-03-16.mdb")));
  EXPECT_FALSE(fs::exists(File("data/backups/Calendar-2019-03-17.mdb")));
}

TEST_P(BackupCommandTest, ARestoredCalendarIsTheBackup) {
  Book(pool_, "2026-03-02", 1, 2, "Kept");
  ASSERT_EQ(0, Backup("copy.mdb").Status);
  const std::string before = Rows("Reserv");
  Book(pool_, "2026-03-02", 3, 4, "Mistake");
  const Ended ended = Restore("copy.mdb");
  EXPECT_EQ(0, ended.Status) << ended.Err;
  EXPECT_EQ(before, Rows("Reserv"));
  const auto names = NamesIn("data");
  ASSERT_EQ(3U, names.size());
  EXPECT_EQ("Kept;Mistake;", RowsOfFile("data/" + names[0]));
  EXPECT_NE(std::string::npos, ended.Out.find("kept as " + names[0]));
  EXPECT_TRUE(fs::exists(File("copy.mdb")));
}

TEST_P(BackupCommandTest, WhoeverCouldUseTheCalendarCanUseTheRestoredOne) {
  ASSERT_EQ(0, Backup("copy.mdb").Status);
  constexpr fs::perms kForAll = fs::perms::owner_read | fs::perms::owner_write |
                                fs::perms::group_read | fs::perms::group_write |
                                fs::perms::others_write | fs::perms::others_read;
  fs::permissions(CalendarName(), kForAll);
  EXPECT_EQ(0, Restore("copy.mdb").Status);
  EXPECT_EQ(kForAll, fs::status(CalendarName()).permissions());
}

TEST_P(BackupCommandTest, ACalendarThatIsOpenIsNotReplaced) {
  ASSERT_EQ(0, Backup("copy.mdb").Status);
  const auto desk = Desk();
  Book(pool_, "2026-03-02", 3, 4, "Now");
  const Ended ended = Restore("copy.mdb");
  EXPECT_EQ(2, ended.Status);
  EXPECT_NE(std::string::npos, ended.Err.find("Somebody has the calendar open.")) << ended.Err;
  EXPECT_NE(std::string::npos, Rows("Reserv").find("Now"));
}

TEST_P(BackupCommandTest, ADamagedCalendarIsReplacedAndItsLogSetAside) {
  Book(pool_, "2026-03-02", 1, 2, "Kept");
  ASSERT_EQ(0, Backup("copy.mdb").Status);
  temp_.Write("data/Calendar.mdb", "rubbish");
  temp_.Write("data/Calendar.mdb-wal", "an old log");
  temp_.Write("data/Calendar.mdb-journal", "an old journal");
  const Ended ended = Restore("copy.mdb");
  EXPECT_EQ(0, ended.Status) << ended.Err;
  EXPECT_NE(std::string::npos, Rows("Reserv").find("Kept"));
  const auto names = NamesIn("data");
  ASSERT_EQ(5U, names.size());
  EXPECT_EQ(names[0] + "-journal", names[1]);
  EXPECT_EQ(names[0] + "-wal", names[2]);
  EXPECT_EQ("rubbish", temp_.Read("data/" + names[0]));
}

TEST_P(BackupCommandTest, ALogOfACalendarThatIsGoneIsNotTakenForTheRestoredOnes) {
  ASSERT_EQ(0, Backup("copy.mdb").Status);
  fs::remove(CalendarName());
  temp_.Write("data/Calendar.mdb-wal", "an old log");
  EXPECT_EQ(2, Restore("copy.mdb").Status);
  fs::remove(CalendarName() + "-wal");
  EXPECT_EQ(0, Restore("copy.mdb").Status);
  EXPECT_EQ((std::vector<std::string>{"Calendar.mdb", "Veyra.mdb"}), NamesIn("data"));
}

TEST_P(BackupCommandTest, WhatIsNoSoundCalendarIsNotRestored) {
  Book(pool_, "2026-03-02", 1, 2, "Kept");
  temp_.Write("no.mdb", "Dear diary");
  fs::copy_file(Folder() + "/Veyra.mdb", File("guests.mdb"));
  const std::string whole = temp_.Read("data/Calendar.mdb");
  temp_.Write("cut.mdb", whole.substr(0, whole.size() - 5000));
  for (const char* name : {"no.mdb", "guests.mdb", "cut.mdb", "missing.mdb"}) {
    const Ended ended = Restore(name);
    EXPECT_EQ(2, ended.Status) << name;
    EXPECT_NE("", ended.Err);
  }
  EXPECT_EQ((std::vector<std::string>{"Calendar.mdb", "Veyra.mdb"}), NamesIn("data"));
  EXPECT_NE(std::string::npos, Rows("Reserv").find("Kept"));
}

}  // namespace
}  // namespace veyra
