#pragma once

#include <QStyledItemDelegate>

namespace veyra {

/// Draws the rows of the day grid: those of one booking hang together, with a bar at their left
/// edge and no line between them; of a series the bar is double, and its first row bears a mark.
class QtSlotDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  /// Tells the bookings of the day apart: a number from 1, or 0 where the slot is free.
  static constexpr int kBookingRole = Qt::UserRole;

  /// Whether the row's booking belongs to a series.
  static constexpr int kSeriesRole = Qt::UserRole + 1;

  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
};

}  // namespace veyra
