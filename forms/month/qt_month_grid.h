#pragma once

#include <QWidget>
#include <array>
#include <cstdint>

#include "data/one_based.h"
#include "forms/mouse_button.h"
#include "logic/listings.h"

class QLabel;

namespace veyra {

class QtDayCell;

/// The weekday headers, Label2(0) to (6), over the 42 day cells. One cell at a time is reached with
/// the Tab key; the arrow keys lead from it to the others.
class QtMonthGrid : public QWidget {
  Q_OBJECT

 public:
  explicit QtMonthGrid(QWidget* parent = nullptr);

  /// Shows the cells 1 to 42. The cell that has the focus keeps it, or passes it to the nearest one
  /// that holds a day; the first month ever shown gives it to today's cell.
  void ShowCells(const OneBased<modRes::MonthCell, 42>& cells);

  /// Shows these lines in lstDay(index), 1 to 42.
  void ShowLines(int index, const modRes::DayLines& lines);

  /// Tells a screen reader whose bookings the lines are.
  void ShowFacility(const QString& name);

  /// Gives the focus to lstDay(index), a cell that holds a day.
  void Choose(int index);

  /// The cell that has the focus or had it last; 0 before any month was shown.
  int Chosen() const { return tab_stop_; }

  /// Says in the middle of the days what is to be done first; nothing when the text is empty.
  void ShowHint(const QString& hint);

  /// The background of the window, as a stored colour, on which the numbers are drawn from the next
  /// month on; and the colour of the weekdays.
  void SetColors(std::int32_t background, const QColor& header);

  /// Whether the widget is one of the weekday headers.
  bool IsHeader(const QWidget* widget) const;

 signals:
  void DayPressed(int index, veyra::MouseButton button);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void AddHeaders();
  void AddCells();
  void AddHint();
  QtDayCell& Cell(int index) { return *cells_[index]; }
  void LayOut();
  void CollapseEmptyWeeks();
  bool HasDay(int index) const;
  int NearestDay(int index) const;
  void Move(int index, int key);
  void MakeTabStop(int index);

  std::array<QLabel*, 7> Label2_{};
  OneBased<QtDayCell*, 42> cells_;
  OneBased<bool, 42> has_day_;
  QLabel* hint_ = nullptr;
  std::int32_t background_ = 0;
  int weeks_ = 6;  ///< Those that hold days of the month.
  int tab_stop_ = 0;
};

}  // namespace veyra
