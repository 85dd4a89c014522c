#include "forms/qt_window_place.h"

#include <QScreen>
#include <QWidget>
#include <QWindow>
#include <algorithm>

namespace veyra {
namespace {

/// Clamps to a range that is empty when the window is larger than the screen.
int Clamp(int wanted, int lowest, int highest) {
  return std::max(lowest, std::min(wanted, highest));
}

void BringToFront(QWidget& window) {
  window.show();
  window.raise();
  window.activateWindow();
}

/// A window above its owner stays there when the owner is clicked.
void KeepAbove(QWidget& window, QWidget& owner) {
  window.winId();
  owner.winId();
  window.windowHandle()->setTransientParent(owner.windowHandle());
}

/// The frame that the desktop will put around a window, judged by one that has it already.
QSize FrameOf(const QWidget& window) {
  return window.frameGeometry().size() - window.size();
}

}  // namespace

QPoint PlaceBeside(const QRect& neighbour, const QSize& size, const QRect& screen) {
  const int right = neighbour.x() + neighbour.width();
  const int left = neighbour.x() - size.width();
  const int room_right = screen.x() + screen.width() - right;
  const int room_left = neighbour.x() - screen.x();
  const bool to_the_right =
      size.width() <= room_right || (size.width() > room_left && room_right >= room_left);
  const int last_x = screen.x() + screen.width() - size.width();
  const int last_y = screen.y() + screen.height() - size.height();
  return {Clamp(to_the_right ? right : left, screen.x(), last_x),
          Clamp(neighbour.y(), screen.y(), last_y)};
}

void ShowBeside(QWidget& window, QWidget* neighbour) {
  if (neighbour != nullptr) {
    KeepAbove(window, *neighbour);
    window.move(PlaceBeside(neighbour->frameGeometry(), window.size() + FrameOf(*neighbour),
                            neighbour->screen()->availableGeometry()));
  }
  BringToFront(window);
}

void ShowOver(QWidget& window, QWidget& owner) {
  KeepAbove(window, owner);
  const QRect room = owner.screen()->availableGeometry();
  QRect place(QPoint(), window.size() + FrameOf(owner));
  place.moveCenter(owner.frameGeometry().center());
  window.move(Clamp(place.x(), room.x(), room.x() + room.width() - place.width()),
              Clamp(place.y(), room.y(), room.y() + room.height() - place.height()));
  BringToFront(window);
}

}  // namespace veyra
