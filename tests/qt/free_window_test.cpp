#include <QAbstractItemView>
#include <QAction>
#include <QCheckBox>
#include <QScrollBar>
#include <QWindow>

#include "tests/qt/month_window_fixture.h"

namespace veyra {
namespace {

/// The window of free times, from the keyboard.
class FreeWindowTest : public MonthWindowFixture {
 protected:
  static QWidget* Free() { return Window("frmFree"); }
  template <typename Control>
  static Control& Of(const char* name) {
    return In<Control>(Free(), QLatin1String(name));
  }
  static QListWidget& Found() { return Of<QListWidget>("List1"); }
  static std::string State() { return Of<QLabel>("lblState").text().toStdString(); }

  void StartAndOpen() {
    Start();
    Key(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_NE(nullptr, Free());
    ASSERT_TRUE(IsInUse(Free()));
    Await();
  }

  static void Await() {
    ASSERT_TRUE(QTest::qWaitFor([] { return State() != "Looking ..."; }));
  }

  /// Only the 15th, for three hours from 9:00 AM to 9:00 PM.
  static void WishThreeHours() {
    Of<QComboBox>("Length").setCurrentIndex(5);
    Of<QComboBox>("Hours(0)").setCurrentIndex(18);
    Of<QComboBox>("Hours(1)").setCurrentIndex(41);
    Of<QLineEdit>("Text1(1)").setText(QStringLiteral("3/15/2014"));
    Await();
  }

  static std::string Selection() {
    std::string rows;
    for (int row = 1; row <= 48; ++row) {
      if (Grid().selectionModel()->isRowSelected(row - 1)) {
        rows += std::to_string(row) + " ";
      }
    }
    return rows;
  }
};

TEST_F(FreeWindowTest, TheLastLinesSeenAreNotCut) {
  for (int number = 1; number <= 10; ++number) {
    data_.AddRoom("Room " + std::to_string(number), false);
  }
  StartAndOpen();
  for (int height = 420; height < 450; ++height) {
    Free()->resize(Free()->width(), height);
    for (QListWidget* list : {&Found(), &Of<QListWidget>("Facilities")}) {
      EXPECT_EQ(0, list->viewport()->height() % list->sizeHintForRow(0)) << height;
    }
  }
}

TEST_F(FreeWindowTest, SixFacilitiesAreSeenWithoutAScrollBar) {
  for (int number = 1; number <= 4; ++number) {
    data_.AddRoom("Room " + std::to_string(number), false);
  }
  StartAndOpen();
  ASSERT_EQ(6, Of<QListWidget>("Facilities").count());
  EXPECT_FALSE(Of<QListWidget>("Facilities").verticalScrollBar()->isVisible());
}

TEST_F(FreeWindowTest, EnterOpensTheDayWithItsRowsChosenAndEnterThereBooksThem) {
  data_.AddBooking(hall_, "2014-03-15", 19, 42, "Smith");
  data_.AddBooking(pool_, "2014-03-15", 19, 30, "Smith");
  StartAndOpen();
  WishThreeHours();
  ASSERT_EQ(1, Found().count());
  EXPECT_EQ("Saturday, 3/15/2014,  3:00P- 9:00P, Pool", Found().item(0)->text().toStdString());
  QTest::keyClick(&Of<QLineEdit>("Text1(1)"), Qt::Key_Return);
  ASSERT_NE(nullptr, Day());
  EXPECT_EQ(nullptr, Free());
  EXPECT_EQ("  3/15/2014 Bookings", Day()->windowTitle().toStdString());
  EXPECT_EQ("31 32 33 34 35 36 ", Selection());
  const QRect first = Grid().visualRect(Grid().model()->index(30, 1));
  EXPECT_TRUE(Grid().viewport()->rect().contains(first)) << first.top();
  EXPECT_EQ(std::string::npos, data_.Bookings().find("31-36"));
  Grid().setFocus(Qt::TabFocusReason);
  dialogs_.AnswerNext(Answer::Ok);
  QTest::keyClick(&Grid(), Qt::Key_Return);
  EXPECT_NE(std::string::npos, data_.Bookings().find("1 2014-03-15 31-36"));
  Day()->close();
  EXPECT_TRUE(QTest::qWaitForWindowActive(Month()));
  EXPECT_EQ("Pool", Label("lblRoom").text().toStdString());
}

TEST_F(FreeWindowTest, EarlyRowsAreBroughtInSight) {
  StartAndOpen();
  WishThreeHours();
  Of<QComboBox>("Hours(0)").setCurrentIndex(0);
  Await();
  QTest::keyClick(&Found(), Qt::Key_Return);
  ASSERT_NE(nullptr, Day());
  EXPECT_EQ("1 2 3 4 5 6 ", Selection());
  EXPECT_TRUE(Grid().viewport()->rect().contains(Grid().visualRect(Grid().model()->index(0, 1))));
}

TEST_F(FreeWindowTest, ADoubleClickOpensTheDayAndAClickOnlyChooses) {
  StartAndOpen();
  WishThreeHours();
  const QPoint second = Found().visualItemRect(Found().item(1)).center();
  QTest::mouseClick(Found().viewport(), Qt::LeftButton, {}, second);
  EXPECT_EQ(nullptr, Day());
  QTest::mouseDClick(Found().viewport(), Qt::LeftButton, {}, second);
  ASSERT_NE(nullptr, Day());
  EXPECT_EQ("Hall, Saturday", In<QLabel>(Day(), QStringLiteral("heading")).text().toStdString());
}

TEST_F(FreeWindowTest, DownInADateChoosesALine) {
  StartAndOpen();
  QTest::keyClick(&Of<QLineEdit>("Text1(0)"), Qt::Key_Down);
  EXPECT_EQ(1, Found().currentRow());
}

TEST_F(FreeWindowTest, TheTicksOfTheFacilitiesDecide) {
  StartAndOpen();
  WishThreeHours();
  ASSERT_EQ(2, Found().count());
  auto& facilities = Of<QListWidget>("Facilities");
  facilities.setFocus();
  QTest::keyClick(&facilities, Qt::Key_Space);
  Await();
  EXPECT_EQ(1, Found().count());
  EXPECT_FALSE(Of<QCheckBox>("All").isChecked());
  Of<QCheckBox>("All").click();
  Await();
  EXPECT_EQ(2, Found().count());
  Of<QCheckBox>("All").click();
  EXPECT_EQ("Tick at least one facility.", State());
}

TEST_F(FreeWindowTest, AWeekdayThatIsNotTickedIsNotLookedAt) {
  StartAndOpen();
  WishThreeHours();
  Of<QCheckBox>("Days(7)").click();
  EXPECT_EQ("None of these dates falls on a ticked weekday.", State());
  EXPECT_EQ(0, Found().count());
}

TEST_F(FreeWindowTest, EnterOnNothingDoesNothing) {
  StartAndOpen();
  Of<QLineEdit>("Text1(0)").setText(QStringLiteral("soon"));
  QTest::keyClick(&Of<QLineEdit>("Text1(0)"), Qt::Key_Return);
  EXPECT_NE(nullptr, Free());
  EXPECT_EQ(nullptr, Day());
}

TEST_F(FreeWindowTest, EscapeClosesAnOpenListAndNotTheWindow) {
  StartAndOpen();
  Of<QComboBox>("Length").showPopup();
  ASSERT_TRUE(Of<QComboBox>("Length").view()->isVisible());
  QTest::keyClick(Free()->windowHandle(), Qt::Key_Escape);
  EXPECT_FALSE(Of<QComboBox>("Length").view()->isVisible());
  ASSERT_NE(nullptr, Free());
}

TEST_F(FreeWindowTest, WhileItIsOpenTheMonthWaitsAndEscapeClosesIt) {
  StartAndOpen();
  WishThreeHours();
  EXPECT_FALSE(Month()->isEnabled());
  QTest::keyClick(&Found(), Qt::Key_Escape);
  EXPECT_EQ(nullptr, Free());
  EXPECT_TRUE(Month()->isEnabled());
  Find<QAction>("mnuFreeTime").trigger();
  ASSERT_NE(nullptr, Free());
  EXPECT_EQ("3 h", Of<QComboBox>("Length").currentText().toStdString());
}

TEST_F(FreeWindowTest, EveryFieldHasASpokenName) {
  StartAndOpen();
  for (const char* name : {"Length", "Hours(0)", "Hours(1)", "Text1(0)", "Text1(1)", "Days(1)",
                           "Days(7)", "All", "Facilities", "List1"}) {
    EXPECT_FALSE(Of<QWidget>(name).accessibleName().isEmpty()) << name;
  }
}

}  // namespace
}  // namespace veyra
