#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

class QWidget;

namespace veyra {

/// Where a window of `size`, its frame included, stands beside `neighbour` on a screen with the
/// room `screen`: to its right, else to its left, tops level; where neither side has the room, on
/// the roomier one as far as the screen allows. The window's top left corner is always on the
/// screen.
QPoint PlaceBeside(const QRect& neighbour, const QSize& size, const QRect& screen);

/// Where `neighbour` moves to, so that a window of `size` has room beside it: the shortest way, and
/// nowhere while there is room or when the screen holds no two such windows side by side.
QPoint PlaceMakingRoom(const QRect& neighbour, const QSize& size, const QRect& screen);

/// The same as PlaceBeside for a window that stands over the middle of `owner`.
QPoint PlaceOver(const QRect& owner, const QSize& size, const QRect& screen);

/// Makes `window` one that stays above `owner` while both are on the screen, goes with it when it
/// is minimised, and has no minimise button of its own. REQUIRES: it is not on the screen.
void KeepAbove(QWidget& window, QWidget& owner);

/// Brings `window` to the screen, in front, and lets it take the keyboard.
void BringToFront(QWidget& window);

/// Brings `window` to the screen beside `neighbour`, which makes room where it can, above it and in
/// front; wherever the desktop puts it when there is no neighbour on the screen.
void ShowBeside(QWidget& window, QWidget* neighbour);

/// Brings `window` to the screen over the middle of `owner`, above it and in front.
void ShowOver(QWidget& window, QWidget& owner);

}  // namespace veyra
