#include "forms/widgets/qt_notice.h"

#include <QAccessible>
#include <QToolTip>

namespace veyra {

void DressAsNotice(QLabel& label, int padding) {
  label.setTextFormat(Qt::PlainText);
  label.setMargin(padding);
  label.setFrameShape(QFrame::Box);
  label.setAutoFillBackground(true);
  QPalette colors = QToolTip::palette();
  colors.setColor(QPalette::Window, colors.color(QPalette::ToolTipBase));
  colors.setColor(QPalette::WindowText, colors.color(QPalette::ToolTipText));
  label.setPalette(colors);
  label.hide();
}

void Announce(QLabel& label) {
  QAccessibleEvent alert(&label, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

}  // namespace veyra
