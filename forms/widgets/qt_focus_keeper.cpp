#include "forms/widgets/qt_focus_keeper.h"

#include <QApplication>
#include <QCursor>
#include <QStyleHints>
#include <algorithm>

namespace veyra {
namespace {

/// The window manager hears of a click later than it is made.
constexpr int kMillisecondsForManager = 100;

}  // namespace

QtFocusKeeper::QtFocusKeeper(QObject* parent) : QObject(parent) {
  over_.setSingleShot(true);
  connect(&over_, &QTimer::timeout, this, &QtFocusKeeper::GiveFocus);
}

void QtFocusKeeper::Pressed(const QPoint& place) {
  press_ = place;
  since_press_.start();
}

void QtFocusKeeper::Shown(QWidget* window) {
  windows_.removeAll(window);
  windows_.append(window);
  LookAgain();
}

void QtFocusKeeper::Hidden(QWidget* window) {
  windows_.removeAll(window);
  LookAgain();
}

/// When the double click that may have brought this about is over.
void QtFocusKeeper::LookAgain() {
  const int interval = QGuiApplication::styleHints()->mouseDoubleClickInterval();
  if (since_press_.isValid() && since_press_.elapsed() < interval) {
    over_.start(interval - static_cast<int>(since_press_.elapsed()) + kMillisecondsForManager);
  }
}

void QtFocusKeeper::GiveFocus() {
  QWidget* newest = Newest();
  const int moved = (QCursor::pos() - press_).manhattanLength();
  if (newest == nullptr || newest == QApplication::activeWindow() ||
      moved > 2 * QGuiApplication::styleHints()->mouseDoubleClickDistance() ||
      QApplication::activePopupWidget() != nullptr) {
    return;
  }
  newest->raise();
  newest->activateWindow();
}

/// The newest window that takes input.
QWidget* QtFocusKeeper::Newest() const {
  const auto found = std::find_if(
      windows_.rbegin(), windows_.rend(),
      [](const QPointer<QWidget>& window) { return window != nullptr && window->isEnabled(); });
  return found == windows_.rend() ? nullptr : found->data();
}

}  // namespace veyra
