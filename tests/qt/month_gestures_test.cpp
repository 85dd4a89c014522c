#include <QHelpEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QToolTip>

#include "tests/qt/month_window_fixture.h"

namespace veyra {
namespace {

/// Mouse and keys in the month window.
class MonthGesturesTest : public MonthWindowFixture {};

TEST_F(MonthGesturesTest, TheButtonsPage) {
  Start();
  QTest::mouseClick(&Find<QPushButton>("Command1"), Qt::LeftButton);
  EXPECT_EQ("April 2014", Title());
  QTest::mouseClick(&Find<QPushButton>("Command2"), Qt::LeftButton);
  QTest::mouseClick(&Find<QPushButton>("Command2"), Qt::LeftButton);
  EXPECT_EQ("February 2014", Title());
}

TEST_F(MonthGesturesTest, AButtonHeldDownGoesOnPaging) {
  Start();
  QTest::mousePress(&Find<QPushButton>("Command1"), Qt::LeftButton);
  EXPECT_TRUE(QTest::qWaitFor(
      [] { return Title() != "March 2014" && Title() != "April 2014" && Title() != "May 2014"; }));
  QTest::mouseRelease(&Find<QPushButton>("Command1"), Qt::LeftButton);
}

TEST_F(MonthGesturesTest, ThePageKeysPageFromAnywhere) {
  Start();
  Key(Qt::Key_PageDown);
  EXPECT_EQ("April 2014", Title());
  Facility().setFocus();
  Key(Qt::Key_PageUp);
  Key(Qt::Key_PageUp);
  EXPECT_EQ("February 2014", Title());
  EXPECT_EQ("Hall", Facility().currentText().toStdString());
}

TEST_F(MonthGesturesTest, TheFocusBeginsOnToday) {
  Start();
  EXPECT_EQ("lstDay(21)", FocusName());
}

TEST_F(MonthGesturesTest, TheArrowKeysMoveBetweenDaysAndAcrossWeeks) {
  Start();
  Key(Qt::Key_Right);
  EXPECT_EQ("lstDay(22)", FocusName());
  Key(Qt::Key_Left);
  EXPECT_EQ("lstDay(21)", FocusName());
  Key(Qt::Key_Up);
  EXPECT_EQ("lstDay(14)", FocusName());
  Key(Qt::Key_Down);
  EXPECT_EQ("lstDay(21)", FocusName());
}

TEST_F(MonthGesturesTest, TheArrowKeysStopAtTheEndsOfTheMonth) {
  Start();
  Key(Qt::Key_Home, Qt::ControlModifier);
  EXPECT_EQ("lstDay(7)", FocusName());
  Key(Qt::Key_Left);
  Key(Qt::Key_Up);
  EXPECT_EQ("lstDay(7)", FocusName());
  Key(Qt::Key_End);
  EXPECT_EQ("lstDay(37)", FocusName());
  Key(Qt::Key_Right);
  Key(Qt::Key_Down);
  EXPECT_EQ("lstDay(37)", FocusName());
}

TEST_F(MonthGesturesTest, ADayThatPagingHidesPassesTheFocusToTheNearestOne) {
  Start();
  Key(Qt::Key_End);
  Key(Qt::Key_PageDown);
  EXPECT_EQ("lstDay(32)", FocusName());
}

TEST_F(MonthGesturesTest, TheTabKeyGoesRoundTheControlsAndOneDay) {
  Start();
  std::string order;
  for (int i = 0; i < 6; ++i) {
    Key(Qt::Key_Tab);
    order += FocusName() + " ";
  }
  EXPECT_EQ("Combo1 Command4 Command2 Command1 Command3 lstDay(21) ", order);
}

TEST_F(MonthGesturesTest, EnterOpensTheDay) {
  Start();
  Key(Qt::Key_Right);
  Key(Qt::Key_Return);
  ASSERT_NE(nullptr, Day());
  EXPECT_EQ("  3/16/2014 Bookings", Day()->windowTitle().toStdString());
  EXPECT_EQ(nullptr, Month());
}

TEST_F(MonthGesturesTest, TheLeftButtonOpensTheDayAsItGoesDown) {
  Start();
  QWidget* list = List(22).viewport();
  QTest::mousePress(list, Qt::LeftButton, {}, QPoint(10, 5));
  ASSERT_NE(nullptr, Day());
  EXPECT_EQ("  3/16/2014 Bookings", Day()->windowTitle().toStdString());
  QTest::mouseRelease(list, Qt::LeftButton, {}, QPoint(10, 5));
}

TEST_F(MonthGesturesTest, AnotherButtonOpensNothing) {
  Start();
  PressDay(22, Qt::MiddleButton);
  EXPECT_EQ(nullptr, Day());
}

TEST_F(MonthGesturesTest, ScrollingALongLineOpensNothing) {
  data_.AddBooking(hall_, "2014-03-16", 19, 21, std::string(200, 'x'));
  Start();
  QScrollBar* bar = List(22).horizontalScrollBar();
  ASSERT_TRUE(QTest::qWaitFor([bar] { return bar->isVisible() && bar->maximum() > 0; }));
  QTest::mouseClick(bar, Qt::LeftButton, {}, QPoint(bar->width() - 2, 3));
  EXPECT_EQ(nullptr, Day());
  EXPECT_GT(bar->value(), 0);
}

TEST_F(MonthGesturesTest, ControlWithAnArrowKeyScrollsTheList) {
  data_.AddBooking(hall_, "2014-03-15", 19, 21, std::string(200, 'x'));
  Start();
  Key(Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ("lstDay(21)", FocusName());
  EXPECT_GT(List(21).horizontalScrollBar()->value(), 0);
}

class DayCellTest : public MonthWindowFixture {
 protected:
  static std::string ToolTipAt(const QPoint& place) {
    QHelpEvent help(QEvent::ToolTip, place, List(21).viewport()->mapToGlobal(place));
    QApplication::sendEvent(List(21).viewport(), &help);
    return QToolTip::text().toStdString();
  }
};

TEST_F(DayCellTest, AClickOnTheNumberOpensTheDay) {
  Start();
  QTest::mouseClick(&Number(21), Qt::LeftButton);
  ASSERT_NE(nullptr, Day());
  EXPECT_EQ("  3/15/2014 Bookings", Day()->windowTitle().toStdString());
}

TEST_F(DayCellTest, AClickBelowTheListOpensTheDay) {
  Start();
  QWidget* cell = List(21).parentWidget();
  QTest::mouseClick(cell, Qt::LeftButton, {}, QPoint(cell->width() / 2, cell->height() - 2));
  EXPECT_NE(nullptr, Day());
}

TEST_F(DayCellTest, TheRightButtonOnTheNumberShowsTheDayLarge) {
  Start();
  QTest::mousePress(&Number(21), Qt::RightButton);
  // By the time the button is let go the month window takes no input.
  QListWidget elsewhere;
  QTest::mouseRelease(elsewhere.viewport(), Qt::RightButton);
  EXPECT_NE(nullptr, Window("frmDayViewer"));
}

TEST_F(DayCellTest, WhereThereIsNoDayNothingOpens) {
  Start();
  QWidget* cell = List(42).parentWidget();
  QTest::mouseClick(cell, Qt::LeftButton);
  EXPECT_EQ(nullptr, Day());
}

TEST_F(DayCellTest, OverACutLineAllOfItComesUpAndElsewhereTheFixedHint) {
  const std::string name(100, 'x');
  data_.AddBooking(hall_, "2014-03-15", 19, 20, name);
  data_.AddBooking(hall_, "2014-03-15", 25, 25, "A");
  Start();
  Month()->resize(1200, 760);
  QCoreApplication::processEvents();
  const auto middle = [](int row) {
    return List(21)
        .visualItemRect(List(21).item(row))
        .intersected(List(21).viewport()->rect())
        .center();
  };
  EXPECT_NE(std::string::npos, ToolTipAt(middle(0)).find(name));
  EXPECT_EQ(0U, ToolTipAt(middle(1)).find("Left Click to Add/Change"));
  EXPECT_NE(std::string::npos, ToolTipAt(middle(0)).find(name));
  const QPoint below(5, List(21).viewport()->height() - 2);
  EXPECT_EQ(0U, ToolTipAt(below).find("Left Click to Add/Change"));
}

}  // namespace
}  // namespace veyra
