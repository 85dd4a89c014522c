#include "forms/widgets/qt_help_item.h"

#include <QAction>
#include <QKeySequence>
#include <QMenuBar>

namespace veyra {

void AddHelpItem(QMainWindow& window, const std::function<void()>& chosen) {
  QAction* mnuHelp = window.menuBar()->addAction(QStringLiteral("Help"));
  mnuHelp->setObjectName(QStringLiteral("mnuHelp"));
  mnuHelp->setMenuRole(QAction::NoRole);
  mnuHelp->setShortcut(QKeySequence(Qt::Key_F1));
  QObject::connect(mnuHelp, &QAction::triggered, &window, chosen);
}

}  // namespace veyra
