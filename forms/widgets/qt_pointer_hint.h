#pragma once

#include <QLabel>

namespace veyra {

/// A few words that the pointer carries, or that stand beside a place. They take no input and are
/// always wholly on the screen.
class QtPointerHint : public QLabel {
  Q_OBJECT

 public:
  /// Hidden at first. `owner` must outlive it.
  explicit QtPointerHint(QWidget& owner);

  /// Shows the text beside that place of the screen; hides when the text is empty.
  void ShowBeside(const QPoint& place, const QString& text);
};

}  // namespace veyra
