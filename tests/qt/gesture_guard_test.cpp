#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPushButton>
#include <QStyleHints>
#include <QTest>

#include "forms/widgets/qt_gesture_guard.h"

namespace veyra {
namespace {

/// A window with a button that opens a box, with a button of its own. Events come as from the
/// screen, to the window, and bear the times that the tests give them.
class QtGestureGuardTest : public testing::Test {
 protected:
  QtGestureGuardTest() {
    window_.resize(300, 200);
    open_.setGeometry(10, 10, 100, 30);
    open_.setAutoDefault(true);
    field_.setGeometry(10, 50, 100, 30);
    QObject::connect(&open_, &QPushButton::clicked, [this] { box_.show(); });
    answer_.resize(100, 30);
    answer_.setAutoDefault(true);
    QObject::connect(&answer_, &QPushButton::clicked, [this] { ++answers_; });
  }

  void Show(QWidget& focus) {
    window_.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
    focus.setFocus();
  }

  void WaitForBox() {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&box_));
    answer_.setFocus();
  }

  /// As the platform does it: a press is offered as a shortcut first.
  static void SendKey(QWidget& to, QEvent::Type type, int key, quint64 at,
                      const QString& text = {}) {
    if (type == QEvent::KeyPress) {
      QKeyEvent offer(QEvent::ShortcutOverride, key, Qt::NoModifier, text);
      offer.setTimestamp(at);
      QCoreApplication::sendEvent(to.windowHandle(), &offer);
    }
    QKeyEvent event(type, key, Qt::NoModifier, text);
    event.setTimestamp(at);
    QCoreApplication::sendEvent(to.windowHandle(), &event);
  }

  static void Press(QWidget& to, int key, quint64 at, const QString& text = {}) {
    SendKey(to, QEvent::KeyPress, key, at, text);
  }
  static void Release(QWidget& to, int key, quint64 at) {
    SendKey(to, QEvent::KeyRelease, key, at);
  }
  static void Repeat(QWidget& to, int key, quint64 from, quint64 until) {
    for (quint64 at = from; at < until; at += 40) {
      Release(to, key, at);
      Press(to, key, at);
    }
  }

  static void SendMouse(QWidget& to, QEvent::Type type, const QPoint& screen_place, quint64 at) {
    QWindow* window = to.windowHandle();
    const QPoint place = window->mapFromGlobal(screen_place);
    const bool release = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, place, place, screen_place, Qt::LeftButton,
                      release ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    event.setTimestamp(at);
    QCoreApplication::sendEvent(window, &event);
  }

  static void Click(QWidget& to, const QPoint& screen_place, quint64 at) {
    SendMouse(to, QEvent::MouseButtonPress, screen_place, at);
    SendMouse(to, QEvent::MouseButtonRelease, screen_place, at + 10);
  }

  /// Opens the box by a click in the middle of the button, with its own button at the same place.
  QPoint OpenBoxByClick(quint64 at) {
    Show(open_);
    const QPoint place = open_.mapToGlobal(open_.rect().center());
    box_.move(place - answer_.rect().center());
    Click(window_, place, at);
    WaitForBox();
    return answer_.mapToGlobal(answer_.rect().center());
  }

  QtGestureGuard guard_;
  QWidget window_;
  QPushButton open_{&window_};
  QLineEdit field_{&window_};
  QDialog box_;
  QPushButton answer_{&box_};
  int answers_ = 0;
};

class AnsweringKey : public QtGestureGuardTest, public testing::WithParamInterface<int> {};

TEST_P(AnsweringKey, DoesNotAnswerTheBoxThatItOpenedUntilItIsPressedAgain) {
  const int key = GetParam();
  Show(open_);
  Press(window_, key, 1000);
  box_.show();
  WaitForBox();
  Repeat(box_, key, 1660, 3000);
  Release(box_, key, 3000);
  EXPECT_EQ(0, answers_);
  Press(box_, key, 3100);
  Release(box_, key, 3150);
  EXPECT_EQ(1, answers_);
}

INSTANTIATE_TEST_SUITE_P(All, AnsweringKey,
                         testing::Values(Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space));

