#include "forms/multiday/qt_date_picker.h"

#include <QAbstractItemView>
#include <QMouseEvent>

namespace veyra {

QtDatePicker::QtDatePicker(QWidget* parent)
    : QCalendarWidget(parent), days_(findChild<QAbstractItemView*>()->viewport()) {
  days_->installEventFilter(this);
  connect(this, &QCalendarWidget::clicked, this, [this](QDate day) { clicked_ = day; });
  connect(this, &QCalendarWidget::activated, this, &QtDatePicker::DayTaken);
}

/// The second click of a double-click means the day of the first, whatever lies there by now.
bool QtDatePicker::eventFilter(QObject* watched, QEvent* event) {
  const bool press = event->type() == QEvent::MouseButtonPress;
  if (watched != days_ || !(press || event->type() == QEvent::MouseButtonDblClick)) {
    return QCalendarWidget::eventFilter(watched, event);
  }
  if (press) {
    clicked_ = QDate();
    return QCalendarWidget::eventFilter(watched, event);
  }
  if (clicked_.isValid() && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
    emit DayTaken(clicked_);
  }
  return true;
}

}  // namespace veyra
