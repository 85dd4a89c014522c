#include "forms/widgets/qt_painted_text.h"

#include <QAbstractTextDocumentLayout>
#include <QPaintEvent>
#include <QPainter>
#include <QTextOption>
#include <cmath>

namespace veyra {

QtPaintedText::QtPaintedText(const QString& text, int width, QWidget* parent) : QWidget(parent) {
  QTextOption wrapping;
  wrapping.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  lines_.setDefaultTextOption(wrapping);
  lines_.setDefaultFont(font());
  lines_.setDocumentMargin(0);
  lines_.setPlainText(text);
  lines_.setTextWidth(width);
  setFixedSize(width, text.isEmpty() ? 0 : static_cast<int>(std::ceil(lines_.size().height())));
}

void QtPaintedText::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  QAbstractTextDocumentLayout::PaintContext context;
  context.clip = event->rect();
  context.palette = palette();
  context.palette.setColor(QPalette::Text, palette().color(foregroundRole()));
  painter.setClipRect(event->rect());
  lines_.documentLayout()->draw(&painter, context);
}

}  // namespace veyra
