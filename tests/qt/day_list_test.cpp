#include <gtest/gtest.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QImage>
#include <QKeyEvent>
#include <QTest>
#include <algorithm>
#include <string>
#include <utility>

#include "forms/month/qt_day_list.h"
#include "forms/widgets/qt_gesture_guard.h"

namespace veyra {
namespace {

/// What a list reports.
class DayListGestures : public testing::Test {
 protected:
  DayListGestures() {
    QObject::connect(&list_, &QtDayList::Pressed, [this](MouseButton button) {
      log_ += button == MouseButton::Right ? "right " : "left ";
    });
  }

  QtDayList list_;
  std::string log_;
};

TEST_F(DayListGestures, TheRightButtonIsReportedOnce) {
  list_.show();
  QTest::mousePress(list_.viewport(), Qt::RightButton, {}, QPoint(5, 5));
  QContextMenuEvent menu(QContextMenuEvent::Mouse, QPoint(5, 5), QPoint(5, 5));
  QApplication::sendEvent(list_.viewport(), &menu);
  QTest::mouseRelease(list_.viewport(), Qt::RightButton, {}, QPoint(5, 5));
  EXPECT_EQ("right ", log_);
}

TEST_F(DayListGestures, TheMenuKeyMeansTheRightButton) {
  QContextMenuEvent menu(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(5, 5));
  QApplication::sendEvent(&list_, &menu);
  QTest::keyClick(&list_, Qt::Key_Menu);
  EXPECT_EQ("right ", log_);
}

TEST_F(DayListGestures, ShiftF10MeansTheRightButton) {
  QTest::keyClick(&list_, Qt::Key_F10, Qt::ShiftModifier);
  EXPECT_EQ("right ", log_);
}

TEST_F(DayListGestures, AKeyHeldDownIsOneClick) {
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Menu}) {
    QTest::keyPress(&list_, key);
    QKeyEvent repeat(QEvent::KeyPress, key, Qt::NoModifier, {}, true);
    QApplication::sendEvent(&list_, &repeat);
    QTest::keyRelease(&list_, key);
  }
  EXPECT_EQ("left right ", log_);
}

/// The platform does not always know that a press is a repeat.
TEST_F(DayListGestures, SoItIsWhenItsRepeatsLookLikePresses) {
  const QtGestureGuard guard;
  list_.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&list_));
  for (int repeat = 0; repeat < 5; ++repeat) {
    QTest::keyClick(list_.windowHandle(), Qt::Key_Return);
  }
  EXPECT_EQ("left ", log_);
}

TEST_F(DayListGestures, AListThatItsOwnPressHidesSurvives) {
  list_.show();
  QObject::connect(&list_, &QtDayList::Pressed, [this] { list_.hide(); });
  QTest::mousePress(list_.viewport(), Qt::LeftButton, {}, QPoint(5, 5));
  QTest::mouseRelease(list_.viewport(), Qt::LeftButton, {}, QPoint(5, 5));
  EXPECT_EQ("left ", log_);
  EXPECT_FALSE(list_.isVisible());
}

/// The first and the last column of the list with anything but its background in them.
std::pair<int, int> ColumnsWithInk(QtDayList& list) {
  const QImage picture = list.viewport()->grab().toImage();
  int first = picture.width();
  int last = -1;
  for (int x = 0; x < picture.width(); ++x) {
    for (int y = 0; y < picture.height(); ++y) {
      if (picture.pixel(x, y) != picture.pixel(0, picture.height() - 1)) {
        first = std::min(first, x);
        last = std::max(last, x);
      }
    }
  }
  return {first, last};
}

class DayListDirection : public testing::TestWithParam<const char*> {
 protected:
  void Show(Qt::LayoutDirection direction) {
    list_.setLayoutDirection(direction);
    list_.resize(400, 60);
    list_.ShowLines({GetParam()}, false);
  }

  QtDayList list_;
};

TEST_P(DayListDirection, ALineBeginsAtTheLeft) {
  Show(Qt::LeftToRight);
  const auto [first, last] = ColumnsWithInk(list_);
  EXPECT_LT(first, 20);
  EXPECT_LT(last, 200);
}

TEST_P(DayListDirection, OnADesktopFromTheRightItStandsAtTheRight) {
  Show(Qt::RightToLeft);
  const auto [first, last] = ColumnsWithInk(list_);
  EXPECT_GT(first, 200);
  EXPECT_GT(last, 380);
}

INSTANTIATE_TEST_SUITE_P(Lines, DayListDirection,
                         testing::Values("12:00A- 1:00A Ann", "12:00A- 1:00A Müller"));

}  // namespace
}  // namespace veyra
