#pragma once

#include <QListWidget>
#include <QObject>
#include <functional>

namespace veyra {

/// Lets a list be worked while a field beside it has the focus: Up, Down and the page keys that are
/// pressed in a watched line of text are handed on to the list, and Enter in any watched widget
/// chooses the list's current line. An Enter that repeats itself chooses nothing.
class QtListKeys : public QObject {
  Q_OBJECT

 public:
  /// `list` must outlive it.
  QtListKeys(QListWidget& list, std::function<void()> choose, QObject* parent);

  void Watch(QWidget& widget) { widget.installEventFilter(this); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QListWidget& list_;
  std::function<void()> choose_;
};

/// Makes the line of that text the current one, or the one in row `otherwise` when there is none. A
/// list without lines is no stop of the Tab key.
void ChooseLine(QListWidget& list, const QString& text, int otherwise);

/// The text of the current line; empty without one.
QString ChosenLine(const QListWidget& list);

}  // namespace veyra
