#pragma once

#include <QWidget>
#include <optional>

#include "logic/listings.h"

class QBoxLayout;
class QLabel;

namespace veyra {

class QtDayList;

/// One of the 42 places of the month grid: a day number, lblDate(i), over a list, lstDay(i), in a
/// frame. It keeps its place when its day is hidden.
class QtDayCell : public QWidget {
  Q_OBJECT

 public:
  /// `index` is 1 to 42.
  QtDayCell(int index, QWidget* parent);

  /// Shows the day, or nothing when the cell does not belong to the month. A list of the same day
  /// stays where it was scrolled to; it begins at its beginning after ForgetDay. The list's
  /// background changes only when the cell names one. `background`: the window's, as a stored
  /// colour.
  void ShowDay(const modRes::MonthCell& cell, std::int32_t background);

  /// Puts the number beside the list, where there is no room to put it above, and sets the size of
  /// the list's font.
  void SetLayout(bool number_beside, double point_size);

  void ForgetDay() { day_.reset(); }

  QtDayList& List() { return *lstDay_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  void ShowNumber(const modRes::MonthCell& cell, std::int32_t background);
  void DrawFrame(QPainter& painter, const QColor& color, int outside, int width) const;
  QColor FrameColor() const;

  QBoxLayout* layout_;
  QLabel* lblDate_;
  QtDayList* lstDay_;
  std::optional<Date> day_;  ///< Of what the list shows.
  bool has_day_ = false;
  bool is_today_ = false;
};

}  // namespace veyra
