#include "data/journal.h"
#include "data/open_file_store.h"
#include "tests/data/sqlite/foreign_program.h"
#include "tests/tools/companion/kept_calendar.h"

namespace veyra {
namespace {

class JournalCommandTest : public KeptCalendarTest {
 protected:
  Ended Journal(const Arguments& options) const {
    Arguments arguments{"journal", options.front(), Folder()};
    arguments.insert(arguments.end(), options.begin() + 1, options.end());
    return RunProgram(arguments);
  }

  std::string History() const { return RunProgram({"history", Folder()}).Out; }

  /// Makes an entry as old as it is to be.
  void SetTime(const std::string& from, const std::string& to) const {
    const auto store = OpenStore(CalendarName(), StoreAccess::ReadWrite);
    std::vector<Row> rows;
    const auto source = store->Select(ParseQuery("SELECT * FROM ChangeJournal"));
    for (Row row; source->Next(row);) {
      if (ToText(row.Values.back()).find(from) != std::string::npos) {
        rows.push_back(row);
      }
    }
    ASSERT_EQ(1U, rows.size());
    store->Update("ChangeJournal", rows.front(), {{"ChangedAt", to}});
  }
};

VEYRA_FOR_ALL_KINDS(JournalCommandTest);

TEST_P(JournalCommandTest, ANewCalendarKeepsOne) {
  EXPECT_EQ(0, Journal({"status"}).Status);
  EXPECT_NE(std::string::npos, Journal({"status"}).Out.find("The journal is kept; it holds 2 "));
}

TEST_P(JournalCommandTest, ItIsSwitchedOffAndOnWhileTheDeskIsOpen) {
  const auto desk = Desk();
  EXPECT_EQ(0, Journal({"off"}).Status);
  EXPECT_EQ(1, Journal({"off"}).Status);
  EXPECT_EQ(1, Journal({"status"}).Status);
  desk->Insert("Reserv", {{"RmID", pool_}, {"Event", std::string("unseen")}});
  EXPECT_EQ(std::string::npos, History().find("unseen"));
  EXPECT_NE(std::string::npos, History().find("Main Hall"));
  EXPECT_EQ(0, Journal({"on"}).Status);
  EXPECT_EQ(1, Journal({"on"}).Status);
  desk->Insert("Reserv", {{"RmID", pool_}, {"Event", std::string("entered")}});
  EXPECT_EQ(std::string::npos, History().find("unseen"));
  EXPECT_NE(std::string::npos, History().find("entered"));
}

TEST_P(JournalCommandTest, EntriesOfMoreThanTwoYearsAgoGo) {
  SetTime("'Pool'", "2001-01-01 00:00:00.000");
  const Ended kept = Journal({"status", "--keep", "1000y"});
  EXPECT_NE(std::string::npos, History().find("Pool")) << kept.Out;
  const Ended ended = Journal({"on"});
  EXPECT_NE(std::string::npos, ended.Out.find("Removed 1 entries")) << ended.Out << ended.Err;
  EXPECT_EQ(std::string::npos, History().find("Pool"));
  EXPECT_NE(std::string::npos, History().find("Main Hall"));
}

TEST_P(JournalCommandTest, TheRollingBackupRemovesThemToo) {
  SetTime("'Pool'", "2001-01-01 00:00:00.000");
  ASSERT_EQ(0, RunProgram({"backup", "--rolling", Folder()}).Status);
  EXPECT_EQ(std::string::npos, History().find("Pool"));
  EXPECT_NE(std::string::npos, History().find("Main Hall"));
}

TEST_P(JournalCommandTest, WhatIsAskedForWronglyEndsWithTwo) {
  for (const Arguments& wrong :
       {Arguments{"perhaps"}, Arguments{"on", "--keep", "0"}, Arguments{"on", "--keep", "2x"},
        Arguments{"on", "--keep", "-1"}}) {
    EXPECT_EQ(2, Journal(wrong).Status) << wrong.back();
  }
  EXPECT_EQ(0, Journal({"status"}).Status);
}

/// What other programs do to a SQLite file; in an Access file they enter nothing.
class ForeignJournalCommandTest : public JournalCommandTest {};

INSTANTIATE_TEST_SUITE_P(Kinds, ForeignJournalCommandTest, testing::Values(StoreKind::Sqlite),
                         [](const auto& kind) { return std::string(NameOf(kind.param)); });

TEST_P(ForeignJournalCommandTest, OneWhoseTableIsGoneIsEndedAndBegunAnew) {
  ForeignProgram(CalendarName()).Run("DROP TABLE ChangeJournal");
  EXPECT_EQ(1, RunProgram({"history", Folder()}).Status);
  const Ended off = Journal({"off"});
  EXPECT_EQ(0, off.Status) << off.Err;
  Book(pool_, "2026-03-02", 1, 2, "Chess");
  EXPECT_EQ(0, Journal({"on"}).Status);
  Book(pool_, "2026-03-02", 3, 4, "Bridge");
  EXPECT_EQ(std::string::npos, History().find("Chess"));
  EXPECT_NE(std::string::npos, History().find("Bridge"));
}

TEST_P(ForeignJournalCommandTest, OneWhoseTableIsAnotherIsEnded) {
  ForeignProgram(CalendarName()).Run("ALTER TABLE ChangeJournal DROP COLUMN ActionID");
  EXPECT_THROW(Book(pool_, "2026-03-02", 1, 2, "Chess"), DatabaseError);
  const Ended off = Journal({"off"});
  EXPECT_EQ(0, off.Status) << off.Err;
  Book(pool_, "2026-03-02", 1, 2, "Chess");
  const Ended on = Journal({"on"});
  EXPECT_EQ(2, on.Status);
  EXPECT_NE(std::string::npos, on.Err.find("Rename that table")) << on.Err;
}

/// A calendar of an earlier version, which knew no journal.
TEST(OldCalendarTest, ItIsWorkedWithAsBefore) {
  const TempFolder temp;
  {
    const auto store = CreateStoreOfKind(StoreKind::Sqlite, temp.File("Calendar.mdb").string());
    store->CreateTable(RoomsTable());
    store->CreateTable(ReservTable());
    store->Insert("Rooms", {{"Name", std::string("Pool")}, {"Active", std::int64_t{1}}});
  }
  const std::string folder = temp.path().string();
  EXPECT_EQ(1, RunProgram({"history", folder}).Status);
  EXPECT_EQ(1, RunProgram({"undo", folder, "--yes"}).Status);
  EXPECT_EQ(2, RunProgram({"restore", "1", folder, "--yes"}).Status);
  EXPECT_EQ(1, RunProgram({"journal", "status", folder}).Status);
  EXPECT_EQ(0, RunProgram({"journal", "on", folder}).Status);
  EXPECT_EQ(1, RunProgram({"list", folder}).Status);
}

}  // namespace
}  // namespace veyra
