#pragma once

#include <gtest/gtest.h>

#include <QAbstractScrollArea>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTableWidget>
#include <QTest>
#include <memory>
#include <string>

#include "app/program.h"
#include "forms/widgets/qt_gesture_guard.h"
#include "tests/calendar_folder.h"
#include "tests/fake_clock.h"
#include "tests/fake_dialogs.h"

namespace veyra {

/// The program on real data, on 15 March 2014, which is a Saturday in cell 21, with the facilities
/// Pool and, active, Hall.
class ProgramFixture : public testing::Test {
 protected:
  explicit ProgramFixture(StoreKind kind = TestedStoreKind()) : data_(kind) {
    app_.Write("path.txt", data_.Path() + "\r\n");
    pool_ = data_.AddRoom("Pool");
    hall_ = data_.AddRoom("Hall", true);
  }

  /// What was dropped for later goes before the program does.
  ~ProgramFixture() override {
    program_.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  void Start() {
    program_ = std::make_unique<Program>(clock_, dialogs_);
    ASSERT_TRUE(program_->Start(app_.path().string()));
    ASSERT_TRUE(QTest::qWaitForWindowActive(Month()));
  }

  void StartAndOpenDay(int cell = 21) {
    Start();
    PressDay(cell);
    ASSERT_NE(nullptr, Day());
    ASSERT_TRUE(QTest::qWaitForWindowActive(Day()));
  }

  /// The window of that name that is on the screen, or nothing.
  static QWidget* Window(const char* name) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->isVisible() && window->objectName() == QLatin1String(name)) {
        return window;
      }
    }
    return nullptr;
  }
  /// Waits for the window to be the one in use. A window counts as active already while the one
  /// below it is.
  static bool IsInUse(QWidget* window) {
    return QTest::qWaitFor([window] { return QApplication::activeWindow() == window; });
  }
  static QWidget* Month() { return Window("frmCalendar"); }
  static QWidget* Day() { return Window("frmDay"); }

  /// The words of a caption, without the mark of its Alt key.
  static std::string Words(QString caption) {
    return caption.remove(QLatin1Char('&')).toStdString();
  }

  template <typename Control>
  static Control& In(QWidget* window, const QString& name) {
    auto* control = window->findChild<Control*>(name);
    if (control == nullptr) {
      throw std::runtime_error("no control " + name.toStdString());
    }
    return *control;
  }

  static QListWidget& List(int cell) {
    return In<QListWidget>(Month(), QStringLiteral("lstDay(%1)").arg(cell));
  }
  static QTableWidget& Grid() { return In<QTableWidget>(Day(), QStringLiteral("MSFlexGrid1")); }
  static QComboBox& Names(QWidget* window) {
    return In<QComboBox>(window, QStringLiteral("Combo1"));
  }

  /// The middle of a cell of the day grid, which must be in view; row 1 to 48, column 0 or 1.
  static QPoint Middle(int row, int column) {
    return Grid().visualRect(Grid().model()->index(row - 1, column)).center();
  }

  static void PressDay(int cell, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(List(cell).viewport(), button, {}, QPoint(10, 5));
  }

  /// By the time the button is let go the month window takes no input.
  static void RightPressDay(int cell) {
    QTest::mousePress(List(cell).viewport(), Qt::RightButton, {}, QPoint(10, 5));
    QListWidget elsewhere;
    QTest::mouseRelease(elsewhere.viewport(), Qt::RightButton);
  }

  static void Drag(int from_row, const QPoint& to, int from_column = 1) {
    QWidget* surface = Grid().viewport();
    QTest::mousePress(surface, Qt::LeftButton, {}, Middle(from_row, from_column));
    QTest::mouseMove(surface, to);
    QTest::mouseRelease(surface, Qt::LeftButton, {}, to);
  }

  static void DragRows(int from_row, int to_row) { Drag(from_row, Middle(to_row, 1)); }

  QtGestureGuard gestures_;
  TempFolder app_;
  CalendarFolder data_;
  std::int64_t pool_ = 0;
  std::int64_t hall_ = 0;
  FakeDialogs dialogs_;
  FakeClock clock_{2014, 3, 15};
  std::unique_ptr<Program> program_;
};

}  // namespace veyra
