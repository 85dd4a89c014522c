#include <algorithm>

#include "data/journal.h"
#include "data/open_file_store.h"
#include "tests/tools/companion/kept_calendar.h"

namespace veyra {
namespace {

/// What desks, commands and other programs did, as the built companion lists it and takes it back.
class UndoCommandTest : public KeptCalendarTest {
 protected:
  Ended Run(const std::string& command, const Arguments& options = {},
            const std::string& input = {}) const {
    Arguments arguments{command};
    if (command == "restore") {
      arguments.push_back(options.front());
    }
    arguments.push_back(Folder());
    arguments.insert(arguments.end(), options.begin() + (command == "restore" ? 1 : 0),
                     options.end());
    return RunProgram(arguments, input);
  }

  std::string History(const Arguments& options = {}) const { return Run("history", options).Out; }

  /// Without the number and the time.
  static std::string Heads(const std::string& history) {
    std::string heads;
    std::size_t end = 0;
    for (std::size_t at = 0; at < history.size(); at = end + 1) {
      end = history.find('\n', at);
      const std::string line = history.substr(at, end - at);
      if (line.front() != ' ') {
        heads += line.substr(line.find("  ", line.find("  ") + 2) + 2) + "\n";
      }
    }
    return heads;
  }

  /// The number of the newest action of that name.
  std::string NumberOf(const std::string& name) const {
    const std::string history = History({"--last", "0"});
    const std::size_t at = history.find("  " + name);
    const std::size_t line = history.rfind('\n', at);
    const std::size_t begin = line == std::string::npos ? 0 : line + 1;
    return history.substr(begin, history.find(' ', begin) - begin);
  }

  /// Three bookings, made as one series.
  void BookSeries() const {
    const auto desk = Desk();
    const JournalledAction action(*desk, "New series");
    for (const int day : {2, 9, 16}) {
      desk->Insert("Reserv", {{"RmID", pool_},
                              {"Event", std::string("Choir")},
                              {"DateOfRes", MakeDate(2026, 3, day).value()},
                              {"TimeFrom", std::int64_t{19}},
                              {"TimeTo", std::int64_t{21}},
                              {"MultKey", 20260302093000.0}});
    }
  }

