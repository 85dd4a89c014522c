#include "forms/settings/qt_swatch.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "forms/settings/palette.h"
#include "forms/twips.h"

namespace veyra {
namespace {

constexpr QColor kOuterEdge(96, 96, 96);
constexpr QColor kInnerEdge(255, 255, 255);

SwatchClick ClickOf(bool left_button_or_key, Qt::KeyboardModifiers modifiers) {
  modifiers.setFlag(Qt::KeypadModifier, false);
  if (left_button_or_key && modifiers == Qt::NoModifier) {
    return SwatchClick::Plain;
  }
  if (left_button_or_key && modifiers == Qt::ShiftModifier) {
    return SwatchClick::Shift;
  }
  return SwatchClick::Other;
}

bool IsApplyKey(int key) {
  return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool IsArrowKey(int key) {
  return key >= Qt::Key_Left && key <= Qt::Key_Down;
}

void DrawEdge(QPainter& painter, const QRect& rect, const QColor& color) {
  painter.setPen(QPen(color, 1));
  painter.drawRect(rect.adjusted(0, 0, -1, -1));
}

}  // namespace

QtSwatch::QtSwatch(QWidget* parent) : QAbstractButton(parent) {
  setFocusPolicy(Qt::TabFocus);
  setFixedSize(sizeHint());
  // Only a screen reader clicks in this way; mouse and keyboard are reported as they are pressed.
  connect(this, &QAbstractButton::clicked, this, [this] { emit Pressed(SwatchClick::Plain); });
}

void QtSwatch::ShowColor(const QColor& color) {
  color_ = color;
  setAccessibleDescription(WebName(color));
  update();
}

QSize QtSwatch::sizeHint() const {
  return {PixelsFromTwips(kSquareSide, logicalDpiX()), PixelsFromTwips(kSquareSide, logicalDpiY())};
}

void QtSwatch::mousePressEvent(QMouseEvent* event) {
  event->accept();
  emit Pressed(ClickOf(event->button() == Qt::LeftButton, event->modifiers()));
}

void QtSwatch::mouseReleaseEvent(QMouseEvent* event) {
  event->accept();
}

void QtSwatch::keyPressEvent(QKeyEvent* event) {
  if (IsApplyKey(event->key())) {
    emit Pressed(ClickOf(true, event->modifiers()));
  } else if (IsArrowKey(event->key())) {
    emit MoveKeyPressed(event->key());
  } else {
    event->ignore();
  }
}

void QtSwatch::keyReleaseEvent(QKeyEvent* event) {
  event->ignore();
}

void QtSwatch::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), color_);
  DrawEdge(painter, rect(), kOuterEdge);
  DrawEdge(painter, rect().adjusted(1, 1, -1, -1), kInnerEdge);
  if (hasFocus()) {
    const QColor mark = palette().color(QPalette::Highlight);
    DrawEdge(painter, rect(), mark);
    DrawEdge(painter, rect().adjusted(1, 1, -1, -1), mark);
    DrawEdge(painter, rect().adjusted(2, 2, -2, -2), kInnerEdge);
  }
}

QString WebName(const QColor& color) {
  return color.name(QColor::HexRgb).toUpper();
}

}  // namespace veyra
