#include "forms/settings/qt_spread_label.h"

#include <QPainter>

namespace veyra {
namespace {

constexpr int kColumns = 7;

}  // namespace

QtSpreadLabel::QtSpreadLabel(const QString& text, int first_column, QWidget* parent)
    : QLabel(text, parent), first_column_(first_column) {
  setTextFormat(Qt::PlainText);
}

void QtSpreadLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  const double column_width = static_cast<double>(width()) / kColumns;
  int column = first_column_;
  for (const QString& word : text().split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
    const QRectF cell(column * column_width, 0, column_width, height());
    painter.drawText(cell.adjusted(indent(), 0, 0, 0), static_cast<int>(alignment()), word);
    ++column;
  }
}

}  // namespace veyra
