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

  /// Makes the place, from when it is shown, at least so many rows high. The view has no header.
  void SeeAtLeast(int rows);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void MakeRoom();
  void Fit();

  QAbstractItemView* view_;
  RowHeight row_height_;
  int least_rows_ = 0;
};

}  // namespace veyra
