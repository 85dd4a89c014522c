#pragma once

#include <Qt>

#include "forms/mouse_button.h"

namespace veyra {

inline MouseButton ToMouseButton(Qt::MouseButton button) {
  switch (button) {
    case Qt::LeftButton:
      return MouseButton::Left;
    case Qt::RightButton:
      return MouseButton::Right;
    default:
      return MouseButton::Other;
  }
}

}  // namespace veyra
