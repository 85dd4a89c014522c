#pragma once

#include <QLineEdit>

namespace veyra {

/// A field for a date as text. A double-click in it asks for the picker, as do F4 and Alt+Down.
class QtDateField : public QLineEdit {
  Q_OBJECT

 public:
  using QLineEdit::QLineEdit;

 signals:
  void PickerWanted();

 protected:
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace veyra
