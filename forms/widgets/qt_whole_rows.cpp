#include "forms/widgets/qt_whole_rows.h"

#include <QAbstractItemView>
#include <QEvent>
#include <algorithm>
#include <utility>

namespace veyra {

QtWholeRows::QtWholeRows(QAbstractItemView* view, RowHeight row_height, QWidget* parent)
    : QWidget(parent), view_(view), row_height_(std::move(row_height)) {
  view_->setParent(this);
  setSizePolicy(view_->sizePolicy());
  view_->viewport()->installEventFilter(this);
}

/// How high a row is, is certain only when the view has its font and its style.
void QtWholeRows::SeeAtLeast(int rows) {
  least_rows_ = rows;
  if (isVisible()) {
    MakeRoom();
  }
}

void QtWholeRows::MakeRoom() {
  setMinimumHeight(least_rows_ * std::max(row_height_(), 0) + 2 * view_->frameWidth());
}

void QtWholeRows::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (least_rows_ > 0) {
    MakeRoom();
  }
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
}

/// What the rows have is known only when the view has taken its headers and scroll bars from it,
/// and a view that is not shown yet does that later. The bar also tells that there are more rows
/// than are seen.
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
