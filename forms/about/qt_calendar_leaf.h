#pragma once

#include <QWidget>

namespace veyra {

/// Picture2: a leaf of a wall calendar.
class QtCalendarLeaf : public QWidget {
  Q_OBJECT

 public:
  explicit QtCalendarLeaf(QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace veyra
