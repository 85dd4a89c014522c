#pragma once

#include <QBasicTimer>
#include <QTableWidget>
#include <functional>

#include "data/phrase.h"
#include "logic/day_grid.h"

namespace veyra {

class QtPointerHint;

/// MSFlexGrid1: a row for each half hour, its time in column 0 and who has booked it in column 1.
/// Rows count from 1, as the header is row 0. A range of rows is chosen by dragging with the left
/// button, or with the arrow keys, Shift and Enter, and is highlighted meanwhile.
class QtSlotGrid : public QTableWidget {
  Q_OBJECT

 public:
  explicit QtSlotGrid(QWidget* parent = nullptr);

  /// Shows the names in column 1.
  void ShowGuests(const DayGrid& grid);

  /// Scrolls so that `row` is the topmost one seen, however high the grid is; as soon as the grid
  /// is on the screen if it is not there yet.
  void ScrollToRow(int row);

  /// Makes `row` the current one, from which the next range of the keyboard begins. What is in
  /// sight stays there.
  void SetCurrentRow(int row);

  /// Highlights the range and brings it in sight, as if the keyboard had stretched it.
  void ChooseRows(int first, int last);

  /// What is to be said of a row's booking; empty where there is none.
  using RowHint = std::function<Phrase(int row)>;
  void SetRowHint(RowHint hint) { row_hint_ = std::move(hint); }

  /// Says beside the pointer, or below the rows while they are chosen by key, what has been chosen
  /// so far. Nothing is said of rows that somebody else has chosen.
  void ShowRangeHint(const QString& hint);

  bool IsDragging() const { return dragging_; }

  int CurrentRow() const { return currentRow() + 1; }

 signals:
  /// These rows are highlighted now, `anchor` being the one in which the range was begun.
  void Stretched(int anchor, int end);

  /// A range was begun in `row`, 1 to 48, while `current_row` was the current one.
  void Pressed(int row, int current_row);

  /// The range was ended in `row`, the nearest one to the mouse, or in the header, 0; in the time
  /// column, 0, or in column 1. The highlight goes when this has been dealt with, unless rows were
  /// chosen meanwhile.
  void Released(int row, int column);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  bool viewportEvent(QEvent* event) override;

 private:
  void AddRows();
  int RowNear(int y) const;
  int FirstRowSeen() const;
  int LastRowSeen() const;
  bool IsRowSeen(int row) const;
  void StretchRangeTo(int row);
  void ScrollWhileDragging(int y);
  void MoveTo(int row, bool stretch);
  void EndRange();
  void Report(int row, int column);
  void StretchRows();
  void ShrinkFontTo(int time_width);
  bool SayWhatIsAt(const QPoint& position, const QPoint& screen_position);
  void ShowHintBelow(int row, const QString& hint);
  void HideHint();

  RowHint row_hint_;
  QtPointerHint* hint_;
  bool dragging_ = false;
  bool has_moved_ = false;  ///< Since the button went down.
  bool choosing_by_key_ = false;
  bool stays_chosen_ = false;  ///< Somebody else has chosen rows since a range was ended.
  QPoint pointer_;             ///< On the screen, while rows are dragged over.
  int anchor_row_ = 1;         ///< Where the range begins.
  int end_row_ = 1;            ///< Where it ends, above or below.
  int wanted_top_row_ = 0;
  int drag_y_ = 0;
  QBasicTimer scroll_timer_;
};

}  // namespace veyra