TEST_F(QtGestureGuardTest, AHeldKeyDoesNotChooseAShortcutOfTheBoxThatItOpened) {
  Show(open_);
  Press(window_, Qt::Key_Y, 1000);
  box_.show();
  WaitForBox();
  Release(box_, Qt::Key_Y, 1660);
  QKeyEvent offer(QEvent::ShortcutOverride, Qt::Key_Y, Qt::NoModifier);
  offer.ignore();
  offer.setTimestamp(1660);
  QCoreApplication::sendEvent(box_.windowHandle(), &offer);
  EXPECT_TRUE(offer.isAccepted()) << "it is still offered as a shortcut";
}

TEST_F(QtGestureGuardTest, AHeldKeyDoesNothingBehindTheBoxThatItClosed) {
  QObject::connect(&answer_, &QPushButton::clicked, &box_, &QWidget::hide);
  Show(open_);
  box_.show();
  WaitForBox();
  Press(box_, Qt::Key_Return, 1000);
  ASSERT_FALSE(box_.isVisible());
  Repeat(window_, Qt::Key_Return, 1660, 2000);
  EXPECT_FALSE(box_.isVisible());
}

/// A control that counts the presses of keys.
class KeyCounter : public QWidget {
 public:
  explicit KeyCounter(QWidget* parent) : QWidget(parent) { setFocusPolicy(Qt::StrongFocus); }
  int Presses = 0;

 protected:
  void keyPressEvent(QKeyEvent*) override { ++Presses; }
};

TEST_F(QtGestureGuardTest, AMenuKeyThatIsHeldDoesNothingInTheBoxThatItHasOpened) {
  KeyCounter within(&box_);
  Show(open_);
  Press(window_, Qt::Key_Menu, 1000);
  box_.show();
  WaitForBox();
  within.setFocus();
  Repeat(box_, Qt::Key_Menu, 1660, 1740);
  EXPECT_EQ(0, within.Presses);
  Release(box_, Qt::Key_Menu, 1740);
  Press(box_, Qt::Key_Menu, 2000);
  EXPECT_EQ(1, within.Presses) << "the next press";
}

TEST_F(QtGestureGuardTest, AnArrowKeyGoesOnInTheBox) {
  QListWidget list(&box_);
  list.addItems({QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")});
  list.setCurrentRow(0);
  Show(open_);
  Press(window_, Qt::Key_Down, 1000);
  box_.show();
  WaitForBox();
  list.setFocus();
  Repeat(box_, Qt::Key_Down, 1660, 1740);
  EXPECT_EQ(2, list.currentRow());
}

TEST_F(QtGestureGuardTest, QuickTypingLosesNoLetter) {
  Show(field_);
  quint64 at = 1000;
  for (const QChar letter : QStringLiteral("aabbb  ccc")) {
    const int key = letter == u' ' ? int{Qt::Key_Space} : letter.toUpper().unicode();
    Press(window_, key, at, letter);
    Release(window_, key, at + 4);
    at += 8;
  }
  EXPECT_EQ("aabbb  ccc", field_.text().toStdString());
}

TEST_F(QtGestureGuardTest, AToolTipOrAListThatGoesStopsNoLetter) {
  QWidget tip(nullptr, Qt::ToolTip);
  QWidget list(nullptr, Qt::Popup);
  Show(field_);
  tip.show();
  Press(window_, Qt::Key_A, 1000, QStringLiteral("a"));
  tip.hide();
  list.show();
  list.hide();
  Release(window_, Qt::Key_A, 1700);
  Press(window_, Qt::Key_A, 1710, QStringLiteral("a"));
  EXPECT_EQ("aa", field_.text().toStdString());
}

TEST_F(QtGestureGuardTest, TheSecondPressOfADoubleClickDoesNotAnswerTheBox) {
  const QPoint place = OpenBoxByClick(1000);
  Click(box_, place, 1150);
  EXPECT_EQ(0, answers_);
  Click(box_, place, 1500);
  EXPECT_EQ(1, answers_) << "the next click";
}

TEST_F(QtGestureGuardTest, AClickElsewhereAnswersTheBoxAtOnce) {
  const QPoint place = OpenBoxByClick(1000);
  const int distance = QGuiApplication::styleHints()->mouseDoubleClickDistance();
  Click(box_, place + QPoint(distance + 3, 0), 1150);
  EXPECT_EQ(1, answers_);
}

}  // namespace
}  // namespace veyra
