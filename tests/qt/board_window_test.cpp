#include <QAction>
#include <QHeaderView>
#include <QPushButton>
#include <QScrollBar>

#include "tests/qt/month_window_fixture.h"

namespace veyra {
namespace {

/// The day board, by mouse and keys.
class BoardWindowTest : public MonthWindowFixture {
 protected:
  static QWidget* Board() { return Window("frmBoard"); }
  static QTableWidget& Cells() { return In<QTableWidget>(Board(), QStringLiteral("Grid1")); }
  static std::string At(int column, int row) {
    return Cells().item(row - 1, column)->text().toStdString();
  }

  void StartAndOpen() {
    Start();
    Key(Qt::Key_B, Qt::ControlModifier);
    ASSERT_NE(nullptr, Board());
    ASSERT_TRUE(IsInUse(Board()));
  }

  static void Press(int key) { QTest::keyClick(&Cells(), static_cast<Qt::Key>(key)); }

  static void ClickCell(int column, int row) {
    const QRect place = Cells().visualRect(Cells().model()->index(row - 1, column));
    QTest::mouseClick(Cells().viewport(), Qt::LeftButton, {}, place.center());
  }
};

TEST_F(BoardWindowTest, AllFacilitiesOfTheChosenDayStandSideBySide) {
  data_.AddBooking(hall_, "2014-03-15", 19, 20, "Smith");
  data_.AddBooking(pool_, "2014-03-16", 19, 20, "Jones");
  StartAndOpen();
  EXPECT_EQ("Day Board: Saturday, 3/15/2014", Board()->windowTitle().toStdString());
  ASSERT_EQ(2, Cells().columnCount());
  EXPECT_EQ("Hall", Cells().horizontalHeaderItem(1)->text().toStdString());
  EXPECT_EQ("Smith", At(1, 19));
  EXPECT_EQ("", At(0, 19));
  EXPECT_EQ("Hall, 9:00 AM, Smith",
            Cells().item(18, 1)->data(Qt::AccessibleTextRole).toString().toStdString());
  EXPECT_NE(Cells().item(18, 1)->background(), Cells().item(18, 0)->background());
  Press(Qt::Key_PageDown);
  EXPECT_EQ("Day Board: Sunday, 3/16/2014", Board()->windowTitle().toStdString());
  EXPECT_EQ("Jones", At(0, 19));
  EXPECT_EQ("", At(1, 19));
  EXPECT_EQ(Cells().item(18, 1)->background(), QBrush());
  Press(Qt::Key_PageUp);
  EXPECT_EQ("Smith", At(1, 19));
}

TEST_F(BoardWindowTest, TheLastRowSeenIsNotCut) {
  StartAndOpen();
  for (int height = 400; height < 440; ++height) {
    Board()->resize(Board()->width(), height);
    EXPECT_EQ(0, Cells().viewport()->height() % Cells().rowHeight(0)) << height;
  }
}

TEST_F(BoardWindowTest, AClickLeadsToTheDayAndWhatIsBookedThereIsSeenAfterwards) {
  StartAndOpen();
  ClickCell(0, 20);
  ASSERT_NE(nullptr, Day());
  EXPECT_EQ(nullptr, Board());
  EXPECT_EQ("  3/15/2014 Bookings", Day()->windowTitle().toStdString());
  dialogs_.AnswerNext(Answer::Ok);
  DragRows(20, 21);
  Day()->close();
  ASSERT_TRUE(QTest::qWaitFor([] { return Board() != nullptr; }));
  EXPECT_NE("", At(0, 20));
  EXPECT_NE("", At(0, 21));
  EXPECT_EQ("", At(1, 20));
  EXPECT_FALSE(Month()->isEnabled());
  Board()->close();
  EXPECT_TRUE(Month()->isEnabled());
  EXPECT_EQ("Pool", Label("lblRoom").text().toStdString());
}

TEST_F(BoardWindowTest, EnterOnACellOpensItsDayToo) {
  StartAndOpen();
  Press(Qt::Key_Right);
  Press(Qt::Key_Return);
  ASSERT_NE(nullptr, Day());
  EXPECT_EQ("Hall, Saturday", In<QLabel>(Day(), QStringLiteral("heading")).text().toStdString());
}

TEST_F(BoardWindowTest, ManyFacilitiesAreScrolledWhileTheTimesStay) {
  for (int room = 3; room <= 60; ++room) {
    data_.AddRoom("Room " + std::to_string(room));
  }
  StartAndOpen();
  ASSERT_EQ(60, Cells().columnCount());
  EXPECT_GE(Cells().columnWidth(0), 120);
  EXPECT_GT(Cells().horizontalScrollBar()->maximum(), 0);
  Cells().scrollTo(Cells().model()->index(20, 59));
  EXPECT_TRUE(Cells().verticalHeader()->isVisible());
  EXPECT_EQ("12:00 Noon", Cells().verticalHeaderItem(24)->text().toStdString());
  ClickCell(59, 21);
  ASSERT_NE(nullptr, Day());
  EXPECT_EQ("Room 60, Saturday", In<QLabel>(Day(), QStringLiteral("heading")).text().toStdString());
}

TEST_F(BoardWindowTest, ALongNameIsCutAtItsEnd) {
  data_.AddRoom("A name " + std::string(500, 'x'));
  StartAndOpen();
  const QString shown = Cells().horizontalHeaderItem(2)->text();
  EXPECT_TRUE(shown.startsWith(QStringLiteral("A name xxx"))) << shown.toStdString();
  EXPECT_TRUE(shown.endsWith(QChar(0x2026))) << shown.toStdString();
}

TEST_F(BoardWindowTest, FewFacilitiesFillTheWindow) {
  StartAndOpen();
  EXPECT_EQ(0, Cells().horizontalScrollBar()->maximum());
  EXPECT_GT(2 * Cells().columnWidth(0), Cells().viewport()->width() - 3);
}

TEST_F(BoardWindowTest, ItBeginsWithTheHoursWithWhichTheDayWindowBegins) {
  StartAndOpen();
  EXPECT_EQ(10, Cells().rowAt(0));
}

TEST_F(BoardWindowTest, TheKeysAndButtonsTurnTheDaysAndEscapeClosesIt) {
  StartAndOpen();
  In<QPushButton>(Board(), QStringLiteral("Command1")).click();
  In<QPushButton>(Board(), QStringLiteral("Command1")).click();
  EXPECT_EQ("Day Board: Monday, 3/17/2014", Board()->windowTitle().toStdString());
  QTest::keyClick(&Cells(), Qt::Key_T, Qt::ControlModifier);
  EXPECT_EQ("Day Board: Saturday, 3/15/2014", Board()->windowTitle().toStdString());
  EXPECT_FALSE(Month()->isEnabled());
  Press(Qt::Key_Escape);
  EXPECT_EQ(nullptr, Board());
  EXPECT_TRUE(Month()->isEnabled());
  PressDay(21);
  ASSERT_NE(nullptr, Day());
  Day()->close();
  EXPECT_EQ(nullptr, Board());
}

TEST_F(BoardWindowTest, WithoutAFacilityItSaysSo) {
  StartAndOpen();
  Board()->close();
  dialogs_.AnswerNext(Answer::Yes);
  dialogs_.AnswerNext(Answer::Yes);
  Find<QPushButton>("Command4").click();
  Find<QPushButton>("Command4").click();
  Find<QAction>("mnuDayBoard").trigger();
  ASSERT_NE(nullptr, Board());
  EXPECT_EQ("There is no facility yet.",
            In<QLabel>(Board(), QStringLiteral("lblState")).text().toStdString());
  Press(Qt::Key_Return);
  EXPECT_NE(nullptr, Board());
}

}  // namespace
}  // namespace veyra
