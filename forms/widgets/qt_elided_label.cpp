#include "forms/widgets/qt_elided_label.h"

#include <QPainter>

namespace veyra {

QtElidedLabel::QtElidedLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

QSize QtElidedLabel::minimumSizeHint() const {
  return {0, fontMetrics().height()};
}

void QtElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, width());
  painter.drawText(rect(), static_cast<int>(alignment()) | Qt::TextSingleLine, shown);
}

}  // namespace veyra
