#pragma once

#include <QObject>
#include <QPalette>
#include <QPointer>

class QWidget;

namespace veyra {

/// Keeps a window on the screen without taking input, its close button included, while another one
/// has the word. It looks as it did, for what it shows is still to be read. When the operator turns
/// to it, the window that it waits for comes to the front instead.
class QtInputGate : public QObject {
  Q_OBJECT

 public:
  /// Open at first. `window` must outlive the gate.
  explicit QtInputGate(QWidget& window);

  /// Opened again, the window is the active one, with the focus where it was.
  void SetOpen(bool open);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BringUpTheOneInFront() const;

  QWidget& window_;
  QPointer<QWidget> focus_;
  QPalette colors_;
};

}  // namespace veyra
