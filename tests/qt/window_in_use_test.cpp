#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QWidget>

#include "forms/widgets/qt_window_in_use.h"

namespace veyra {
namespace {

TEST(WindowInUse, IsTheActiveOne) {
  QWidget other;
  other.show();
  QWidget window;
  window.show();
  ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; }));
  EXPECT_EQ(&window, WindowInUse());
}

/// As in the moment in which a box has gone and no window has been given the keyboard yet.
class NoWindowActive : public testing::Test {
 protected:
  static void Show(QWidget& window) {
    window.setAttribute(Qt::WA_ShowWithoutActivating);
    window.show();
    ASSERT_EQ(nullptr, QApplication::activeWindow());
  }
};

TEST_F(NoWindowActive, ItIsTheOneThatTakesInput) {
  QWidget help;
  help.setAttribute(Qt::WA_QuitOnClose, false);
  Show(help);
  QWidget month;
  month.setEnabled(false);
  Show(month);
  EXPECT_EQ(nullptr, WindowInUse());
  QWidget day;
  Show(day);
  EXPECT_EQ(&day, WindowInUse());
}

TEST_F(NoWindowActive, ThereMayBeNone) {
  const QWidget hidden;
  EXPECT_EQ(nullptr, WindowInUse());
}

}  // namespace
}  // namespace veyra
