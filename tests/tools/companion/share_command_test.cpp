#include "tools/companion/share_command.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <sstream>
#include <stdexcept>

#include "data/calendar_link.h"
#include "data/desk_note.h"
#include "data/open_file_store.h"
#include "data/shared_calendar.h"
#include "tests/postgres/test_server.h"
#include "tests/store_kind.h"
#include "tests/tools/companion/convert_fixture.h"
#include "tools/care/restore.h"
#include "tools/companion/compact_command.h"
#include "tools/companion/link_command.h"
#include "tools/companion/new_command.h"
#include "tools/companion/rescue_command.h"
#include "tools/translation.h"

namespace fs = std::filesystem;

namespace veyra {
namespace {

const CopyObserver kNobody = [](const CopyStep&) {};

/// A folder with a calendar, and a schema of the tests' server that nobody has used.
class ShareCommandTest : public ConvertCommandTest {
 protected:
  ExitStatus Share(const CopyObserver& observer = kNobody) { return ShareTo(link_, observer); }

  ExitStatus ShareTo(const CalendarLink& link, const CopyObserver& observer = kNobody) {
    return RunWith(ShareCommand(kToday, observer),
                   {temp_.path().string(), link.Server, "--schema=" + link.Schema}, out_);
  }

  ExitStatus LinkFrom(const std::string& folder, const CalendarLink& link) {
    return RunWith(LinkCommand(),
                   {temp_.File(folder).string(), link.Server, "--schema=" + link.Schema}, out_);
  }

  std::string TablesOnServer() const {
    return TestDatabase::Get().Run("SELECT count(*) FROM pg_tables WHERE schemaname = '" +
                                   link_.Schema + "'");
  }

  /// What fails must leave the calendar as it was, and can be tried again.
  template <typename Failure, typename Work>
  void ExpectNothingDone(const Work& work) {
    const Lines names = temp_.Names();
    const std::string bytes = temp_.Read("Calendar.mdb");
    EXPECT_THROW(work(), Failure);
    EXPECT_EQ(names, temp_.Names());
    EXPECT_TRUE(bytes == temp_.Read("Calendar.mdb"));
    EXPECT_EQ("0", TablesOnServer());
  }

