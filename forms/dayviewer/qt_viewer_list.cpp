#include "forms/dayviewer/qt_viewer_list.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>

#include "forms/widgets/qt_keys.h"
#include "forms/widgets/qt_mouse_button.h"
#include "forms/widgets/qt_placed_items.h"
#include "forms/widgets/qt_text.h"

namespace veyra {
namespace {

constexpr int kPointSize = 16;

}  // namespace

QtViewerList::QtViewerList(QWidget* parent) : QListWidget(parent) {
  QFont font(QStringLiteral("Courier New"), kPointSize);
  font.setStyleHint(QFont::Monospace);
  setFont(font);
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setTextElideMode(Qt::ElideNone);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  setToolTip(
      QStringLiteral("Right Click to Add/Change the Bookings for this Day Left Click on Item for "
                     "more Detail"));
}

void QtViewerList::ShowLines(const modRes::DayLines& lines) {
  if (lines == lines_) {
    return;
  }
  const std::vector<std::string> selected = SelectedLines();
  const std::string current =
      currentRow() < 0 ? "" : lines_.at(static_cast<std::size_t>(currentRow()));
  const QPoint place(horizontalScrollBar()->value(), verticalScrollBar()->value());
  lines_ = lines;
  clear();
  for (const std::string& line : lines) {
    addItem(new QtPlacedLine(OneLine(line)));
    item(count() - 1)
        ->setSelected(std::find(selected.begin(), selected.end(), line) != selected.end());
    if (line == current) {
      setCurrentRow(count() - 1, QItemSelectionModel::NoUpdate);
    }
  }
  doItemsLayout();
  horizontalScrollBar()->setValue(place.x());
  verticalScrollBar()->setValue(place.y());
}

std::vector<std::string> QtViewerList::SelectedLines() const {
  std::vector<std::string> selected;
  for (int row = 0; row < count(); ++row) {
    if (item(row)->isSelected()) {
      selected.push_back(lines_.at(static_cast<std::size_t>(row)));
    }
  }
  return selected;
}

void QtViewerList::mousePressEvent(QMouseEvent* event) {
  QListWidget::mousePressEvent(event);
  emit Pressed(ToMouseButton(event->button()));
}

void QtViewerList::mouseDoubleClickEvent(QMouseEvent* event) {
  mousePressEvent(event);
}

/// A box may have come up since the press, so the mouse is not followed.
void QtViewerList::mouseMoveEvent(QMouseEvent* event) {
  event->accept();
}

/// The press or the key that asks for a menu is dealt with as what it is.
void QtViewerList::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
}

void QtViewerList::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    if (currentItem() != nullptr && selectedItems().isEmpty()) {
      currentItem()->setSelected(true);
    }
    emit Pressed(MouseButton::Left);
  } else if (IsMenuKey(*event)) {
    emit Pressed(MouseButton::Right);
  } else {
    QListWidget::keyPressEvent(event);
  }
}

}  // namespace veyra
