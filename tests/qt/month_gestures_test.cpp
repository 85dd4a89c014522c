#include <QPushButton>
#include <QScrollBar>

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

}  // namespace
}  // namespace veyra
