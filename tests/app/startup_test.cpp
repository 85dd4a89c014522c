#include "app/startup.h"

#include <gtest/gtest.h>

#include "data/errors.h"
#include "tests/calendar_folder.h"
#include "tests/fake_clock.h"
#include "tests/fake_dialogs.h"
#include "tests/forms/fake_month_printer.h"
#include "tests/forms/fake_month_view.h"
#include "tests/forms/fake_windows.h"

namespace veyra {
namespace {

/// Starts the program with an application folder of its own beside a data folder.
class StartUpTest : public testing::Test {
 protected:
  void Start() { StartUp(session_, calendar_, dialogs_, app_.path().string()); }

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

  TempFolder app_;
  CalendarFolder data_;
  Session session_;
  FakeMonthView view_;
  FakeWindows windows_;
  FakeDialogs dialogs_;
  FakeClock clock_{2014, 3, 15};
  FakeMonthPrinter printer_;
  frmCalendar calendar_{session_, view_, windows_, dialogs_, clock_, printer_};
};

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

TEST_F(StartUpTest, TheSharedStateIsThatOfAFreshRun) {
  data_.AddRoom("Pool", true);
  StartOnData();
  EXPECT_FALSE(session_.IsLoading);
  EXPECT_FALSE(session_.PrintLayoutOn);
  EXPECT_EQ(1, session_.CurRmID);
  EXPECT_EQ(1, session_.DayOpener);
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
  EXPECT_EQ("1 Pool\n2 Hall active\n", data_.Rooms());
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

TEST_F(StartUpTest, TheSecondLineOfPathTxtIsNotUsed) {
  app_.Write("path.txt", data_.Path() + "\r\n/nowhere\r\n");
  Start();
  EXPECT_EQ(data_.Path(), session_.DataFolder);
}

TEST_F(StartUpTest, AnEmptyPathTxtIsReportedByName) {
  app_.Write("path.txt", "");
  EXPECT_NE(std::string::npos, ReportOfStart().find("path.txt"));
  EXPECT_EQ("", app_.Read("path.txt"));
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

TEST_F(StartUpTest, AStoredColorThatIsNoNumberIsReportedByItsColumn) {
  StartOnData();
  {
    Connection connection(data_.Calendar());
    const auto row = connection.Open("SELECT * FROM Settings", CursorType::StaticOptimistic);
    row->SetField("HeaderTxt", std::string("blue"));
    row->Update();
  }
  EXPECT_NE(std::string::npos, ReportOfStart().find("HeaderTxt"));
}

TEST_F(StartUpTest, ASettingsTableWithoutItsRowEndsTheStart) {
  StartOnData();
  {
    Connection connection(data_.Calendar());
    connection.Open("SELECT * FROM Settings", CursorType::StaticOptimistic)->Delete();
  }
  Session second;
  frmCalendar again(second, view_, windows_, dialogs_, clock_, printer_);
  EXPECT_THROW(StartUp(second, again, dialogs_, app_.path().string()), ValueError);
  EXPECT_EQ("", SettingsRows());
}

}  // namespace
}  // namespace veyra
