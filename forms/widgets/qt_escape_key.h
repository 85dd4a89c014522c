#pragma once

#include <functional>

class QWidget;

namespace veyra {

/// Escape in a window that has boxes with lists: from now on `pressed` is called for each press of
/// the key, once when it is held down. While a list is open the key closes that and nothing else,
/// also on desktops that tell the window of the key instead of the list.
void AddEscapeKey(QWidget& window, const std::function<void()>& pressed);

}  // namespace veyra
