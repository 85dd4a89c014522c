#pragma once

#include <QKeyEvent>

namespace veyra {

/// Whether the key means what the right button of the mouse does.
inline bool IsMenuKey(const QKeyEvent& event) {
  return event.key() == Qt::Key_Menu ||
         (event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier);
}

/// Whether the key does nothing by itself: Shift, Control, a lock.
inline bool IsModifier(const QKeyEvent& event) {
  const int key = event.key();
  return (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) || key == Qt::Key_Super_L ||
         key == Qt::Key_Super_R || key == Qt::Key_Hyper_L || key == Qt::Key_Hyper_R ||
         key == Qt::Key_AltGr;
}

}  // namespace veyra
