#include "app/startup.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "data/desk_note.h"
#include "data/errors.h"
#include "tests/app/startup_fixture.h"
#include "tests/data/access/fixtures.h"
#include "tests/data/sqlite/foreign_program.h"

namespace veyra {
namespace {

namespace fs = std::filesystem;

/// Starts the program with an application folder of its own beside a data folder.
class StartUpTest : public StartUpFixture {
 protected:
  void StartOnData() {
    app_.Write("path.txt", data_.Path() + "\r\n" + data_.Path() + "\r\n");
    Start();
  }

  /// What the operator is told when start-up fails with this.
  std::string ReportOfStart() {
    try {
      Start();
    } catch (const Error& failure) {
      return failure.what();
    }
    return "no failure";
  }

  std::string SettingsRows() {
    Connection connection(data_.Calendar());
    const auto rows = connection.Open("SELECT * FROM Settings", CursorType::ForwardOnlyReadOnly);
    std::string text;
    for (; !rows->AtEnd(); rows->MoveNext()) {
      for (const char* column :
           {"ID", "BkGrnd", "HeaderTxt", "DaysTxtColor", "TodayColor", "TodayBColor"}) {
        text += ToText(rows->Field(column)) + " ";
      }
      text += "\n";
    }
    return text;
  }
};

/// Another program in the middle of a change of the calendar.
class OtherProgram {
 public:
  explicit OtherProgram(const CalendarFolder& folder) {
    if (TestedStoreKind() == StoreKind::Access) {
      std::string user = "FRONTDESK";
      user.resize(32);
      user += "Admin";
      user.resize(64);
      folder.Folder().Write("Calendar.ldb", user);
    } else {
      sqlite_.emplace(folder.File("Calendar.mdb"));
      sqlite_->Run("BEGIN IMMEDIATE");
    }
  }

