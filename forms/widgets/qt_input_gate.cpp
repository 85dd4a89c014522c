#include "forms/widgets/qt_input_gate.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <QWindow>

namespace veyra {
namespace {

QPalette WithoutGrey(QPalette colors) {
  for (int role = 0; role < QPalette::NColorRoles; ++role) {
    const auto color_role = static_cast<QPalette::ColorRole>(role);
    colors.setBrush(QPalette::Disabled, color_role, colors.brush(QPalette::Active, color_role));
  }
  return colors;
}

}  // namespace

QtInputGate::QtInputGate(QWidget& window) : window_(window) {
  window_.installEventFilter(this);
}

void QtInputGate::SetOpen(bool open) {
  if (open == window_.isEnabled()) {
    return;
  }
  if (!open) {
    focus_ = window_.focusWidget();
    colors_ = window_.palette();
    window_.setPalette(WithoutGrey(colors_));
    window_.setEnabled(false);
    return;
  }
  window_.setPalette(colors_);
  window_.setEnabled(true);
  if (focus_ != nullptr) {
    focus_->setFocus(Qt::OtherFocusReason);
  }
  if (window_.isVisible()) {
    window_.activateWindow();
  }
}

bool QtInputGate::eventFilter(QObject* watched, QEvent* event) {
  if (window_.isEnabled()) {
    return QObject::eventFilter(watched, event);
  }
  switch (event->type()) {
    case QEvent::Close:
      event->ignore();
      return true;
    case QEvent::WindowActivate:
    case QEvent::MouseButtonPress:
      BringUpTheOneInFront();
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

/// A box that blocks all windows is brought up by the toolkit.
void QtInputGate::BringUpTheOneInFront() const {
  if (QApplication::activeModalWidget() != nullptr) {
    return;
  }
  for (QWindow* other : QGuiApplication::topLevelWindows()) {
    if (other->isVisible() && other->transientParent() == window_.windowHandle()) {
      other->raise();
      other->requestActivate();
    }
  }
}

}  // namespace veyra
