#include "forms/widgets/qt_window_in_use.h"

#include <QApplication>
#include <QWidget>
#include <algorithm>

namespace veyra {
namespace {

/// A window whose end is not the program's end stands beside the others.
bool TakesInput(const QWidget* window) {
  const Qt::WindowType type = window->windowType();
  return (type == Qt::Window || type == Qt::Dialog) && window->isVisible() && window->isEnabled() &&
         window->testAttribute(Qt::WA_QuitOnClose);
}

}  // namespace

QWidget* WindowInUse() {
  if (QWidget* active = QApplication::activeWindow()) {
    return active;
  }
  if (QWidget* box = QApplication::activeModalWidget()) {
    return box;
  }
  const QWidgetList windows = QApplication::topLevelWidgets();
  const auto found = std::find_if(windows.begin(), windows.end(), TakesInput);
  return found == windows.end() ? nullptr : *found;
}

}  // namespace veyra
