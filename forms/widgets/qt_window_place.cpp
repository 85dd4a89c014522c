#include "forms/widgets/qt_window_place.h"

#include <QScreen>
#include <QWidget>
#include <QWindow>
#include <algorithm>

namespace veyra {
namespace {

/// On a screen that is smaller than the window the top left corner counts.
QPoint ClampToScreen(const QPoint& place, const QSize& size, const QRect& screen) {
  const int last_x = screen.x() + screen.width() - size.width();
  const int last_y = screen.y() + screen.height() - size.height();
  return {std::max(screen.x(), std::min(place.x(), last_x)),
          std::max(screen.y(), std::min(place.y(), last_y))};
}

/// The desktop tells a window's frame only once that is on the screen, so it is judged by the frame
/// of another one.
QSize SizeWithFrame(const QWidget& window, const QWidget& framed) {
  return window.size() + framed.frameGeometry().size() - framed.size();
}

void MoveFrameTo(QWidget& window, const QPoint& place, const QWidget& framed) {
  const QPoint inside = framed.geometry().topLeft() - framed.frameGeometry().topLeft();
  window.setGeometry(QRect(place + inside, window.size()));
}

}  // namespace

QPoint PlaceBeside(const QRect& neighbour, const QSize& size, const QRect& screen) {
  const int right = neighbour.x() + neighbour.width();
  const int left = neighbour.x() - size.width();
  const int room_right = screen.x() + screen.width() - right;
  const int room_left = neighbour.x() - screen.x();
  const bool to_the_right =
      size.width() <= room_right || (size.width() > room_left && room_right >= room_left);
  return ClampToScreen({to_the_right ? right : left, neighbour.y()}, size, screen);
}

QPoint PlaceMakingRoom(const QRect& neighbour, const QSize& size, const QRect& screen) {
  const int room_right = screen.x() + screen.width() - (neighbour.x() + neighbour.width());
  const int room_left = neighbour.x() - screen.x();
  const bool room_for_both = neighbour.width() + size.width() <= screen.width();
  if (!room_for_both || size.width() <= std::max(room_left, room_right)) {
    return neighbour.topLeft();
  }
  const int missing_right = size.width() - room_right;
  const int missing_left = size.width() - room_left;
  return neighbour.topLeft() +
         QPoint(missing_right <= missing_left ? -missing_right : missing_left, 0);
}

QPoint PlaceOver(const QRect& owner, const QSize& size, const QRect& screen) {
  QRect place({}, size);
  place.moveCenter(owner.center());
  return ClampToScreen(place.topLeft(), size, screen);
}

/// An X11 desktop is told of the owner of a dialog only, never of that of a plain window.
void KeepAbove(QWidget& window, QWidget& owner) {
  const Qt::WindowFlags flags = window.windowFlags();
  window.setWindowFlags((flags & ~(Qt::WindowType_Mask | Qt::WindowMinimizeButtonHint)) |
                        Qt::Dialog | Qt::CustomizeWindowHint);
  window.winId();
  owner.winId();
  window.windowHandle()->setTransientParent(owner.windowHandle());
}

void BringToFront(QWidget& window) {
  window.show();
  window.raise();
  window.activateWindow();
}

void ShowBeside(QWidget& window, QWidget* neighbour) {
  if (neighbour != nullptr) {
    KeepAbove(window, *neighbour);
    const QSize size = SizeWithFrame(window, *neighbour);
    const QRect screen = neighbour->screen()->availableGeometry();
    QRect beside = neighbour->frameGeometry();
    beside.moveTopLeft(PlaceMakingRoom(beside, size, screen));
    if (beside != neighbour->frameGeometry()) {
      neighbour->move(beside.topLeft());
    }
    MoveFrameTo(window, PlaceBeside(beside, size, screen), *neighbour);
  }
  BringToFront(window);
}

void ShowOver(QWidget& window, QWidget& owner) {
  KeepAbove(window, owner);
  const QPoint place = PlaceOver(owner.frameGeometry(), SizeWithFrame(window, owner),
                                 owner.screen()->availableGeometry());
  MoveFrameTo(window, place, owner);
  BringToFront(window);
}

}  // namespace veyra
