#include "app/program.h"

#include <QApplication>
#include <QObject>
#include <QUrl>
#include <utility>

#include "app/daily_backup.h"
#include "app/day_form.h"
#include "app/front_refresh.h"
#include "app/translation.h"
#include "data/errors.h"
#include "forms/about/frmAbout.h"
#include "forms/about/qt_about_window.h"
#include "forms/board/frmBoard.h"
#include "forms/board/qt_board_window.h"
#include "forms/dayviewer/frmDayViewer.h"
#include "forms/dayviewer/qt_dayviewer_window.h"
#include "forms/find/frmFind.h"
#include "forms/find/qt_find_window.h"
#include "forms/free/frmFree.h"
#include "forms/free/qt_free_window.h"
#include "forms/multiday/frmMultiDay.h"
#include "forms/multiday/qt_multiday_window.h"
#include "forms/settings/frmSettings.h"
#include "forms/settings/qt_settings_window.h"
#include "forms/widgets/qt_progress_box.h"
#include "forms/widgets/qt_text.h"
#include "forms/widgets/qt_window_place.h"
#include "help/qt_help_viewer.h"
#include "logic/facilities.h"

namespace veyra {

Program::Program(const Clock& clock, Dialogs& dialogs)
    : dialogs_(dialogs),
      clock_(clock),
      guard_(dialogs),
      month_window_(guard_),
      month_gate_(month_window_),
      printer_([this] { return PrintingWindow(); }),
      sheets_(session_, printer_, dialogs, clock),
      month_(session_, month_window_, *this, dialogs, clock, printer_),
      undo_(session_, *this, foot_, dialogs),
      desk_(month_, *this, dialogs, clock),
      others_(session_, month_, *this, dialogs) {
  session_.Waiting = WaitPolicy(kStoreTimeout, &sign_);
  month_window_.SetHandler(&month_, &desk_);
  guard_.SetRecovery([this] { FillAnew(); });
  guard_.SetAfterwards([this] { undo_.TellOfChange(); });
  foot_.Add(month_window_);
  guard_.SetReopening([this] { OpenCalendarAnew(); });
}

Program::~Program() = default;

bool Program::Start(const std::filesystem::path& app_folder,
                    const std::filesystem::path& program_folder, const ShowRunning& show_running) {
  program_folder_ = program_folder.empty() ? app_folder : program_folder;
  try {
    if (!StartUp(session_, month_, dialogs_, app_folder, show_running)) {
      return false;
    }
  } catch (const std::exception& failure) {
    dialogs_.MsgBox(StandardReport(failure));
    return false;
  }
  // By value: the call may come when the program has ended.
  new FirstPaint(month_window_, [companion = program_folder_, data = session_.DataFolder] {
    StartDailyBackup(companion, data);
  });
  ShowMonthWindow();
  others_watch_.Watch(others_.Listen());
  new FrontRefresh(
      &month_window_, clock_,
      {[this] { return IsInTheMiddle(); },
       [this] {
         guard_.Run([this] {
           // A facility's name that is being typed stays.
           if (month_.FacilityBox().Text == modRes::CurrentFacility(session_).value_or("")) {
             FillAnew();
           } else {
             month_.RefreshMonth();
           }
         });
       }});
  return true;
}

void Program::End() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (auto* box = qobject_cast<QtProgressBox*>(window)) {
      box->reject();
    }
  }
  QCoreApplication::exit(0);
}

void Program::CloseDatabases() {
  if (!sign_.IsWaiting()) {
    DropReaders();
    session_.ResCon.reset();
    session_.GuestCon.reset();
  }
}

/// They read the calendar that is about to be closed.
void Program::DropReaders() {
  others_watch_.Watch(-1);
  others_.Drop();
  if (find_) {
    find_->Logic.Drop();
  }
  if (free_) {
    free_->Logic.Drop();
  }
  if (multi_day_) {
    multi_day_->Logic.Drop();
  }
}

void Program::OpenCalendarAnew() {
  DropReaders();
  veyra::OpenCalendarAnew(session_, month_, dialogs_);
  others_watch_.Watch(others_.Listen());
  if (!modRes::CurrentFacility(session_)) {
    // What is booked now would belong to no facility.
    LeaveDay();
  }
  FillAnew();
}

QWidget* Program::PrintingWindow() {
  if (viewer_ && viewer_->Window.isVisible()) {
    return &viewer_->Window;
  }
  return &month_window_;
}

void Program::ShowMonthWindow() {
  BringToFront(month_window_);
}

void Program::HideMonthWindow() {
  month_window_.hide();
}

void Program::OpenDayWindow(const std::string& caption) {
  DropDayWindow();
  auto day = std::make_unique<DayForm>(guard_, [this](QtDayWindow& window) {
    return frmDay(session_, window, ListingsOfDay(), MultiDay().Logic.Plan(), *this, dialogs_);
  });
  if (!day->Logic.Form_Load()) {
    day->Logic.Form_Unload();
    return;
  }
  QObject::connect(&day->Window, &QtDayWindow::Unloaded, &day->Window,
                   [this] { DayWindowClosed(); });
  foot_.Add(day->Window);
  day->Window.setWindowTitle(ToQString(caption));
  if (session_.DayOpener == Opener::DayViewer) {
    KeepAbove(day->Window, month_window_);
  }
  BringToFront(day->Window);
  day_ = std::move(day);
}

