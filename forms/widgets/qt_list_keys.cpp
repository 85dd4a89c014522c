#include "forms/widgets/qt_list_keys.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <utility>

namespace veyra {
namespace {

bool IsChoosing(int key) {
  return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
         key == Qt::Key_PageDown;
}

}  // namespace

QtListKeys::QtListKeys(QListWidget& list, std::function<void()> choose, QObject* parent)
    : QObject(parent), list_(list), choose_(std::move(choose)) {}

bool QtListKeys::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) {
    return QObject::eventFilter(watched, event);
  }
  auto& key = static_cast<QKeyEvent&>(*event);
  if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
    if (!key.isAutoRepeat()) {
      choose_();
    }
    return true;
  }
  if (qobject_cast<QLineEdit*>(watched) != nullptr && IsChoosing(key.key())) {
    QCoreApplication::sendEvent(&list_, event);
    return true;
  }
  return QObject::eventFilter(watched, event);
}

void ChooseLine(QListWidget& list, const QString& text, int otherwise) {
  list.setFocusPolicy(list.count() == 0 ? Qt::ClickFocus : Qt::StrongFocus);
  const auto same = list.findItems(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
  if (!text.isEmpty() && !same.isEmpty()) {
    list.setCurrentItem(same.first());
  } else {
    list.setCurrentRow(otherwise);
  }
}

QString ChosenLine(const QListWidget& list) {
  return list.currentItem() != nullptr ? list.currentItem()->text() : QString();
}

}  // namespace veyra
