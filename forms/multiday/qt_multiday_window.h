#pragma once

#include <QMainWindow>
#include <array>
#include <functional>

#include "data/one_based.h"
#include "forms/handler_guard.h"
#include "forms/multiday/frmMultiDay.h"
#include "forms/multiday/multiday_view.h"
#include "forms/widgets/qt_piecework.h"

class QBoxLayout;
class QCheckBox;
class QLabel;
class QPushButton;

namespace veyra {

class QtDateField;
class QtDatePicker;

/// The widgets of the multiple-day window. The upper part is for the weekdays and, while a date is
/// picked, for the picker; the two date fields are below it, so that it never covers either. They
/// report each gesture to its handler in frmMultiDay, by way of the guard, and decide nothing.
class QtMultiDayWindow : public QMainWindow, public MultiDayView {
  Q_OBJECT

 public:
  /// The window that this one opens beside, asked each time; nullptr when there is none.
  using Neighbour = std::function<QWidget*()>;

  /// `guard` must outlive the window.
  QtMultiDayWindow(const HandlerGuard& guard, Neighbour neighbour);

  /// REQUIRES: called before the operator can reach the window. `frmMultiDay` must outlive it.
  void SetHandler(frmMultiDay* handler) { handler_ = handler; }

  void ShowPlan(const MultiDayPlan& plan) override;
  void ShowPlanLine(const PlanLine& line) override;
  void KeepWorking(bool working) override;
  void ShowPicker(const PickerPlace& place, Date selected) override;
  void HidePicker(bool keep_close_button) override;
  void ShowWindow() override;
  void HideWindow() override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  using Handler = void (frmMultiDay::*)();

  void BuildUpperPart();
  QWidget* BuildWeekdays();
  void BuildPicker();
  void AddDateField(QBoxLayout* row, std::size_t index);
  void AddPlanLine(QBoxLayout* column);
  void AddButtons(QBoxLayout* column);
  QPushButton* AddButton(const char* name, const char* caption, const char* tooltip,
                         Handler handler);
  void DismissPicker();
  void Report(Handler handler);
  int Pixels(Twips twips) const;

  const HandlerGuard& guard_;
  Neighbour neighbour_;
  frmMultiDay* handler_ = nullptr;
  QWidget* upper_part_ = nullptr;
  std::array<QtDateField*, 2> Text1_{};
  OneBased<QCheckBox*, 7> Days_;  ///< By weekday, 1 to 7.
  QtDatePicker* Calendar1_ = nullptr;
  QPushButton* Command1_ = nullptr;
  QPushButton* Command2_ = nullptr;
  QPushButton* Command3_ = nullptr;
  QLabel* planLine_ = nullptr;
  QLabel* planNote_ = nullptr;
  std::size_t edited_field_ = 0;
  QtPiecework work_{[this] { Report(&frmMultiDay::Work); }};
};

}  // namespace veyra
