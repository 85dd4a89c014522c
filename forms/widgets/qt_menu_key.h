#pragma once

#include <QKeyEvent>

namespace veyra {

/// Whether the key means what the right button of the mouse does.
inline bool IsMenuKey(const QKeyEvent& event) {
  return event.key() == Qt::Key_Menu ||
         (event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier);
}

}  // namespace veyra
