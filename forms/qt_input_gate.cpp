#include "forms/qt_input_gate.h"

#include <QEvent>
#include <QWidget>

namespace veyra {

QtInputGate::QtInputGate(QWidget& window) : window_(window) {
  window_.installEventFilter(this);
}

void QtInputGate::SetOpen(bool open) {
  if (open == window_.isEnabled()) {
    return;
  }
  if (!open) {
    focus_ = window_.focusWidget();
    window_.setEnabled(false);
    return;
  }
  window_.setEnabled(true);
  if (focus_ != nullptr) {
    focus_->setFocus(Qt::OtherFocusReason);
  }
  if (window_.isVisible()) {
    window_.activateWindow();
  }
}

bool QtInputGate::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Close && !window_.isEnabled()) {
    event->ignore();
    return true;
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace veyra
