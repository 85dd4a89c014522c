#include "forms/multiday/qt_date_field.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace veyra {

void QtDateField::mouseDoubleClickEvent(QMouseEvent* event) {
  QLineEdit::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton) {
    emit PickerWanted();
  }
}

void QtDateField::keyPressEvent(QKeyEvent* event) {
  const bool f4 = event->key() == Qt::Key_F4 && event->modifiers() == Qt::NoModifier;
  const bool alt_down = event->key() == Qt::Key_Down && event->modifiers() == Qt::AltModifier;
  if (f4 || alt_down) {
    emit PickerWanted();
  } else {
    QLineEdit::keyPressEvent(event);
  }
}

}  // namespace veyra
