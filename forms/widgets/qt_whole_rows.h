#pragma once

#include <QWidget>
#include <functional>

class QAbstractItemView;

namespace veyra {

/// The place of a list or table in which its last row is seen whole: as much of the height as would
/// show a part of a row stays empty below it.
class QtWholeRows : public QWidget {
 public:
  /// Pixels; 0 or less when it is not known yet.
  using RowHeight = std::function<int()>;

  /// Takes the view, whose rows are all equally high. It keeps its wishes for its size.
  QtWholeRows(QAbstractItemView* view, RowHeight row_height, QWidget* parent = nullptr);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Fit();

  QAbstractItemView* view_;
  RowHeight row_height_;
};

}  // namespace veyra
