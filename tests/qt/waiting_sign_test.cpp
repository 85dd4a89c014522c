#include <gtest/gtest.h>

#include <QApplication>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "forms/widgets/qt_waiting_sign.h"
#include "tests/fake_dialogs.h"

namespace veyra {
namespace {

using std::chrono::milliseconds;

/// A store that waits, below a window with a button.
class WaitingSignTest : public testing::Test {
 protected:
  WaitingSignTest() {
    QObject::connect(&button_, &QPushButton::clicked, [this] { clicked_ = true; });
    window_.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
  }
  ~WaitingSignTest() override { sign_.WaitEnded(); }

  bool StillWaiting(int waited) {
    return sign_.StillWaiting("/data/Calendar.mdb", milliseconds(waited));
  }

  static QProgressDialog* Box() {
    return qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
  }

  QWidget window_;
  QPushButton button_{QStringLiteral("Push"), &window_};
  bool clicked_ = false;
  FakeDialogs dialogs_;
  HandlerGuard guard_{dialogs_};
  QtWaitingSign sign_{guard_};
};

TEST_F(WaitingSignTest, NothingIsSeenOrDoneInTheFirstHalfSecond) {
  bool looked = false;
  QTimer event;
  event.setSingleShot(true);
  QObject::connect(&event, &QTimer::timeout, [&] { looked = true; });
  event.start(0);
  EXPECT_TRUE(StillWaiting(0));
  EXPECT_TRUE(StillWaiting(499));
  EXPECT_EQ(nullptr, Box());
  EXPECT_FALSE(looked);
}

TEST_F(WaitingSignTest, TheBoxSaysWhatIsWaitedFor) {
  EXPECT_TRUE(StillWaiting(500));
  ASSERT_NE(nullptr, Box());
  EXPECT_EQ("Waiting for another program …\n/data/Calendar.mdb", Box()->labelText().toStdString());
}

TEST_F(WaitingSignTest, CancelEndsTheWaitAtOnce) {
  StillWaiting(500);
  Box()->findChild<QPushButton*>()->click();
  EXPECT_FALSE(StillWaiting(505));
}

TEST_F(WaitingSignTest, EscapeEndsTheWaitAtOnce) {
  StillWaiting(500);
  QTest::keyClick(Box(), Qt::Key_Escape);
  EXPECT_FALSE(StillWaiting(505));
}

TEST_F(WaitingSignTest, NoOtherWindowTakesInput) {
  StillWaiting(500);
  QTest::mouseClick(window_.windowHandle(), Qt::LeftButton, {}, button_.geometry().center());
  EXPECT_TRUE(StillWaiting(505));
  EXPECT_FALSE(clicked_);
}

TEST_F(WaitingSignTest, NoHandlerRunsWhileItIsShown) {
  int runs = 0;
  QTimer::singleShot(0, [&] { guard_.Run([&] { ++runs; }); });
  StillWaiting(500);
  StillWaiting(505);
  EXPECT_EQ(0, runs);
  sign_.WaitEnded();
  guard_.Run([&] { ++runs; });
  EXPECT_EQ(1, runs);
}

TEST_F(WaitingSignTest, TheBoxGoesWithTheWait) {
  StillWaiting(500);
  EXPECT_TRUE(sign_.IsWaiting());
  sign_.WaitEnded();
  EXPECT_FALSE(sign_.IsWaiting());
  EXPECT_EQ(nullptr, Box());
}

TEST_F(WaitingSignTest, TheNextWaitBeginsAfresh) {
  StillWaiting(500);
  Box()->findChild<QPushButton*>()->click();
  sign_.WaitEnded();
  EXPECT_TRUE(StillWaiting(0));
  EXPECT_TRUE(StillWaiting(500));
  EXPECT_NE(nullptr, Box());
}

}  // namespace
}  // namespace veyra
