#include "forms/widgets/qt_match_list.h"

#include <QEvent>
#include <QScrollBar>
#include <algorithm>

#include "forms/widgets/qt_text.h"

namespace veyra {
namespace {

constexpr int kGap = 2;

bool IsEnter(int key) {
  return key == Qt::Key_Return || key == Qt::Key_Enter;
}

}  // namespace

QtMatchList::QtMatchList(QWidget& box) : QListWidget(&box), box_(box) {
  setObjectName(QStringLiteral("matches"));
  setAccessibleName(ToQString(Phrase::Tr("Matching names")));
  setFocusPolicy(Qt::NoFocus);
  setUniformItemSizes(true);
  setTextElideMode(Qt::ElideRight);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFrameShape(QFrame::Box);
  hide();
  connect(this, &QListWidget::itemClicked, this,
          [this](QListWidgetItem* item) { Pick(row(item)); });
}

void QtMatchList::ShowMatches(const std::vector<std::string>& names) {
  names_ = names;
  if (names.empty()) {
    hide();
    return;
  }
  clear();
  for (const std::string& name : names) {
    auto* item = new QListWidgetItem(OneLine(name), this);
    item->setToolTip(PlainToolTip(name));
  }
  setCurrentRow(-1);
  if (parentWidget() != box_.window()) {
    setParent(box_.window());
    parentWidget()->installEventFilter(this);
  }
  Place();
  show();
  raise();
}

/// As wide as the box, or as the names need and the window allows.
void QtMatchList::Place() {
  const QWidget& window = *parentWidget();
  const QPoint below = box_.mapTo(&window, QPoint(0, box_.height()));
  const int wanted =
      sizeHintForColumn(0) + 2 * frameWidth() + verticalScrollBar()->sizeHint().width();
  const int width =
      std::clamp(wanted, box_.width(), std::max(box_.width(), window.width() - 2 * kGap));
  const int left = std::max(kGap, std::min(below.x(), window.width() - kGap - width));
  const int height = count() * sizeHintForRow(0) + 2 * frameWidth();
  setGeometry(left, below.y(), width, std::min(height, window.height() - kGap - below.y()));
}

void QtMatchList::Step(int step) {
  setCurrentRow(std::clamp(currentRow() + step, -1, count() - 1));
  if (currentRow() < 0) {
    clearSelection();
  }
}

bool QtMatchList::TakesKey(int key) {
  if (!isVisible()) {
    return false;
  }
  if (key == Qt::Key_Down || key == Qt::Key_Up) {
    Step(key == Qt::Key_Down ? 1 : -1);
    return true;
  }
  if (key == Qt::Key_Escape) {
    hide();
    return true;
  }
  const int chosen = currentRow();
  if (IsEnter(key)) {
    hide();
  }
  if (!IsEnter(key) || chosen < 0) {
    return false;
  }
  Pick(chosen);
  return true;
}

void QtMatchList::Pick(int row) {
  const std::string name = names_.at(static_cast<std::size_t>(row));
  hide();
  emit NamePicked(name);
}

bool QtMatchList::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize && isVisible()) {
    QMetaObject::invokeMethod(this, &QtMatchList::Place, Qt::QueuedConnection);
  }
  return QListWidget::eventFilter(watched, event);
}

}  // namespace veyra
