#include <gtest/gtest.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QTest>
#include <string>

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

}  // namespace
}  // namespace veyra
