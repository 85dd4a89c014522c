#include "forms/about/qt_about_label.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace veyra {

QtAboutLabel::QtAboutLabel(const QString& text, QWidget* parent) : QLabel(text, parent) {
  setTextFormat(Qt::PlainText);
}

void QtAboutLabel::MakeLink() {
  QFont underlined = font();
  underlined.setUnderline(true);
  setFont(underlined);
  setForegroundRole(QPalette::Link);
  setCursor(Qt::PointingHandCursor);
  setFocusPolicy(Qt::StrongFocus);
  setMargin(2);
}

void QtAboutLabel::mouseReleaseEvent(QMouseEvent* event) {
  event->accept();
  if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
    emit Clicked();
  }
}

void QtAboutLabel::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      emit Clicked();
      return;
    default:
      QLabel::keyPressEvent(event);
  }
}

void QtAboutLabel::focusInEvent(QFocusEvent* event) {
  QLabel::focusInEvent(event);
  update();
}

void QtAboutLabel::focusOutEvent(QFocusEvent* event) {
  QLabel::focusOutEvent(event);
  update();
}

void QtAboutLabel::paintEvent(QPaintEvent* event) {
  QLabel::paintEvent(event);
  if (hasFocus()) {
    QPainter painter(this);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 1));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }
}

}  // namespace veyra
