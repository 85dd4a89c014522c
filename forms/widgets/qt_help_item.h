#pragma once

#include <QKeySequence>
#include <QMainWindow>
#include <functional>

namespace veyra {

/// Puts the item mnuHelp, "Help", which F1 chooses too, into the window's menu bar.
void AddHelpItem(QMainWindow& window, const std::function<void()>& chosen);

/// A key of a window, which does nothing more while it is held down.
void AddKey(QMainWindow& window, const QKeySequence& key, const std::function<void()>& pressed);

/// Control and Z for a window.
void AddUndoKey(QMainWindow& window, const std::function<void()>& pressed);

/// F1 for a window that has no menu.
void AddHelpKey(QMainWindow& window, const std::function<void()>& chosen);

}  // namespace veyra
