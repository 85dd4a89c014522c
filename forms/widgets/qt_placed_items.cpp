#include "forms/widgets/qt_placed_items.h"

#include <QListWidget>
#include <QStringList>
#include <QTableWidget>

namespace veyra {

QVariant QtPlacedLine::data(int role) const {
  const QListWidget* list = listWidget();
  if (role != Qt::AccessibleDescriptionRole || list == nullptr) {
    return QListWidgetItem::data(role);
  }
  QStringList place{list->accessibleDescription(), list->accessibleName()};
  place.removeAll(QString());
  return place.join(QStringLiteral(", "));
}

QVariant QtPlacedCell::data(int role) const {
  const QTableWidget* table = tableWidget();
  if (role != Qt::AccessibleDescriptionRole || table == nullptr) {
    return QTableWidgetItem::data(role);
  }
  return table->accessibleDescription();
}

}  // namespace veyra
