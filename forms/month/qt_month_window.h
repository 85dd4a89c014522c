#pragma once

#include <QMainWindow>
#include <array>
#include <string>

#include "forms/handler_guard.h"
#include "forms/month/frmCalendar.h"
#include "forms/month/month_on_screen.h"
#include "forms/month/month_view.h"

class QAction;
class QLabel;
class QMenu;
class QPushButton;

namespace veyra {

class DeskActions;
class QtDeskMenu;
class QtMonthGrid;
class QtNameBox;

/// The widgets of the month window. They report each gesture to its handler in frmCalendar, by way
/// of the guard, and decide nothing.
class QtMonthWindow : public QMainWindow, public MonthView {
  Q_OBJECT

 public:
  /// `guard` must outlive the window.
  explicit QtMonthWindow(const HandlerGuard& guard);

  /// REQUIRES: called before the operator can reach the window. Both must outlive it.
  void SetHandler(frmCalendar* handler, DeskActions* desk);

  void ShowMonth(const modRes::MonthPicture& picture) override;
  void ShowDayCell(int cell_index, const modRes::DayLines& lines) override;
  const modRes::MonthPicture& Shown() const override { return shown_.Picture(); }
  void ShowFacilityBox(const NameBox& box) override;
  void ShowFacilityHint(const Phrase& hint) override;
  void ShowRoom(const std::string& room) override;
  void ShowColors(std::int32_t background, std::int32_t header) override;
  void ShowControls(bool visible) override;
  void SelectAllText() override;
  void FocusPrintButton() override;
  void ChooseDay(int cell_index) override;
  int ChosenDay() const override;
  void PlaceAtTopCentre() override;

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  using Handler = void (frmCalendar::*)();

  void BuildMenus();
  QWidget* BuildTitles();
  QWidget* BuildControls();
  void BuildContents();
  void WireFacilityBox();
  void WirePageKeys();
  QPushButton* AddButton(const char* name, const char* caption, const char* tooltip,
                         Handler handler);
  QAction* AddMenuItem(QWidget* menu, const char* name, const char* caption, Handler handler);
  void Report(Handler handler);
  void ReportClickAt(const QPoint& place);

  const HandlerGuard& guard_;
  frmCalendar* handler_ = nullptr;
  MonthOnScreen shown_;
  QLabel* lblMonth_ = nullptr;
  QLabel* lblRoom_ = nullptr;
  QLabel* Label1_ = nullptr;
  QtNameBox* Combo1_ = nullptr;
  QPushButton* Command1_ = nullptr;
  QPushButton* Command2_ = nullptr;
  QPushButton* Command3_ = nullptr;
  QPushButton* Command4_ = nullptr;
  QtMonthGrid* grid_ = nullptr;
  QtDeskMenu* desk_menu_ = nullptr;
};

}  // namespace veyra
