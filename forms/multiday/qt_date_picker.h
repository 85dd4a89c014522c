#pragma once

#include <QCalendarWidget>
#include <QDate>

namespace veyra {

/// A month in which a day is taken with a double-click or with Enter. The days of the months before
/// and after it, which are grey, can be taken too, though the first click on one turns the page.
class QtDatePicker : public QCalendarWidget {
  Q_OBJECT

 public:
  explicit QtDatePicker(QWidget* parent = nullptr);

 signals:
  void DayTaken(QDate day);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* days_;
  QDate clicked_;  ///< By the last click; no date when that was beside the days.
};

}  // namespace veyra