/// Its logic may be at work when the window closes, so it goes when that has returned.
void Program::DropDayWindow() {
  if (day_) {
    day_.release()->deleteLater();
  }
}

void Program::DayWindowClosed() {
  DropDayWindow();
  if (board_) {
    guard_.Run([this] { board_->Logic.DayClosed(); });
  }
}

modRes::Listings Program::ListingsOfDay() {
  if (viewer_) {
    return {month_window_, viewer_->Window, clock_};
  }
  return {month_window_, no_list_, clock_};
}

/// Made with the first day window and kept for the run.
Program::MultiDayForm& Program::MultiDay() {
  if (!multi_day_) {
    multi_day_ = std::make_unique<MultiDayForm>(
        guard_,
        [this](QtMultiDayWindow& window) {
          return frmMultiDay(session_, window, *this, dialogs_, clock_);
        },
        [this]() -> QWidget* { return day_ ? &day_->Window : nullptr; });
    multi_day_->Logic.Form_Load();
  }
  return *multi_day_;
}

void Program::EnableMonthWindow(bool enabled) {
  month_gate_.SetOpen(enabled);
}

void Program::RepaintMonthWindow() {
  month_.Repaint();
}

bool Program::PrepareToOpenDay() {
  return month_.PrepareToOpenDay();
}

void Program::EnableDayWindow(bool enabled) {
  if (day_) {
    day_->Gate.SetOpen(enabled);
  }
}

void Program::SelectSingleBooking() {
  if (day_) {
    day_->Logic.SelectSingleBooking();
  }
}

void Program::OpenDayViewer(const std::string& caption) {
  auto viewer = std::make_unique<ViewerForm>(guard_, [this](QtDayViewerWindow& window) {
    return frmDayViewer(session_, window, *this, dialogs_, clock_);
  });
  foot_.Add(viewer->Window);
  viewer->Logic.Form_Load();
  viewer->Window.SetCaption(caption, month_.FacilityShown(), session_.DayDate);
  viewer_ = std::move(viewer);
  ShowOver(viewer_->Window, month_window_);
}

void Program::ShowDayViewer() {
  BringToFront(viewer_->Window);
}

void Program::HideDayViewer() {
  viewer_->Window.hide();
}

void Program::ShowMultiDayWindow(const std::string& from_text, modRes::SlotRange chosen) {
  MultiDay().Logic.Open(from_text, chosen);
}

void Program::OpenSettings() {
  auto settings = std::make_unique<SettingsForm>(guard_, [this](QtSettingsWindow& window) {
    return frmSettings(session_, mixed_color_, window, *this);
  });
  settings->Logic.Form_Load();
  settings_ = std::move(settings);
  ShowOver(settings_->Window, month_window_);
}

void Program::OpenAbout() {
  about_ = std::make_unique<AboutForm>(guard_, [this](QtAboutWindow& window) {
    return frmAbout(window, *this, browser_, dialogs_);
  });
  ShowOver(about_->Window, month_window_);
}

void Program::OpenFind() {
  auto find = std::make_unique<FindForm>(
      guard_, [this](QtFindWindow& window) { return frmFind(session_, window, *this, clock_); });
  find->Logic.Form_Load();
  find_ = std::move(find);
  ShowOver(find_->Window, month_window_);
}

void Program::OpenFreeTimes() {
  auto free = std::make_unique<FreeForm>(guard_, [this](QtFreeWindow& window) {
    return frmFree(session_, free_fields_, window, *this, clock_);
  });
  free->Logic.Form_Load();
  free_ = std::move(free);
  ShowOver(free_->Window, month_window_);
}

void Program::OpenDayBoard(Date day) {
  auto board = std::make_unique<BoardForm>(
      guard_, [this](QtBoardWindow& window) { return frmBoard(session_, window, *this, clock_); },
      month_window_);
  board->Logic.Form_Load(day);
  board_ = std::move(board);
  board_->Window.ShowWindow();
}

bool Program::OpenDayOf(const std::string& facility, Date day) {
  month_.OpenDay(facility, day);
  return day_ != nullptr;
}

void Program::ChooseRows(modRes::SlotRange rows) {
  if (day_) {
    day_->Logic.ChooseRows(rows);
  }
}

void Program::ShowHelp(int topic) {
  if (!help_) {
    help_ = std::make_unique<QtHelpViewer>(
        HelpFileIn(program_folder_), program_folder_ / QtHelpViewer::kReaderName,
        [this](const QUrl& link) { browser_.Open(ToUtf8(link.toString())); });
  }
  help_->ShowTopic(topic);
}

void Program::Undo() {
  undo_.Undo();
}

void Program::PrintDay(Date day) {
  sheets_.PrintDay(day);
}

void Program::PrintWeek(Date day) {
  sheets_.PrintWeek(day);
}

void Program::EndProgram() {
  QCoreApplication::exit(0);
}

}  // namespace veyra
