#pragma once

#include <QElapsedTimer>
#include <QObject>

#include "forms/gesture_guard.h"

class QInputEvent;
class QKeyEvent;
class QMouseEvent;
class QWidget;

namespace veyra {

class QtFocusKeeper;

/// Keeps from all windows of the program the presses that a GestureGuard finds not to be meant for
/// them. Keys that only move about are never kept, nor is what is typed while no window or box
/// comes or goes. One of it guards the whole program.
class QtGestureGuard : public QObject {
  Q_OBJECT

 public:
  /// Guards from now on until it is destroyed. REQUIRES: a QApplication, which outlives it.
  QtGestureGuard();
  ~QtGestureGuard() override;

  /// What is pressed now has done what it was meant for: the rest of it is kept from all windows,
  /// as if one of them had come or gone. Does nothing while nobody guards.
  static void EndGestures(QObject& sender);

 protected:
  /// Events are judged as they come from the screen, before any control sees them.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool MayPass(QEvent& event);
  bool MayPassKey(QKeyEvent& event);
  bool MayPassPress(const QMouseEvent& event);
  void Follow(QWidget& window, const QEvent& event);
  GestureGuard::Time TimeOf(const QInputEvent& event) const;

  QElapsedTimer since_start_;
  GestureGuard guard_;
  QtFocusKeeper* focus_;
};

}  // namespace veyra
