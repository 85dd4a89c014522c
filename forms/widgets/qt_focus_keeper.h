#pragma once

#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QTimer>
#include <QWidget>

namespace veyra {

/// Sees to it that a window or box which a click has brought to the front has the keyboard once a
/// double click is over: a second click that falls beside it gives the keyboard to whatever lies
/// there. Who has moved the mouse on meanwhile has clicked there on purpose.
class QtFocusKeeper : public QObject {
  Q_OBJECT

 public:
  explicit QtFocusKeeper(QObject* parent = nullptr);

  /// A button of the mouse was pressed there, in pixels of the screen.
  void Pressed(const QPoint& place);

  /// A window or box has come to the screen, or has left it.
  void Shown(QWidget* window);
  void Hidden(QWidget* window);

 private:
  void LookAgain();
  void GiveFocus();
  QWidget* Newest() const;

  QList<QPointer<QWidget>> windows_;  ///< On the screen, the newest last.
  QPoint press_;
  QElapsedTimer since_press_;
  QTimer over_;
};

}  // namespace veyra
