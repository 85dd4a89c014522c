#pragma once

#include <QMainWindow>
#include <array>
#include <functional>
#include <string>

#include "forms/day/day_view.h"
#include "forms/day/frmDay.h"
#include "forms/handler_guard.h"
#include "forms/twips.h"

class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;

namespace veyra {

class QtNameBox;
class QtSlotGrid;

/// The widgets of the day window. They report each gesture to its handler in frmDay, by way of the
/// guard, and decide nothing. Its width is fixed.
class QtDayWindow : public QMainWindow, public DayView {
  Q_OBJECT

 public:
  /// `guard` must outlive the window.
  explicit QtDayWindow(const HandlerGuard& guard);

  /// REQUIRES: called before the operator can reach the window. A window without a handler reports
  /// nothing.
  void SetHandler(frmDay* handler) { handler_ = handler; }

  /// Whether rows are being dragged over.
  bool IsDragging() const;

  void ShowGrid(const DayGrid& grid) override;
  void ShowHeading(const std::string& facility, const Phrase& weekday) override;
  void ShowNameBox(const NameBox& box) override;
  void ShowName(const std::string& text) override;
  void ShowNameHint(const Phrase& hint) override;
  void ShowRangeHint(const Phrase& hint) override;
  void ScrollToRow(int row) override;
  void SetCurrentRow(int row) override;
  void ChooseRows(int first, int last) override;
  void ShowMode(bool multiple) override;
  void SelectAllText() override;
  void PlaceOnScreen() override;
  void CloseWindow() override;

 signals:
  void Unloaded();  ///< The window is closed, and its handler knows.

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void BuildMenu();
  void BuildContents();
  QWidget* BuildHead();
  QGroupBox* BuildFrame();
  QRadioButton* AddOption(int index, const char* caption, QWidget* frame);
  void WireGrid();
  void WireNameBox();
  void DescribeGrid();
  void Report(const std::function<void(frmDay&)>& gesture);
  int Pixels(Twips twips) const;

  const HandlerGuard& guard_;
  frmDay* handler_ = nullptr;
  QWidget* head_ = nullptr;
  QLabel* heading_ = nullptr;
  QtNameBox* Combo1_ = nullptr;
  std::array<QRadioButton*, 2> Book_{};
  QtSlotGrid* MSFlexGrid1_ = nullptr;
  QPushButton* Command2_ = nullptr;
};

}  // namespace veyra
