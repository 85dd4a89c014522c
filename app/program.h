#pragma once

#include <memory>
#include <string>

#include "forms/handler_guard.h"
#include "forms/month/frmCalendar.h"
#include "forms/month/qt_month_window.h"
#include "forms/qt_dialogs.h"
#include "forms/windows.h"
#include "logic/clock.h"
#include "logic/listings.h"
#include "logic/multiday.h"
#include "logic/session.h"

namespace veyra {

class OpenDay;

/// The whole program: the state of a run and the windows that are open.
class Program : public Windows {
 public:
  /// `clock` and `dialogs` must outlive the program. REQUIRES: a QApplication.
  Program(const Clock& clock, Dialogs& dialogs);
  ~Program() override;

  /// Starts up and shows the month window. When that fails the operator is told and it returns
  /// false: the program must then end. `app_folder` has no separator at its end.
  bool Start(const std::string& app_folder);

  void ShowMonthWindow() override;
  void HideMonthWindow() override;
  void OpenDayWindow(const std::string& caption) override;
  void EnableMonthWindow(bool enabled) override;
  void RepaintMonthWindow() override;
  bool MayOpenDay() override;
  void EnableDayWindow(bool enabled) override;
  void SelectSingleBooking() override;
  void OpenDayViewer(const std::string& caption) override;
  void ShowDayViewer() override;
  void HideDayViewer() override;
  void ShowMultiDayWindow(const std::string& from_text) override;
  void OpenSettings() override;
  void OpenAbout() override;
  void EndProgram() override;

 private:
  void DropDayWindow();

  /// The day viewer's list while there is no day viewer.
  class NoDayList : public modRes::DayListScreen {
    void ShowDayList(const modRes::DayLines&) override {}
  };

  Dialogs& dialogs_;
  const Clock& clock_;
  HandlerGuard guard_;
  Session session_;
  QtMonthWindow month_window_;
  frmCalendar month_;
  NoDayList viewer_list_;
  MultiDayPlan plan_;
  std::unique_ptr<OpenDay> day_;
};

}  // namespace veyra
