#pragma once

#include <QListWidgetItem>
#include <QTableWidgetItem>

namespace veyra {

/// A line of which a screen reader says, after its text, where it stands: the description and the
/// name of its list.
class QtPlacedLine : public QListWidgetItem {
 public:
  using QListWidgetItem::QListWidgetItem;

  QVariant data(int role) const override;
};

/// A cell of which a screen reader says, after its text, the description of its table.
class QtPlacedCell : public QTableWidgetItem {
 public:
  using QTableWidgetItem::QTableWidgetItem;

  QVariant data(int role) const override;
};

}  // namespace veyra
