#pragma once

#include <QLabel>

namespace veyra {

/// A label of one line that takes the room it is given and no more: a longer text ends in "...".
class QtElidedLabel : public QLabel {
  Q_OBJECT

 public:
  explicit QtElidedLabel(QWidget* parent = nullptr);

  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace veyra
