#include <sqlite3.h>

#include <QAction>
#include <QPushButton>
#include <QRadioButton>

#include "tests/qt/program_fixture.h"

namespace veyra {
namespace {

/// Whatever is closed in whatever order, by button, key or title bar: in the end the month window
/// stands there and takes input.
class ClosingOrderTest : public ProgramFixture {
 protected:
  void OpenViewer() {
    RightPressDay(21);
    ASSERT_NE(nullptr, Window("frmDayViewer"));
  }

  void OpenDayFromViewer() {
    OpenViewer();
    QTest::mouseClick(In<QListWidget>(Window("frmDayViewer"), "lstDay").viewport(), Qt::RightButton,
                      {}, QPoint(10, 10));
    ASSERT_NE(nullptr, Day());
    EXPECT_FALSE(Month()->isEnabled());
  }

  static void OpenPlan() {
    In<QRadioButton>(Day(), "Book(1)").click();
    ASSERT_NE(nullptr, Window("frmMultiDay"));
  }

  static void Close(const char* name) {
    ASSERT_NE(nullptr, Window(name));
    Window(name)->close();
  }

  void DropBookings() {
    sqlite3* database = nullptr;
    ASSERT_EQ(SQLITE_OK, sqlite3_open(data_.File("Calendar.mdb").c_str(), &database));
    EXPECT_EQ(SQLITE_OK, sqlite3_exec(database, "DROP TABLE Reserv", nullptr, nullptr, nullptr));
    sqlite3_close(database);
  }

  static void ExpectTheMonthAlone() {
    ASSERT_NE(nullptr, Month());
    EXPECT_TRUE(Month()->isEnabled());
    for (const char* name : {"frmDay", "frmDayViewer", "frmMultiDay", "frmSettings", "frmAbout"}) {
      EXPECT_EQ(nullptr, Window(name)) << name;
    }
  }
};

class WindowOverTheMonth : public ClosingOrderTest,
                           public testing::WithParamInterface<const char*> {
 protected:
  static void Open(const std::string& name) {
    if (name == "frmDayViewer") {
      RightPressDay(21);
    } else {
      In<QAction>(Month(), name == "frmAbout" ? "mnuAbout" : "mnuSettings").trigger();
    }
    ASSERT_NE(nullptr, Window(name.c_str()));
  }
};

TEST_P(WindowOverTheMonth, KeepsInputFromTheMonthUntilItsTitleBarClosesIt) {
  Start();
  Open(GetParam());
  EXPECT_FALSE(Month()->isEnabled());
  Close(GetParam());
  ExpectTheMonthAlone();
}

TEST_P(WindowOverTheMonth, ClosesByEscape) {
  Start();
  Open(GetParam());
  QWidget* window = Window(GetParam());
  ASSERT_TRUE(IsInUse(window));
  QTest::keyClick(window, Qt::Key_Escape);
  ExpectTheMonthAlone();
}

TEST_P(WindowOverTheMonth, CanBeOpenedAgain) {
  Start();
  for (int opening = 0; opening < 3; ++opening) {
    Open(GetParam());
    Close(GetParam());
  }
  ExpectTheMonthAlone();
}

TEST_P(WindowOverTheMonth, TheMonthCannotBeClosedUnderIt) {
  Start();
  Open(GetParam());
  EXPECT_FALSE(Month()->close());
  EXPECT_NE(nullptr, Month());
}

TEST_P(WindowOverTheMonth, GivesTheFocusBackToWhereItWas) {
  Start();
  List(21).setFocus();
  Open(GetParam());
  Close(GetParam());
  ASSERT_TRUE(IsInUse(Month()));
  EXPECT_TRUE(List(21).hasFocus());
}

INSTANTIATE_TEST_SUITE_P(All, WindowOverTheMonth,
                         testing::Values("frmDayViewer", "frmSettings", "frmAbout"),
                         [](const auto& test) { return std::string(test.param); });

TEST_F(ClosingOrderTest, ADayOpenedFromTheViewerReturnsToIt) {
  Start();
  OpenDayFromViewer();
  Close("frmDay");
  ASSERT_NE(nullptr, Window("frmDayViewer"));
  EXPECT_FALSE(Month()->isEnabled());
  Close("frmDayViewer");
  ExpectTheMonthAlone();
}

TEST_F(ClosingOrderTest, TheMonthCannotBeClosedUnderADayOpenedFromTheViewer) {
  Start();
  OpenDayFromViewer();
  EXPECT_FALSE(Month()->close());
  Close("frmDay");
  Close("frmDayViewer");
  ExpectTheMonthAlone();
}

TEST_F(ClosingOrderTest, ThePlanOfADayOpenedFromTheViewerClosesFirst) {
  Start();
  OpenDayFromViewer();
  OpenPlan();
  EXPECT_FALSE(Day()->close());
  Close("frmMultiDay");
  Close("frmDay");
  Close("frmDayViewer");
  ExpectTheMonthAlone();
}

TEST_F(ClosingOrderTest, ThePlanOfADayOpenedFromTheMonthClosesFirst) {
  StartAndOpenDay();
  OpenPlan();
  EXPECT_FALSE(Day()->close());
  Close("frmMultiDay");
  Close("frmDay");
  ExpectTheMonthAlone();
}

TEST_F(ClosingOrderTest, AfterTheViewerADayOfTheMonthReturnsToTheMonth) {
  Start();
  OpenViewer();
  Close("frmDayViewer");
  PressDay(21);
  Close("frmDay");
  ExpectTheMonthAlone();
}

TEST_F(ClosingOrderTest, AViewerThatCannotBeLoadedLeavesTheMonthInUse) {
  Start();
  DropBookings();
  RightPressDay(21);
  EXPECT_NE(std::string::npos, dialogs_.OnlyBox().find("Calendar.mdb"));
  ExpectTheMonthAlone();
}

}  // namespace
}  // namespace veyra
