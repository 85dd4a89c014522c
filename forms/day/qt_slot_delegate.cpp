#include "forms/day/qt_slot_delegate.h"

#include <QAbstractItemView>
#include <QPainter>

#include "forms/widgets/qt_colors.h"

namespace veyra {
namespace {

constexpr int kBarWidth = 3;
constexpr int kThinBarWidth = 1;
constexpr int kBarGap = 1;
constexpr int kBarMargin = 1;
constexpr int kTextMargin = kBarMargin + kBarWidth + kBarGap + kThinBarWidth;
constexpr int kMarkSize = 6;
constexpr int kMarkShift = 3;
constexpr int kMarkRoom = kMarkSize + kMarkShift + 5;
constexpr int kFocusWidth = 2;
constexpr double kLineStrength = 0.25;
constexpr double kBarStrength = 0.85;

int BookingOf(const QModelIndex& index) {
  return index.data(QtSlotDelegate::kBookingRole).toInt();
}

/// Of one booking, the rows that are seen without another between them.
struct Run {
  int Booking = 0;
  bool IsFirst = false;
  bool IsLast = false;
  bool IsSeries = false;
};

Run RunAt(const QModelIndex& index) {
  const int booking = BookingOf(index);
  const auto is_other = [&](int step) {
    return BookingOf(index.siblingAtRow(index.row() + step)) != booking;
  };
  return {booking, is_other(-1), is_other(1), index.data(QtSlotDelegate::kSeriesRole).toBool()};
}

/// Whether the keyboard works in this row.
bool HasFocusRow(const QStyleOptionViewItem& option, const QModelIndex& index) {
  const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
  return view != nullptr && view->hasFocus() && view->currentIndex().row() == index.row();
}

/// Two sheets, one behind the other.
void DrawSeriesMark(QPainter& painter, const QRect& row, const QColor& color,
                    const QColor& ground) {
  const int left = row.right() - kMarkRoom + 2;
  const int top = row.center().y() - (kMarkSize + kMarkShift) / 2;
  const QRect behind(left + kMarkShift, top, kMarkSize, kMarkSize);
  painter.setPen(color);
  painter.setBrush(ground);
  painter.drawRect(behind);
  painter.drawRect(behind.translated(-kMarkShift, kMarkShift));
}

void DrawBars(QPainter& painter, const QRect& row, const Run& run, const QColor& color) {
  const int top = row.top() + (run.IsFirst ? 2 : 0);
  const int bottom = row.bottom() - (run.IsLast ? 3 : 0);
  QRect bar(QPoint(row.left() + kBarMargin, top), QPoint(row.left() + kBarWidth, bottom));
  painter.fillRect(bar, color);
  if (run.IsSeries) {
    bar.moveLeft(bar.right() + 1 + kBarGap);
    bar.setWidth(kThinBarWidth);
    painter.fillRect(bar, color);
  }
}

}  // namespace

void QtSlotDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
  const Run run = RunAt(index);
  const QPalette& theme = option.palette;
  const QColor line =
      Blend(theme.color(QPalette::Base), theme.color(QPalette::Text), kLineStrength);
  const QColor bar =
      Blend(theme.color(QPalette::Base), theme.color(QPalette::Highlight), kBarStrength);
  QStyleOptionViewItem cell = option;
  cell.state &= ~QStyle::State_HasFocus;
  const bool has_mark = run.Booking != 0 && run.IsFirst && run.IsSeries;
  if (run.Booking != 0) {
    painter->fillRect(option.rect, index.data(Qt::BackgroundRole).value<QBrush>());
    if (option.state.testFlag(QStyle::State_Selected)) {
      painter->fillRect(option.rect, theme.brush(QPalette::Highlight));
    }
    cell.rect.adjust(kTextMargin, 0, has_mark ? -kMarkRoom : 0, 0);
  }
  QStyledItemDelegate::paint(painter, cell, index);
  painter->save();
  if (run.Booking == 0 || run.IsLast) {
    painter->fillRect(QRect(option.rect.bottomLeft(), option.rect.bottomRight()), line);
  }
  painter->fillRect(QRect(option.rect.topRight(), option.rect.bottomRight()), line);
  const bool selected = option.state.testFlag(QStyle::State_Selected);
  const QColor ink = selected ? theme.color(QPalette::HighlightedText) : bar;
  if (run.Booking != 0) {
    DrawBars(*painter, option.rect, run, ink);
  }
  if (has_mark) {
    DrawSeriesMark(*painter, option.rect, selected ? ink : theme.color(QPalette::Text),
                   selected ? theme.color(QPalette::Highlight) : theme.color(QPalette::Base));
  }
  if (HasFocusRow(option, index)) {
    painter->fillRect(option.rect.adjusted(0, 0, 0, kFocusWidth - option.rect.height()), ink);
    painter->fillRect(option.rect.adjusted(0, option.rect.height() - kFocusWidth, 0, 0), ink);
  }
  painter->restore();
}

}  // namespace veyra
