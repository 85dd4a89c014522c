#include "forms/settings/qt_swatch.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <initializer_list>

#include "forms/settings/palette.h"
#include "forms/twips.h"
#include "forms/widgets/qt_colors.h"

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

/// Rectangles within each other, for lines would be blurred on a screen of fractional scale.
void FillRings(QPainter& painter, QRect rect, std::initializer_list<QColor> colors) {
  for (const QColor& color : colors) {
    painter.fillRect(rect, color);
    rect.adjust(1, 1, -1, -1);
  }
}

}  // namespace

QtSwatch::QtSwatch(QWidget* parent) : QAbstractButton(parent) {
  setFocusPolicy(Qt::TabFocus);
  setFixedSize(QtSwatch::sizeHint());
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
  if (hasFocus()) {
    const QColor mark = palette().color(QPalette::Highlight);
    const QColor edge = ReadableOn(color_, kInnerEdge);
    FillRings(painter, rect(), {mark, mark, edge, edge, color_});
  } else {
    FillRings(painter, rect(), {kOuterEdge, kInnerEdge, color_});
  }
}

QString WebName(const QColor& color) {
  return color.name(QColor::HexRgb).toUpper();
}

}  // namespace veyra
