#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>

#include "forms/widgets/qt_progress.h"

namespace veyra {
namespace {

/// A long action over a window with a button.
class ProgressTest : public testing::Test {
 protected:
  ProgressTest() {
    QObject::connect(&button_, &QPushButton::clicked, [this] { clicked_ = true; });
    window_.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
  }

  /// Works until the box is there.
  void Begin(EarlyEnd early_end) {
    progress_ = std::make_unique<QtProgress>("Booking ...", early_end);
    QElapsedTimer timer;
    timer.start();
    while (Box() == nullptr && timer.elapsed() < 5000) {
      progress_->Report(365, 3650);
    }
    unseen_ = timer.elapsed();
    ASSERT_NE(nullptr, Box());
  }

  /// Works on until it is ended early, or for a while.
  bool IsEndedEarly() {
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < 300) {
      if (!progress_->Report(366, 3650)) {
        return true;
      }
    }
    return false;
  }

  static QProgressDialog* Box() {
    return qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
  }

  QWidget window_;
  QPushButton button_{QStringLiteral("Push"), &window_};
  bool clicked_ = false;
  qint64 unseen_ = 0;
  std::unique_ptr<QtProgress> progress_;
};

TEST_F(ProgressTest, NothingIsSeenInTheFirstHalfSecond) {
  Begin(EarlyEnd::Cancel);
  EXPECT_GE(unseen_, 500);
}

TEST_F(ProgressTest, TheBoxTellsTheCount) {
  Begin(EarlyEnd::Cancel);
  EXPECT_EQ("Booking ...\n365 of 3650", Box()->labelText().toStdString());
  EXPECT_EQ(100, Box()->value() * 1000 / Box()->maximum());
}

TEST_F(ProgressTest, NoOtherWindowTakesInput) {
  Begin(EarlyEnd::Cancel);
  QTest::mouseClick(window_.windowHandle(), Qt::LeftButton, {}, button_.geometry().center());
  EXPECT_FALSE(clicked_);
}

TEST_F(ProgressTest, CancelEndsTheAction) {
  Begin(EarlyEnd::Cancel);
  auto* button = Box()->findChild<QPushButton*>();
  EXPECT_EQ("&Cancel", button->text());
  button->click();
  EXPECT_TRUE(IsEndedEarly());
}

TEST_F(ProgressTest, WhatIsDoneRowByRowIsStopped) {
  Begin(EarlyEnd::Stop);
  auto* button = Box()->findChild<QPushButton*>();
  EXPECT_EQ("&Stop", button->text());
  button->click();
  EXPECT_TRUE(IsEndedEarly());
}

TEST_F(ProgressTest, EscapeEndsTheAction) {
  Begin(EarlyEnd::Cancel);
  QTest::keyClick(Box(), Qt::Key_Escape);
  EXPECT_TRUE(IsEndedEarly());
}

TEST_F(ProgressTest, TheTitleBarEndsTheAction) {
  Begin(EarlyEnd::Cancel);
  Box()->close();
  EXPECT_TRUE(IsEndedEarly());
}

TEST_F(ProgressTest, WhatMustNotEndEarlyHasNoButtonAndStays) {
  Begin(EarlyEnd::None);
  EXPECT_EQ(nullptr, Box()->findChild<QPushButton*>());
  QTest::keyClick(Box(), Qt::Key_Escape);
  Box()->close();
  EXPECT_FALSE(IsEndedEarly());
  EXPECT_NE(nullptr, Box());
}

TEST_F(ProgressTest, TheBoxGoesWithTheAction) {
  Begin(EarlyEnd::Cancel);
  progress_.reset();
  EXPECT_EQ(nullptr, Box());
  EXPECT_TRUE(window_.isEnabled());
}

}  // namespace
}  // namespace veyra