  CalendarLink link_ = TestDatabase::Get().NewLink();
};

class ShareFromTest : public ShareCommandTest, public testing::WithParamInterface<FileKind> {};

INSTANTIATE_TEST_SUITE_P(Kinds, ShareFromTest, testing::ValuesIn(kFileKinds),
                         [](const auto& kind) { return std::string(NameOf(kind.param)); });

TEST_P(ShareFromTest, TheSharedCalendarHoldsTheSameRows) {
  Fill(*Make(GetParam()), 700);
  const Lines before = Everything(*Open());
  Share();
  EXPECT_EQ(FileKind::Postgres, Kind());
  EXPECT_EQ(before, Everything(*Open()));
}

TEST_P(ShareFromTest, ThereAndBackIsTheSame) {
  Fill(*Make(GetParam()), 700);
  const Lines before = Everything(*Open());
  Share();
  Convert(GetParam() == FileKind::Access ? "access" : "sqlite");
  EXPECT_EQ(GetParam(), Kind());
  EXPECT_EQ(before, Everything(*Open()));
}

TEST_P(ShareFromTest, OnTheWayBackTheFacilityThatTheDeskHadPickedIsTheActiveOne) {
  Fill(*Make(GetParam()), 3);
  Share();
  WriteDeskNote(DeskNoteOf(File()), 6);
  Convert(GetParam() == FileKind::Access ? "access" : "sqlite");
  EXPECT_EQ((Lines{"2|Main Hall|0", "3|Café 🎂|0", "6|Зал|1", "11||0", "40|\\N|0"}),
            RowsOf(*Open(), "Rooms"));
}

TEST_P(ShareFromTest, ANoteOfAFacilityThatIsGoneChangesNoMark) {
  Fill(*Make(GetParam()), 3);
  const Lines before = Everything(*Open());
  Share();
  WriteDeskNote(DeskNoteOf(File()), 77);
  Convert(GetParam() == FileKind::Access ? "access" : "sqlite");
  EXPECT_EQ(before, Everything(*Open()));
}

TEST_F(ShareCommandTest, TheOldFileIsKeptAndALinkTakesItsPlace) {
  Fill(*Make(FileKind::Sqlite), 10);
  fs::permissions(File(), fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read |
                              fs::perms::group_write);
  const std::string before = temp_.Read("Calendar.mdb");
  Share();
  EXPECT_EQ((Lines{kKept, "Calendar.mdb"}), temp_.Names());
  EXPECT_TRUE(before == temp_.Read(kKept));
  EXPECT_EQ("veyra calendar link 1\n" + link_.Server + "\nschema=" + link_.Schema + "\n",
            temp_.Read("Calendar.mdb"));
  EXPECT_EQ(fs::status(temp_.File(kKept)).permissions(), fs::status(File()).permissions());
}

TEST_F(ShareCommandTest, SaysWhatItDid) {
  Fill(*Make(FileKind::Sqlite), 10);
  EXPECT_EQ(ExitStatus::Fine, Share());
  EXPECT_EQ(File() +
                " leads to the server now: 2 tables, 15 rows, all compared.\nThe old file is "
                "kept as Calendar-before-2026-11-21.mdb.\n",
            out_.str());
}

TEST_F(ShareCommandTest, OldOverlapsAreTakenAsTheyAre) {
  Make(FileKind::Sqlite)
      ->InsertAll("Reserv", std::vector<FieldValues>(3, {{"RmID", std::int64_t{1}},
                                                         {"Event", std::string("Ann")},
                                                         {"DateOfRes", kToday},
                                                         {"TimeFrom", std::int64_t{19}},
                                                         {"TimeTo", std::int64_t{22}}}));
  EXPECT_EQ(ExitStatus::Fine, Share());
  EXPECT_EQ(3U, RowsOf(*Open(), "Reserv").size());
}

TEST_F(ShareCommandTest, ANumberThatWasGivenOnceIsNotGivenAgain) {
  {
    const auto store = Make(FileKind::Sqlite);
    store->Delete("Rooms", store->Insert("Rooms", {{"ID", std::int64_t{70}}}));
  }
  Share();
  const auto store = Open(StoreAccess::ReadWrite);
  EXPECT_EQ(Value(std::int64_t{71}), store->Insert("Rooms", {{"Name", "New"}}).Values.front());
}

TEST_F(ShareCommandTest, ANumberThatWouldBeGivenTwiceIsToldOfInTheOperatorsLanguage) {
  Fill(*Make(FileKind::Sqlite), 10);
  Share();
  TestDatabase::Get().Run("SELECT setval(pg_get_serial_sequence('\"" + link_.Schema +
                          "\".\"Rooms\"', 'ID'), 1)");
  const auto faults = OpenFileStore(File(), StoreAccess::ReadOnly)->Verify();
  ASSERT_EQ(1U, faults.size());
  EXPECT_EQ("The table Rooms has a row with a higher number than the server has given.",
            faults.front().English());
  EXPECT_EQ(
      "Die Tabelle Rooms hat eine Zeile mit einer höheren Nummer, als der Server vergeben hat.",
      faults.front().TranslatedBy(TranslatorInto({"de"})));
}

TEST_F(ShareCommandTest, AJournalGoesOn) {
  Make(FileKind::Sqlite);
  OpenFileStore(File(), StoreAccess::ReadWrite)->KeepJournal(true);
  Share();
  const auto store = Open(StoreAccess::ReadWrite);
  EXPECT_TRUE(store->KeepsJournal());
  store->Insert("Rooms", {{"Name", "New"}});
  EXPECT_EQ(1U, RowsOf(*store, "ChangeJournal").size());
}

TEST_F(ShareCommandTest, BrokenOffAtAnyPointLeavesNothingOnTheServerAndCanBeTriedAgain) {
  Fill(*Make(FileKind::Sqlite), 10);
  for (const std::string verb : {"Read", "Copied", "Compared"}) {
    ExpectNothingDone<std::runtime_error>([&] {
      Share([&](const CopyStep& step) {
        if (step.Verb == verb && step.Rows == 12) {
          throw std::runtime_error("broken off");
        }
      });
    });
  }
  EXPECT_EQ(ExitStatus::Fine, Share());
}

TEST_F(ShareCommandTest, ACalendarThatSomebodyHasOpenIsNotShared) {
  Fill(*Make(FileKind::Sqlite), 10);
  const auto desk = Open(StoreAccess::ReadWrite);
  AddBooking(*desk, 11);
  EXPECT_THROW(Share(), DatabaseBusyError);
  EXPECT_EQ("0", TablesOnServer());
  EXPECT_EQ(FileKind::Sqlite, Kind());
}

TEST_F(ShareCommandTest, AServerThatIsNotThereChangesNothing) {
  Fill(*Make(FileKind::Sqlite), 10);
  ExpectNothingDone<DatabaseError>(
      [&] { ShareTo({.Server = "postgresql://veyra@/calendar?host=/nowhere", .Schema = "a"}); });
}

TEST_F(ShareCommandTest, APasswordIsRefused) {
  Fill(*Make(FileKind::Sqlite), 10);
  ExpectNothingDone<DatabaseError>([&] {
    ShareTo({.Server = "postgresql://veyra:secret@/calendar?host=/nowhere", .Schema = "a"});
  });
}

TEST_F(ShareCommandTest, ASchemaThatHoldsACalendarIsNotWrittenInto) {
  Fill(*Make(FileKind::Sqlite), 10);
  Share();
  fs::rename(temp_.File(kKept), File());
  const std::string rows = TestDatabase::Get().Run("SELECT count(*), max(\"ID\") FROM \"" +
                                                   link_.Schema + "\".\"Rooms\"");
  EXPECT_THROW(Share(), DatabaseError);
  EXPECT_EQ(FileKind::Sqlite, Kind());
  EXPECT_EQ(rows, TestDatabase::Get().Run("SELECT count(*), max(\"ID\") FROM \"" + link_.Schema +
                                          "\".\"Rooms\""));
}

TEST_F(ShareCommandTest, ACalendarThatIsSharedIsLeftAlone) {
  Make(FileKind::Sqlite);
  Share();
  out_.str({});
  EXPECT_EQ(ExitStatus::Found, Share());
  EXPECT_EQ(File() + " is shared already; nothing was changed.\n", out_.str());
}

TEST_F(ShareCommandTest, AnAdministratorsTablesAreFilledByARoleThatMayOnlyReadAndWriteRows) {
  const std::string role = "desk_" + std::to_string(::getpid());
  std::ostringstream sql;
  RunWith(ShareCommand(kToday, kNobody), {"--sql", "--role=" + role, "--schema=" + link_.Schema},
          sql);
  TestDatabase::Get().Run("CREATE ROLE " + role + " LOGIN");
  TestDatabase::Get().Run(sql.str());
  Fill(*Make(FileKind::Sqlite), 10);
  CalendarLink as_desk = link_;
  as_desk.Server.replace(as_desk.Server.find("veyra@"), 5, role);
  EXPECT_EQ(ExitStatus::Fine, ShareTo(as_desk));
  AddBooking(*Open(StoreAccess::ReadWrite), 11);
  EXPECT_EQ(11U, RowsOf(*Open(), "Reserv").size());
  EXPECT_THROW(Open(StoreAccess::ReadWrite)->CreateTable(Notes()), DatabaseError);
  TestDatabase::Get().Run("DROP OWNED BY " + role + "; DROP ROLE " + role);
}

TEST_F(ShareCommandTest, BackAgainIsRefusedWhileADeskHasItOpen) {
  Fill(*Make(FileKind::Sqlite), 10);
  Share();
  const auto desk = Open(StoreAccess::ReadWrite);
  EXPECT_THROW(Convert("sqlite"), DatabaseBusyError);
  EXPECT_EQ(FileKind::Postgres, Kind());
}

TEST_F(ShareCommandTest, BackAgainSaysThatTheServerStillHasIt) {
  Make(FileKind::Sqlite);
  Share();
  Convert("sqlite");
  EXPECT_NE(std::string::npos, out_.str().find("The calendar on the server stays as it is"));
}

/// Else that desk would go on by itself, and the others would not know.
TEST_F(ShareCommandTest, ABackupDoesNotTakeThePlaceOfALink) {
  Fill(*Make(FileKind::Sqlite), 10);
  Share();
  const std::string link = temp_.Read("Calendar.mdb");
  EXPECT_THROW(RestoreBackup(temp_.File(kKept), File(), kToday), DatabaseError);
  EXPECT_EQ(link, temp_.Read("Calendar.mdb"));
}

TEST_F(ShareCommandTest, CompactingHasNothingToDo) {
  Make(FileKind::Sqlite);
  Share();
  out_.str({});
  EXPECT_EQ(ExitStatus::Found,
            RunWith(CompactCommand(kToday, kNobody), {temp_.path().string()}, out_));
  EXPECT_EQ(File() + " is on a server, which needs no compacting; nothing was changed.\n",
            out_.str());
}

TEST_F(ShareCommandTest, ALinkIsNotTakenForADamagedFile) {
  Make(FileKind::Sqlite);
  Share();
  try {
    RunWith(RescueCommand(kNobody), {File(), temp_.File("rescued").string()}, out_);
    ADD_FAILURE() << "rescued";
  } catch (const DatabaseError& error) {
    EXPECT_EQ("The file is a link: the calendar is on a server.", error.report().Cause);
  }
}

TEST_F(ShareCommandTest, AnotherDeskNeedsTheLinkOnly) {
  Fill(*Make(FileKind::Sqlite), 10);
  Share();
  EXPECT_EQ(ExitStatus::Fine, LinkFrom("other desk", link_));
  const auto other = OpenStore(temp_.File("other desk") / "Calendar.mdb", StoreAccess::ReadWrite);
  AddBooking(*other, 11);
  EXPECT_EQ(11U, RowsOf(*Open(), "Reserv").size());
}

TEST_F(ShareCommandTest, ALinkNeverTakesThePlaceOfACalendar) {
  Fill(*Make(FileKind::Sqlite), 10);
  Share();
  Convert("sqlite");
  const std::string bytes = temp_.Read("Calendar.mdb");
  EXPECT_THROW(LinkFrom(".", link_), FileError);
  EXPECT_TRUE(bytes == temp_.Read("Calendar.mdb"));
}

TEST_F(ShareCommandTest, ALinkToNowhereIsNotMade) {
  EXPECT_THROW(LinkFrom("other desk", link_), DatabaseError);
  EXPECT_THROW(LinkFrom("other desk", {.Server = "host=/nowhere", .Schema = "veyra"}),
               DatabaseError);
  EXPECT_EQ(Lines{}, temp_.Names());
}

TEST_F(ShareCommandTest, ANewCalendarCanBeginOnTheServer) {
  RunWith(NewCommand(kToday),
          {temp_.File("new").string(), "--shared=" + link_.Server, "--schema=" + link_.Schema},
          out_);
  const auto calendar = OpenStore(temp_.File("new") / "Calendar.mdb", StoreAccess::ReadWrite);
  EXPECT_EQ(FileKind::Postgres, calendar->Describe().Kind);
  EXPECT_TRUE(calendar->KeepsJournal());
  EXPECT_EQ(Value(std::int64_t{1}), calendar->Insert("Rooms", {{"Name", "New"}}).Values.front());
  EXPECT_EQ(FileKind::Sqlite,
            OpenStore(temp_.File("new") / "Veyra.mdb", StoreAccess::ReadOnly)->Describe().Kind);
}

TEST_F(ShareCommandTest, AConnectionThatIsNotProvedIsTold) {
  const CalendarLink remote{.Server = "postgresql://desk@server.example/a?sslmode=require",
                            .Schema = "a"};
  EXPECT_NE(std::string::npos, LinkWarning("x", remote).English().find("sslmode=require"));
  EXPECT_EQ("", LinkWarning("x", {.Server = "postgresql://desk@server.example/a", .Schema = "a"}));
  EXPECT_EQ("", LinkWarning("x", {.Server = "host=localhost sslmode=disable", .Schema = "a"}));
}

}  // namespace
}  // namespace veyra