  /// Everything of a table that is so, deleted in one action.
  void DeleteAll(Store& desk, const std::string& from) const {
    const Query query = ParseQuery("SELECT * FROM " + from);
    std::vector<Row> rows;
    const auto source = desk.Select(query);
    for (Row row; source->Next(row);) {
      rows.push_back(row);
    }
    for (const Row& row : rows) {
      desk.Delete(query.Table, row);
    }
  }
};

VEYRA_FOR_ALL_KINDS(UndoCommandTest);

TEST_P(UndoCommandTest, ASeriesIsListedAsOneActionAndGoesAsOne) {
  Book(pool_, "2026-03-03", 1, 1, "Stays");
  BookSeries();
  EXPECT_EQ(0U, Heads(History()).find("New series: 3 rows\n")) << History();
  EXPECT_NE(std::string::npos, History().find("\n      + Pool, 3/9/2026,  9:00A-10:30A Choir\n"));
  const Ended undone = Run("undo", {"--yes"});
  EXPECT_EQ(0, undone.Status) << undone.Err;
  EXPECT_EQ("1 Stays 2026-03-03 1 1 \n", Rows("Reserv"));
  EXPECT_EQ(0U, Heads(History()).find("Undo of "));
}

TEST_P(UndoCommandTest, AnUndoIsAnActionThatCanBeUndone) {
  BookSeries();
  const std::string before = Rows("Reserv");
  EXPECT_EQ(0, Run("undo", {"--yes"}).Status);
  EXPECT_EQ(0, Run("undo", {"--yes"}).Status);
  EXPECT_EQ(before.size(), Rows("Reserv").size());
}

TEST_P(UndoCommandTest, ItAsksAndDoesNothingWithoutAYes) {
  BookSeries();
  const std::string before = Rows("Reserv");
  for (const char* answer : {"", "n\n", "no\n"}) {
    const Ended ended = Run("undo", {}, answer);
    EXPECT_EQ(1, ended.Status);
    EXPECT_NE(std::string::npos, ended.Out.find("Pool, 3/9/2026"));
    EXPECT_EQ(before, Rows("Reserv"));
  }
  EXPECT_EQ(0, Run("undo", {}, "y\n").Status);
  EXPECT_EQ("", Rows("Reserv"));
}

TEST_P(UndoCommandTest, ADeletedFacilityComesBackWithItsNumberAndItsBookings) {
  Book(hall_, "2026-03-02", 1, 2, "Dance");
  Book(hall_, "2026-03-03", 3, 4, "Tea");
  {
    const auto desk = Desk();
    const JournalledAction action(*desk, "Facility deleted");
    DeleteAll(*desk, "Reserv WHERE RmID = " + std::to_string(hall_));
    DeleteAll(*desk, "Rooms WHERE ID = " + std::to_string(hall_));
  }
  BookSeries();
  const Ended ended = Run("restore", {NumberOf("Facility deleted"), "--yes"});
  EXPECT_EQ(0, ended.Status) << ended.Err;
  EXPECT_EQ("1 Pool 1\n2 Main Hall 0\n", Rows("Rooms"));
  EXPECT_NE(std::string::npos, Rows("Reserv").find("2 Dance 2026-03-02 1 2 \n"));
  EXPECT_NE(std::string::npos, Rows("Reserv").find("2 Tea 2026-03-03 3 4 \n"));
}

TEST_P(UndoCommandTest, WhatStandsThereNowIsNamedAndNothingIsChanged) {
  BookSeries();
  {
    const auto desk = Desk();
    const JournalledAction action(*desk, "Series deleted");
    DeleteAll(*desk, "Reserv");
  }
  Book(pool_, "2026-03-09", 21, 22, "Jones");
  const std::string before = Rows("Reserv");
  const Ended ended = Run("restore", {NumberOf("Series deleted"), "--yes"});
  EXPECT_EQ(2, ended.Status);
  EXPECT_EQ(0U, ended.Err.find("Pool, 3/9/2026,  9:00A-10:30A Choir cannot come back: Pool, "
                               "3/9/2026, 10:00A-11:00A Jones stands there now.\n"))
      << ended.Err;
  EXPECT_EQ(before, Rows("Reserv"));
}

TEST_P(UndoCommandTest, ANameIsSetBackOnlyWhileItIsWhatItWasSetTo) {
  Book(pool_, "2026-03-02", 1, 2, "Smith");
  const auto rename = [&](const std::string& to) {
    const auto desk = Desk();
    const JournalledAction action(*desk, "Booking renamed");
    Row row;
    desk->Select(ParseQuery("SELECT * FROM Reserv"))->Next(row);
    desk->Update("Reserv", row, {{"Event", to}});
  };
  rename("Jones");
  const std::string first = NumberOf("Booking renamed");
  rename("Brown");
  const Ended refused = Run("restore", {first, "--yes"});
  EXPECT_EQ(2, refused.Status);
  EXPECT_NE(std::string::npos, refused.Err.find("12:00A- 1:00A Brown stands there now."))
      << refused.Err;
  EXPECT_EQ(0, Run("undo", {"--yes"}).Status);
  EXPECT_EQ(0, Run("restore", {first, "--yes"}).Status);
  EXPECT_EQ("1 Smith 2026-03-02 1 2 \n", Rows("Reserv"));
}

TEST_P(UndoCommandTest, AnImportIsUndoneAsAWhole) {
  temp_.Write("in.csv",
              "Facility,Date,From,To,Name\r\nPool,2026-03-02,09:00,10:00,A\r\n"
              "Main Hall,2026-03-03,09:00,10:00,B\r\n");
  ASSERT_EQ(0, RunProgram({"import", File("in.csv"), Folder()}).Status);
  EXPECT_EQ(0U, Heads(History()).find("Import of in.csv: 2 rows\n")) << History();
  EXPECT_EQ(0, Run("undo", {"--yes"}).Status);
  EXPECT_EQ("", Rows("Reserv"));
}

TEST_P(UndoCommandTest, TheHistoryIsByFacilityDayNameAndTime) {
  Book(pool_, "2026-03-02", 1, 2, "Smith");
  Book(hall_, "2026-03-02", 1, 2, "Jones");
  Book(hall_, "2026-03-05", 1, 2, "Smithson");
  const auto rows = [&](const Arguments& options) {
    const std::string history = History(options);
    return std::count(history.begin(), history.end(), '+');
  };
  EXPECT_EQ(5, rows({}));
  EXPECT_EQ(3, rows({"--facility", "main hall"}));
  EXPECT_EQ(2, rows({"--on", "3/2/2026"}));
  EXPECT_EQ(1, rows({"--from", "3/3/2026"}));
  EXPECT_EQ(2, rows({"--guest", "SMITH"}));
  EXPECT_EQ(5, rows({"--since", "1/1/2020"}));
  EXPECT_EQ(0, rows({"--until", "1/1/2020"}));
  EXPECT_EQ(1, rows({"--last", "1"}));
  EXPECT_EQ(1, Run("history", {"--guest", "nobody"}).Status);
  EXPECT_EQ(2, Run("history", {"--facility", "Sauna"}).Status);
}

TEST_P(UndoCommandTest, ProgramsGetTheHistoryAsJson) {
  Book(pool_, "2026-03-02", 1, 2, "A \"quoted\"\nname");
  const std::string json = History({"--json", "--last", "1"});
  EXPECT_NE(std::string::npos, json.find("\"Event\": \"A \\\"quoted\\\"\\nname\"")) << json;
  EXPECT_NE(std::string::npos, json.find("\"before\": null"));
  EXPECT_NE(std::string::npos, json.find("\"DateOfRes\": \"2026-03-02\""));
}

TEST_P(UndoCommandTest, TheDeskStaysOpenAndSeesIt) {
  const auto desk = Desk();
  BookSeries();
  EXPECT_EQ(0, Run("undo", {"--yes"}).Status);
  Row row;
  EXPECT_FALSE(desk->Select(ParseQuery("SELECT * FROM Reserv"))->Next(row));
  desk->Insert("Reserv", {{"Event", std::string("goes on")}});
  EXPECT_NE(std::string::npos, Rows("Reserv").find("goes on"));
}

TEST_P(UndoCommandTest, TwoCompanionsAtOnceTakeItBackOnce) {
  BookSeries();
  const std::string number = NumberOf("New series");
  const std::string line = ProgramLine({"restore", number, Folder(), "--yes"});
  const Ended both =
      RunShell(line + " & first=$!; " + line + "; a=$?; wait $first; echo status $((a + $?))");
  EXPECT_NE(std::string::npos, both.Out.find("status 2\n")) << both.Out << both.Err;
  EXPECT_EQ("", Rows("Reserv"));
}

TEST_P(UndoCommandTest, AConvertedCalendarGoesOnWithItsJournal) {
  BookSeries();
  const std::string kind = GetParam() == StoreKind::Access ? "sqlite" : "access";
  const Ended converted = RunProgram({"convert", Folder(), "--to", kind});
  ASSERT_EQ(0, converted.Status) << converted.Err;
  EXPECT_EQ(0, RunProgram({"journal", "status", Folder()}).Status);
  Book(hall_, "2026-03-02", 1, 2, "Later");
  EXPECT_NE(std::string::npos, History({"--guest", "Later"}).find("Main Hall, 3/2/2026"));
  EXPECT_EQ(0, Run("restore", {NumberOf("New series"), "--yes"}).Status);
  EXPECT_EQ(std::string::npos, Rows("Reserv").find("Choir"));
}

TEST_P(UndoCommandTest, WhatIsNotInTheJournalCannotBeTakenBack) {
  const std::string rooms = Rows("Rooms");
  for (const char* number : {"0", "4711", "-1", "x", "99999999999999999999"}) {
    EXPECT_EQ(2, Run("restore", {number, "--yes"}).Status) << number;
  }
  EXPECT_EQ(rooms, Rows("Rooms"));
}

/// A calendar that was made without a journal.
class NoJournalTest : public UndoCommandTest {
 protected:
  NoJournalTest() { OpenFileStore(CalendarName(), StoreAccess::ReadWrite)->KeepJournal(false); }
};

VEYRA_FOR_ALL_KINDS(NoJournalTest);

TEST_P(NoJournalTest, NothingIsEnteredUntilItIsSwitchedOn) {
  const std::string before = History();
  BookSeries();
  EXPECT_EQ(before, History());
  EXPECT_EQ(1, RunProgram({"journal", "status", Folder()}).Status);
}

/// What another program does to a SQLite file.
class ForeignUndoTest : public UndoCommandTest {
 protected:
  void Shell(const std::string& sql) const {
    ASSERT_EQ(0,
              RunShell("sqlite3 " + ShellQuoted(CalendarName()) + " " + ShellQuoted(sql)).Status);
  }
};

INSTANTIATE_TEST_SUITE_P(Kinds, ForeignUndoTest, testing::Values(StoreKind::Sqlite),
                         [](const auto& kind) { return std::string(NameOf(kind.param)); });

TEST_P(ForeignUndoTest, OneStatementOfAnotherProgramIsOneAction) {
  BookSeries();
  const std::string before = Rows("Reserv");
  Shell("UPDATE Reserv SET Event = 'Overwritten'");
  const std::string update = NumberOf("By another program");
  Shell("DELETE FROM Reserv");
  EXPECT_EQ(0U, Heads(History()).find("By another program: 3 rows\nBy another program: 3 rows\n"))
      << History();
  EXPECT_EQ(0, Run("undo", {"--yes"}).Status);
  EXPECT_NE(std::string::npos, Rows("Reserv").find("Overwritten"));
  EXPECT_EQ(0, Run("restore", {update, "--yes"}).Status);
  EXPECT_EQ(before.size(), Rows("Reserv").size());
  EXPECT_EQ(std::string::npos, Rows("Reserv").find("Overwritten"));
}

}  // namespace
}  // namespace veyra
