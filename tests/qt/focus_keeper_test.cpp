#include <gtest/gtest.h>

#include <QApplication>
#include <QCursor>
#include <QStyleHints>
#include <QTest>

#include "forms/widgets/qt_focus_keeper.h"

namespace veyra {
namespace {

/// A click has opened a window; the second click of a double click goes to another one.
class QtFocusKeeperTest : public testing::Test {
 protected:
  QtFocusKeeperTest() {
    QGuiApplication::styleHints()->setMouseDoubleClickInterval(100);
    ShowAndWait(beside_);
    QCursor::setPos(10, 10);
  }
  ~QtFocusKeeperTest() override { QGuiApplication::styleHints()->setMouseDoubleClickInterval(-1); }

  static void ShowAndWait(QWidget& window) {
    window.show();
    window.activateWindow();
    EXPECT_TRUE(WaitFor(window));
  }
  static bool WaitFor(QWidget& window) {
    return QTest::qWaitFor([&window] { return QApplication::activeWindow() == &window; }, 2000);
  }

  void OpenByClick(QWidget& window) {
    keeper_.Pressed(QCursor::pos());
    ShowAndWait(window);
    keeper_.Shown(&window);
  }

  void ClickBeside() {
    beside_.activateWindow();
    EXPECT_TRUE(WaitFor(beside_));
  }

  /// Waits for a double click that begins now to be over, and for its answer.
  static void WaitForTheEnd() { QTest::qWait(350); }

  QtFocusKeeper keeper_;
  QWidget beside_;
  QWidget opened_;
  QWidget box_;
};

TEST_F(QtFocusKeeperTest, TheOpenedWindowHasTheKeyboardAfterwards) {
  OpenByClick(opened_);
  ClickBeside();
  EXPECT_TRUE(WaitFor(opened_));
}

TEST_F(QtFocusKeeperTest, OfTwoWindowsTheNewestHasIt) {
  OpenByClick(opened_);
  OpenByClick(box_);
  ClickBeside();
  EXPECT_TRUE(WaitFor(box_));
}

TEST_F(QtFocusKeeperTest, WhenTheNewestIsClosedTheOneBeforeHasIt) {
  OpenByClick(opened_);
  OpenByClick(box_);
  box_.hide();
  keeper_.Hidden(&box_);
  ClickBeside();
  EXPECT_TRUE(WaitFor(opened_));
}

TEST_F(QtFocusKeeperTest, AWindowThatTakesNoInputIsLeftAlone) {
  OpenByClick(opened_);
  OpenByClick(box_);
  box_.setEnabled(false);
  ClickBeside();
  EXPECT_TRUE(WaitFor(opened_));
}

TEST_F(QtFocusKeeperTest, WhoHasMovedTheMouseOnStaysWhereHeClicked) {
  OpenByClick(opened_);
  QCursor::setPos(60, 10);
  ClickBeside();
  WaitForTheEnd();
  EXPECT_EQ(&beside_, QApplication::activeWindow());
}

TEST_F(QtFocusKeeperTest, AWindowThatNoClickOpenedIsLeftAlone) {
  QCursor::setPos(0, 0);
  ShowAndWait(opened_);
  keeper_.Shown(&opened_);
  ClickBeside();
  WaitForTheEnd();
  EXPECT_EQ(&beside_, QApplication::activeWindow());
}

}  // namespace
}  // namespace veyra
