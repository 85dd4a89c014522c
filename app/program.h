#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "app/form.h"
#include "app/startup.h"
#include "forms/desk_undo.h"
#include "forms/free/free_view.h"
#include "forms/handler_guard.h"
#include "forms/month/desk_actions.h"
#include "forms/month/frmCalendar.h"
#include "forms/month/other_desks.h"
#include "forms/month/qt_month_window.h"
#include "forms/print/door_sheets.h"
#include "forms/print/qt_sheet_printer.h"
#include "forms/settings/mixed_color.h"
#include "forms/widgets/qt_browser.h"
#include "forms/widgets/qt_feed_watch.h"
#include "forms/widgets/qt_foot_line.h"
#include "forms/widgets/qt_input_gate.h"
#include "forms/widgets/qt_waiting_sign.h"
#include "forms/windows.h"
#include "logic/clock.h"
#include "logic/help_viewer.h"
#include "logic/listings.h"
#include "logic/session.h"

namespace veyra {

class DayForm;
class QtAboutWindow;
class QtBoardWindow;
class QtDayViewerWindow;
class QtFindWindow;
class QtFreeWindow;
class QtMultiDayWindow;
class QtSettingsWindow;
class frmAbout;
class frmBoard;
class frmDayViewer;
class frmFind;
class frmFree;
class frmMultiDay;
class frmSettings;

/// The whole program: the state of a run and the windows that are open.
class Program : public Windows {
 public:
  /// `clock` and `dialogs` must outlive the program. REQUIRES: a QApplication.
  Program(const Clock& clock, Dialogs& dialogs);
  ~Program() override;

  /// Starts up and shows the month window. Returns false where StartUp does, and when it fails, of
  /// which the operator is told: the program must then end. The help and the companion program lie
  /// in `program_folder`; in `app_folder` when that is empty.
  bool Start(const std::filesystem::path& app_folder,
             const std::filesystem::path& program_folder = {},
             const ShowRunning& show_running = {});

  /// Ends the program from outside, whatever box is open: what is being done is finished, or broken
  /// off where the operator may do so too, and every question is answered as if its box were
  /// closed.
  void End();

  /// Closes both databases, so that nothing is left beside them, in a program that ends without
  /// going back to where it was. In the middle of a call to one of them nothing can be closed.
  void CloseDatabases();

  void ShowMonthWindow() override;
  void HideMonthWindow() override;
  void OpenDayWindow(const std::string& caption) override;
  void EnableMonthWindow(bool enabled) override;
  void RepaintMonthWindow() override;
  bool PrepareToOpenDay() override;
  void EnableDayWindow(bool enabled) override;
  void SelectSingleBooking() override;
  void OpenDayViewer(const std::string& caption) override;
  void ShowDayViewer() override;
  void HideDayViewer() override;
  void ShowMultiDayWindow(const std::string& from_text, modRes::SlotRange chosen) override;
  void OpenSettings() override;
  void OpenAbout() override;
  void OpenFind() override;
  void OpenFreeTimes() override;
  void OpenDayBoard(Date day) override;
  bool OpenDayOf(const std::string& facility, Date day) override;
  void ChooseRows(modRes::SlotRange rows) override;
  void ShowHelp(int topic) override;
  void Undo() override;
  void PrintDay(Date day) override;
  void PrintWeek(Date day) override;
  void ShowWhatIsStored() override;
  void ShowDayAnew() override;
  void ShowListsAnew() override;
  void LeaveDay() override;
  void EndProgram() override;

 private:
  // The day viewer, the colour settings, the about box and the small windows are made anew for each
  // opening; a closed one stays until then.
  using ViewerForm = Form<QtDayViewerWindow, frmDayViewer>;
  using MultiDayForm = Form<QtMultiDayWindow, frmMultiDay>;
  using SettingsForm = Form<QtSettingsWindow, frmSettings>;
  using AboutForm = Form<QtAboutWindow, frmAbout>;
  using FindForm = Form<QtFindWindow, frmFind>;
  using FreeForm = Form<QtFreeWindow, frmFree>;
  using BoardForm = Form<QtBoardWindow, frmBoard>;

  /// The day viewer's list while there is no day viewer.
  class NoDayList : public modRes::DayListScreen {
    void ShowDayList(const modRes::DayLines&) override {}
  };

  /// Opens the calendar file that is there now, and shows what is in it.
  void OpenCalendarAnew();

  /// Fills the month, the facility box and the windows of the day anew. Throws DatabaseError.
  void FillAnew();

  /// The window that the operator prints from.
  QWidget* PrintingWindow();

  void DropDayWindow();
  void DayWindowClosed();
  void DropReaders();

  /// Whether the operator would be disturbed if what is shown changed now.
  bool IsInTheMiddle() const;
  modRes::Listings ListingsOfDay();
  MultiDayForm& MultiDay();

  Dialogs& dialogs_;
  const Clock& clock_;
  HandlerGuard guard_;
  QtWaitingSign sign_{guard_};
  QtBrowser browser_;
  std::filesystem::path program_folder_;
  Session session_;
  QtMonthWindow month_window_;
  QtInputGate month_gate_;
  QtSheetPrinter printer_;
  DoorSheets sheets_;
  frmCalendar month_;
  QtFootLine foot_;
  DeskUndo undo_;
  DeskActions desk_;
  OtherDesks others_;
  QtFeedWatch others_watch_{{[this] { return others_.Take(); },
                             [this] { return guard_.IsRunning() || IsInTheMiddle(); },
                             [this] { guard_.Run([this] { others_.Show(); }); }}};
  NoDayList no_list_;
  std::unique_ptr<ViewerForm> viewer_;
  std::unique_ptr<MultiDayForm> multi_day_;
  MixedColor mixed_color_;
  std::unique_ptr<SettingsForm> settings_;
  std::unique_ptr<AboutForm> about_;
  std::unique_ptr<FindForm> find_;
  FreeFields free_fields_;
  std::unique_ptr<FreeForm> free_;
  std::unique_ptr<BoardForm> board_;
  std::unique_ptr<DayForm> day_;
  std::unique_ptr<HelpViewer> help_;
};

}  // namespace veyra
