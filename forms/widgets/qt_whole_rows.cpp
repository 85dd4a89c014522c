#include "forms/widgets/qt_whole_rows.h"

#include <QAbstractItemView>
#include <QEvent>
#include <utility>

namespace veyra {

QtWholeRows::QtWholeRows(QAbstractItemView* view, RowHeight row_height, QWidget* parent)
    : QWidget(parent), view_(view), row_height_(std::move(row_height)) {
  view_->setParent(this);
  setSizePolicy(view_->sizePolicy());
  view_->viewport()->installEventFilter(this);
}

QSize QtWholeRows::sizeHint() const {
  return view_->sizeHint();
}

QSize QtWholeRows::minimumSizeHint() const {
  return view_->minimumSizeHint();
}

void QtWholeRows::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  view_->setGeometry(rect());
  Fit();
}

/// What the rows have is known only when the view has taken its headers and scroll bars from it.
/// The bar also tells that there are more rows than are seen.
bool QtWholeRows::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) {
    Fit();
  }
  return QWidget::eventFilter(watched, event);
}

void QtWholeRows::Fit() {
  const int row = row_height_();
  const int room = view_->viewport()->height();
  if (row > 0 && room > row && room % row != 0) {
    view_->resize(view_->width(), view_->height() - room % row);
  }
}

}  // namespace veyra
