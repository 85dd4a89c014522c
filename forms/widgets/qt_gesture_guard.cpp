#include "forms/widgets/qt_gesture_guard.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyleHints>
#include <QWidget>

#include "forms/widgets/qt_focus_keeper.h"
#include "forms/widgets/qt_keys.h"

namespace veyra {
namespace {

/// Keys that answer nothing: they may go on moving where the last press has led.
bool OnlyMoves(int key) {
  switch (key) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Left:
    case Qt::Key_Up:
    case Qt::Key_Right:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
      return true;
    default:
      return false;
  }
}

/// Windows and boxes; a menu, an open list or a tool tip is a part of the window that it is over.
bool IsWindowOrBox(const QWidget& widget) {
  const Qt::WindowType type = widget.windowType();
  return type == Qt::Window || type == Qt::Dialog || type == Qt::Tool || type == Qt::Sheet;
}

/// Where a key sits on the keyboard, for what it means changes when Shift is let go first; what it
/// means where its place is not known.
int IdentityOf(const QKeyEvent& event) {
  const auto place = static_cast<int>(event.nativeScanCode());
  return place != 0 ? -place : event.key();
}

/// Sent by who has done what a gesture meant.
QEvent::Type EndOfGestures() {
  static const int type = QEvent::registerEventType();
  return static_cast<QEvent::Type>(type);
}

GestureGuard::DoubleClick Limits() {
  const QStyleHints& hints = *QGuiApplication::styleHints();
  return {hints.mouseDoubleClickInterval(), hints.mouseDoubleClickDistance()};
}

}  // namespace

QtGestureGuard::QtGestureGuard() : focus_(new QtFocusKeeper(this)) {
  since_start_.start();
  QCoreApplication::instance()->installEventFilter(this);
}

QtGestureGuard::~QtGestureGuard() = default;

void QtGestureGuard::EndGestures(QObject& sender) {
  QEvent end(EndOfGestures());
  QCoreApplication::sendEvent(&sender, &end);
}

bool QtGestureGuard::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == EndOfGestures()) {
    guard_.WindowsChanged();
    return true;
  }
  if (watched->isWindowType()) {
    return !MayPass(*event);
  }
  if (watched->isWidgetType() && static_cast<QWidget*>(watched)->isWindow()) {
    Follow(*static_cast<QWidget*>(watched), *event);
  }
  return false;
}

void QtGestureGuard::Follow(QWidget& window, const QEvent& event) {
  const bool shown = event.type() == QEvent::Show;
  if (event.spontaneous() || !(shown || event.type() == QEvent::Hide) || !IsWindowOrBox(window)) {
    return;
  }
  guard_.WindowsChanged();
  if (shown) {
    focus_->Shown(&window);
  } else {
    focus_->Hidden(&window);
  }
}

bool QtGestureGuard::MayPass(QEvent& event) {
  switch (event.type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
      return MayPassKey(static_cast<QKeyEvent&>(event));
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      return MayPassPress(static_cast<QMouseEvent&>(event));
    case QEvent::MouseButtonRelease:
      return guard_.ButtonReleased(static_cast<int>(static_cast<QMouseEvent&>(event).button()));
    default:
      return true;
  }
}

bool QtGestureGuard::MayPassKey(QKeyEvent& event) {
  if (OnlyMoves(event.key()) || IsModifier(event)) {
    return true;
  }
  const bool may_pass = event.type() == QEvent::KeyRelease
                            ? guard_.KeyReleased(IdentityOf(event), TimeOf(event))
                            : guard_.KeyPressed(IdentityOf(event), TimeOf(event));
  if (!may_pass) {
    // A key that somebody wants for himself is not a shortcut.
    event.accept();
  }
  return may_pass;
}

bool QtGestureGuard::MayPassPress(const QMouseEvent& event) {
  const QPoint place = event.globalPosition().toPoint();
  if (!guard_.ButtonPressed({static_cast<int>(event.button()), place.x(), place.y(), TimeOf(event)},
                            Limits())) {
    return false;
  }
  focus_->Pressed(place);
  return true;
}

/// The screen says when a key or a button was pressed, however late the program hears of it.
GestureGuard::Time QtGestureGuard::TimeOf(const QInputEvent& event) const {
  const auto at = static_cast<GestureGuard::Time>(event.timestamp());
  return at != 0 ? at : since_start_.elapsed();
}

}  // namespace veyra
