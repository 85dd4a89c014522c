#include <QPushButton>
#include <vector>

#include "forms/month/qt_month_window.h"
#include "tests/qt/month_window_fixture.h"

namespace veyra {
namespace {

/// The controls that are away after a print.
class HiddenControlsTest : public MonthWindowFixture {};

TEST_F(HiddenControlsTest, KeepTheirPlace) {
  FakeDialogs dialogs;
  const HandlerGuard guard(dialogs);
  QtMonthWindow window(guard);
  window.PlaceAtTopCentre();
  window.show();
  const QRect place = In<QPushButton>(&window, "Command2").geometry();
  const QRect title = In<QLabel>(&window, "lblMonth").geometry();
  window.ShowControls(false);
  QCoreApplication::processEvents();
  EXPECT_FALSE(In<QPushButton>(&window, "Command2").isVisible());
  EXPECT_FALSE(In<QComboBox>(&window, "Combo1").isVisible());
  EXPECT_FALSE(In<QLabel>(&window, "Label1").isVisible());
  EXPECT_EQ(title, In<QLabel>(&window, "lblMonth").geometry());
  window.ShowControls(true);
  QCoreApplication::processEvents();
  EXPECT_EQ(place, In<QPushButton>(&window, "Command2").geometry());
}

TEST_F(HiddenControlsTest, AnyKeyButAModifierBringsTheHiddenControlsBack) {
  Start();
  auto* window = static_cast<QtMonthWindow*>(Month());
  for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_X, Qt::Key_PageDown}) {
    window->ShowControls(false);
    for (const Qt::Key modifier : {Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_CapsLock}) {
      QTest::keyClick(&List(21), modifier);
    }
    EXPECT_FALSE(Find<QPushButton>("Command3").isVisible());
    QTest::keyClick(&List(21), key);
    EXPECT_TRUE(Find<QPushButton>("Command3").isVisible()) << key;
    EXPECT_TRUE(Find<QComboBox>("Combo1").isVisible()) << key;
  }
}

/// Keeps the names of the controls that go, in their order.
class GoneControls : public QObject {
 public:
  std::vector<std::string> Names;

 protected:
  bool eventFilter(QObject* control, QEvent* event) override {
    if (event->type() == QEvent::Hide) {
      Names.push_back(control->objectName().toStdString());
    }
    return false;
  }
};

TEST_F(HiddenControlsTest, TheControlsGoInTheirOrder) {
  Start();
  GoneControls gone;
  for (const char* name : {"Combo1", "Command1", "Command2", "Command3", "Command4"}) {
    Find<QWidget>(QLatin1String(name)).installEventFilter(&gone);
  }
  static_cast<QtMonthWindow*>(Month())->ShowControls(false);
  EXPECT_EQ((std::vector<std::string>{"Command1", "Command2", "Command4", "Command3", "Combo1"}),
            gone.Names);
}

}  // namespace
}  // namespace veyra