 private:
  std::optional<ForeignProgram> sqlite_;
};

TEST_F(StartUpTest, AFirstStartOnACalendarThatIsHeldSaysWhoHoldsIt) {
  if (TestedStoreKind() == StoreKind::Postgres) {
    GTEST_SKIP() << "on a server a new table waits for nobody";
  }
  app_.Write("path.txt", data_.Path());
  const OtherProgram other(data_);
  session_.Waiting = std::chrono::milliseconds(100);
  const std::string report = ReportOfStart();
  const bool is_access = TestedStoreKind() == StoreKind::Access;
  for (const char* part : {"The file has no table Settings.",
                           is_access ? "Admin on FRONTDESK" : "Another program is using the file",
                           "It is added at the next start."}) {
    EXPECT_NE(std::string::npos, report.find(part)) << part << "\n" << report;
  }
  EXPECT_EQ(std::string::npos, report.find("backup copy")) << report;
}

TEST_F(StartUpTest, AFirstStartOnAFileThatIsOnlyReadSaysHowToConvertIt) {
  if (!std::filesystem::is_directory(FixtureFolder()) || TestedStoreKind() != StoreKind::Access) {
    GTEST_SKIP() << "needs a file of Access 97";
  }
  app_.Write("path.txt", data_.Path());
  std::filesystem::copy_file(FixtureFolder() / "guests-jet3" / "Veyra.mdb",
                             data_.File("Calendar.mdb"),
                             std::filesystem::copy_options::overwrite_existing);
  std::filesystem::permissions(data_.File("Calendar.mdb"), std::filesystem::perms::owner_all);
  session_.DataFolder = data_.Path();
  CreateResCon(session_);
  EnsureSettingsRow(session_);
  try {
    LoadColorSettings(*session_.ResCon, session_.CurrentColors, session_.StoredColors);
    FAIL() << "Settings is there";
  } catch (const MissingItemError& error) {
    EXPECT_NE(std::string::npos, std::string(error.what()).find("veyra-data convert"))
        << error.what();
  }
}

TEST_F(StartUpTest, TodaysMonthOfTheActiveFacilityIsShown) {
  data_.AddRoom("Pool");
  const auto hall = data_.AddRoom("Hall", true);
  data_.AddBooking(hall, "2014-03-15", 19, 21, "Smith");
  StartOnData();
  EXPECT_EQ("March 2014", view_.Picture.Title);
  EXPECT_EQ("Hall", view_.lblRoom);
  EXPECT_EQ((NameBox{{"Pool", "Hall"}, "Hall"}), view_.Combo1);
  EXPECT_EQ((modRes::DayLines{" 9:00A-10:30A Smith"}), view_.Picture.Cells[21].Lines);
  EXPECT_EQ(1, view_.MonthsShown);
}

/// The note of the former file and its log beside another file.
TEST_F(StartUpTest, ALogThatWasSetAsideIsTold) {
  if (TestedStoreKind() != StoreKind::Sqlite) {
    GTEST_SKIP() << "an Access file has no such log";
  }
  const TempFolder kept;
  fs::copy(data_.File("Calendar.mdb"), kept.File("backup"));
  data_.AddRoom("Hall");
  {
    const auto open = data_.Calendar();
    open->Insert("Rooms", {{"Name", "Pool"}});
    for (const char* beside : {"Calendar.mdb-wal", "Calendar.mdb-open"}) {
      fs::copy(data_.File(beside), kept.File(beside));
    }
  }
  fs::rename(kept.File("backup"), data_.File("Calendar.mdb"));
  for (const char* beside : {"Calendar.mdb-wal", "Calendar.mdb-open"}) {
    fs::rename(kept.File(beside), data_.File(beside));
  }
  StartOnData();
  const std::string box = dialogs_.OnlyBox();
  EXPECT_TRUE(box.starts_with("[OK Exclamation] " + data_.File("Calendar.mdb"))) << box;
  EXPECT_NE(std::string::npos, box.find("Calendar.mdb-wal set aside 20")) << box;
}

TEST_F(StartUpTest, TheSharedStateIsThatOfAFreshRun) {
  data_.AddRoom("Pool", true);
  StartOnData();
  EXPECT_FALSE(session_.IsLoading);
  EXPECT_FALSE(session_.PrintLayoutOn);
  EXPECT_EQ(1, session_.CurRmID);
  EXPECT_EQ(Opener::MonthWindow, session_.DayOpener);
  EXPECT_EQ(3, session_.CurMonth);
  EXPECT_EQ(2014, session_.CurYear);
  EXPECT_EQ(" 1:00A", session_.SlotLabel[3]);
  EXPECT_EQ(data_.Path(), session_.DataFolder);
}

TEST_F(StartUpTest, TheWindowIsPlacedAndColored) {
  data_.AddRoom("Pool", true);
  StartOnData();
  EXPECT_TRUE(view_.Placed);
  EXPECT_EQ(-2147483643, view_.Background);
  EXPECT_EQ(12582912, view_.Header);
}

TEST_F(StartUpTest, AFreshCalendarShowsTheDefaultColors) {
  data_.AddRoom("Pool", true);
  StartOnData();
  EXPECT_EQ(0, view_.Picture.Cells[20].NumberColor);
  EXPECT_EQ(255, view_.Picture.Cells[21].NumberColor);
  EXPECT_EQ(-2147483643, view_.Picture.Cells[21].ListColor);
}

TEST_F(StartUpTest, ACalendarWithoutSettingsGetsItsOneRow) {
  StartOnData();
  EXPECT_EQ("1 -2147483643 12582912 0 255 -2147483643 \n", SettingsRows());
}

TEST_F(StartUpTest, ASecondStartChangesNothing) {
  data_.AddRoom("Pool", true);
  StartOnData();
  const std::string rows = SettingsRows();
  const std::string rooms = data_.Rooms();
  Session second;
  frmCalendar again(second, view_, windows_, dialogs_, clock_, printer_);
  StartUp(second, again, dialogs_, app_.path().string());
  EXPECT_EQ(rows, SettingsRows());
  EXPECT_EQ(rooms, data_.Rooms());
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(StartUpTest, WithNoFacilityTheMonthIsDrawnWithoutBookings) {
  data_.AddBooking(0, "2014-03-15", 1, 2, "nobody's");
  data_.AddBooking(1, "2014-03-15", 1, 2, "gone");
  StartOnData();
  EXPECT_EQ("", view_.lblRoom);
  EXPECT_EQ("", view_.Combo1.Text);
  EXPECT_EQ(0, session_.CurRmID);
  EXPECT_EQ("March 2014", view_.Picture.Title);
}

TEST_F(StartUpTest, OfTwoActiveFacilitiesTheLastIsShownAndTheMarksAreSetRight) {
  data_.AddRoom("Pool", true);
  data_.AddRoom("Hall", true);
  StartOnData();
  EXPECT_EQ("Hall", view_.lblRoom);
  // Of a shared calendar each desk keeps a note of its own, and leaves the marks to all.
  const bool is_shared = TestedStoreKind() == StoreKind::Postgres;
  EXPECT_EQ(is_shared ? "1 Pool active\n2 Hall active\n" : "1 Pool\n2 Hall active\n",
            data_.Rooms());
}

TEST_F(StartUpTest, EachDeskOfASharedCalendarBeginsWithTheFacilityItHadLast) {
  if (TestedStoreKind() != StoreKind::Postgres) {
    GTEST_SKIP() << "a file has one mark for all";
  }
  data_.AddRoom("Pool");
  data_.AddRoom("Hall", true);
  StartOnData();
  EXPECT_EQ(DeskNoteOf(data_.File("Calendar.mdb")), session_.DeskNote);
  EXPECT_EQ(2, ReadDeskNote(session_.DeskNote));
  WriteDeskNote(session_.DeskNote, 1);
  StartOnData();
  EXPECT_EQ("Pool", view_.lblRoom);
}

TEST_F(StartUpTest, WithoutPathTxtTheFileIsMadeAndThisStartFails) {
  EXPECT_THROW(Start(), DatabaseError);
  EXPECT_EQ(app_.path().string() + "\r\n" + app_.path().string() + "\r\n", app_.Read("path.txt"));
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(StartUpTest, TheReportOfAMissingDatabaseNamesPathTxt) {
  EXPECT_NE(std::string::npos, ReportOfStart().find("path.txt"));
}

TEST_F(StartUpTest, APathTxtOfOneLineIsTolerated) {
  app_.Write("path.txt", data_.Path());
  Start();
  EXPECT_EQ(data_.Path(), session_.DataFolder);
}

TEST_F(StartUpTest, WhatAnEditorLeavesAroundTheFolderIsDropped) {
  app_.Write("path.txt", "\xEF\xBB\xBF" + data_.Path() + "  \n");
  Start();
  EXPECT_EQ(data_.Path(), session_.DataFolder);
}

TEST_F(StartUpTest, ABackslashInPathTxtCountsAsASlash) {
  std::string folder = data_.Path();
  folder.replace(folder.rfind('/'), 1, "\\");
  app_.Write("path.txt", folder + "\r\n");
  Start();
  EXPECT_EQ(data_.Path(), session_.DataFolder);
}

TEST_F(StartUpTest, TheSecondLineOfPathTxtIsNotUsed) {
  app_.Write("path.txt", data_.Path() + "\r\n/nowhere\r\n");
  Start();
  EXPECT_EQ(data_.Path(), session_.DataFolder);
}

TEST_F(StartUpTest, AnEmptyPathTxtCountsAsMissing) {
  app_.Write("path.txt", "");
  EXPECT_NE(std::string::npos, ReportOfStart().find("path.txt"));
  EXPECT_EQ(app_.path().string() + "\r\n" + app_.path().string() + "\r\n", app_.Read("path.txt"));
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(StartUpTest, APathTxtThatIsAPipeIsReportedByNumberAndNotWaitedFor) {
  mkfifo(app_.File("path.txt").c_str(), 0600);
  EXPECT_THROW(Start(), DatabaseError);
  EXPECT_EQ("[OK] FileOpener: Error: 75", dialogs_.OnlyBox());
}

TEST_F(StartUpTest, ABinaryPathTxtIsReportedByName) {
  app_.Write("path.txt", std::string("\x7F\x00\xFF\xFE", 4));
  EXPECT_NE(std::string::npos, ReportOfStart().find("path.txt"));
}

TEST_F(StartUpTest, APathTxtOfTenMegabytesIsReportedByName) {
  app_.Write("path.txt", std::string(10'000'000, 'x'));
  EXPECT_NE(std::string::npos, ReportOfStart().find("path.txt"));
}

TEST_F(StartUpTest, AMissingDataFolderIsReportedWithTheNameLookedFor) {
  app_.Write("path.txt", "/nowhere/at all\r\n");
  EXPECT_NE(std::string::npos, ReportOfStart().find("/nowhere/at all"));
}

TEST_F(StartUpTest, AMissingGuestDatabaseIsReportedByName) {
  std::filesystem::remove(data_.File("Veyra.mdb"));
  app_.Write("path.txt", data_.Path());
  EXPECT_NE(std::string::npos, ReportOfStart().find("Veyra.mdb"));
}

/// A calendar whose row of colours was changed by hand.
class StoredColorTest : public StartUpTest {
 protected:
  StoredColorTest() { StartOnData(); }

  void Change(const std::function<void(Recordset&)>& change) {
    session_.ResCon.reset();
    session_.CurrentColors = {};
    Connection connection(data_.Calendar());
    change(*connection.Open("SELECT * FROM Settings", CursorType::StaticOptimistic));
  }

  static bool Has(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
  }

  /// Does what the report tells to do: runs the one command in it, and says yes.
  void FollowAdvice(const std::string& report) {
    session_.ResCon.reset();
    const std::size_t command = report.find("veyra-data check ");
    ASSERT_NE(std::string::npos, command) << report;
    const std::string folder = std::filesystem::path(VEYRA_DATA_PROGRAM).parent_path().string();
    const std::string line = "'" + folder + "/'" + report.substr(command) + " --yes";
    ASSERT_NE(-1, std::system((line + " >/dev/null 2>&1").c_str()));
  }
};

TEST_F(StoredColorTest, ThatIsNoNumberIsReportedByItsPlace) {
  Change([](Recordset& row) {
    row.SetField("HeaderTxt", std::string("blue"));
    row.Update();
  });
  const std::string report = ReportOfStart();
  EXPECT_TRUE(Has(report, data_.File("Calendar.mdb"))) << report;
  EXPECT_TRUE(Has(report, "The colour \"blue\" in column HeaderTxt of row 1 of the table Settings"))
      << report;
  EXPECT_TRUE(Has(report, "veyra-data check '" + data_.File("Calendar.mdb") + "' --mend"))
      << report;
}

TEST_F(StoredColorTest, ThatIsNoNumberIsMendedAsTheReportSays) {
  Change([](Recordset& row) {
    row.SetField("TodayBColor", std::string());
    row.Update();
  });
  FollowAdvice(ReportOfStart());
  EXPECT_EQ("no failure", ReportOfStart());
  EXPECT_EQ("1 -2147483643 12582912 0 255 -2147483643 \n", SettingsRows());
}

TEST_F(StoredColorTest, ThatIsMissingWithItsRowEndsTheStart) {
  Change([](Recordset& row) { row.Delete(); });
  const std::string report = ReportOfStart();
  EXPECT_TRUE(Has(report, data_.File("Calendar.mdb"))) << report;
  EXPECT_TRUE(Has(report, "The table Settings has no row 1")) << report;
  EXPECT_EQ("", SettingsRows());
}

TEST_F(StoredColorTest, ThatIsMissingWithItsRowIsMendedAsTheReportSays) {
  Change([](Recordset& row) { row.Delete(); });
  FollowAdvice(ReportOfStart());
  EXPECT_EQ("no failure", ReportOfStart());
  EXPECT_EQ("1 -2147483643 12582912 0 255 -2147483643 \n", SettingsRows());
}

}  // namespace
}  // namespace veyra
