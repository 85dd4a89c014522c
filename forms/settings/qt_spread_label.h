#pragma once

#include <QLabel>

namespace veyra {

/// A line of words that stand in the columns of a week, the first one in `first_column` (0 for
/// Sunday's). How many blanks its text has between the words does not matter.
class QtSpreadLabel : public QLabel {
  Q_OBJECT

 public:
  QtSpreadLabel(const QString& text, int first_column, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int first_column_;
};

}  // namespace veyra
