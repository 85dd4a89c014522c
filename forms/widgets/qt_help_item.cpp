#include "forms/widgets/qt_help_item.h"

#include <QAction>
#include <QKeySequence>
#include <QMenuBar>
#include <QShortcut>

namespace veyra {

void AddHelpItem(QMainWindow& window, const std::function<void()>& chosen) {
  QAction* mnuHelp = window.menuBar()->addAction(QStringLiteral("&Help"));
  mnuHelp->setObjectName(QStringLiteral("mnuHelp"));
  mnuHelp->setMenuRole(QAction::NoRole);
  mnuHelp->setShortcut(QKeySequence(Qt::Key_F1));
  QObject::connect(mnuHelp, &QAction::triggered, &window, chosen);
}

void AddKey(QMainWindow& window, const QKeySequence& key, const std::function<void()>& pressed) {
  auto* shortcut = new QShortcut(key, &window);
  shortcut->setAutoRepeat(false);
  QObject::connect(shortcut, &QShortcut::activated, &window, pressed);
}

void AddUndoKey(QMainWindow& window, const std::function<void()>& pressed) {
  AddKey(window, Qt::CTRL | Qt::Key_Z, pressed);
}

void AddHelpKey(QMainWindow& window, const std::function<void()>& chosen) {
  auto* help = new QShortcut(QKeySequence(Qt::Key_F1), &window);
  QObject::connect(help, &QShortcut::activated, &window, chosen);
}

}  // namespace veyra
