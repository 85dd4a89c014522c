#include "app/program.h"

#include <QCoreApplication>
#include <QObject>

#include "app/startup.h"
#include "data/errors.h"
#include "forms/day/frmDay.h"
#include "forms/day/qt_day_window.h"
#include "forms/qt_text.h"

namespace veyra {

/// A day window and its logic, which come and go together.
class OpenDay : public QObject {
 public:
  OpenDay(Session& session, const modRes::Listings& listings, const MultiDayPlan& plan,
          Windows& windows, Dialogs& dialogs, const HandlerGuard& guard)
      : Window(guard), Logic(session, Window, listings, plan, windows, dialogs) {
    Window.SetHandler(&Logic);
  }
  ~OpenDay() override { Window.SetHandler(nullptr); }

  QtDayWindow Window;
  frmDay Logic;
};

Program::Program(const Clock& clock, Dialogs& dialogs)
    : dialogs_(dialogs),
      clock_(clock),
      guard_(dialogs),
      month_window_(guard_),
      month_(session_, month_window_, *this, dialogs, clock) {
  month_window_.SetHandler(&month_);
}

Program::~Program() = default;

bool Program::Start(const std::string& app_folder) {
  try {
    StartUp(session_, month_, dialogs_, app_folder);
  } catch (const std::exception& failure) {
    dialogs_.MsgBox(StandardReport(failure));
    return false;
  }
  ShowMonthWindow();
  return true;
}

void Program::ShowMonthWindow() {
  month_window_.show();
  month_window_.raise();
  month_window_.activateWindow();
}

void Program::HideMonthWindow() {
  month_window_.hide();
}

void Program::OpenDayWindow(const std::string& caption) {
  DropDayWindow();
  const modRes::Listings listings{month_window_, viewer_list_, clock_};
  auto day = std::make_unique<OpenDay>(session_, listings, plan_, *this, dialogs_, guard_);
  if (!day->Logic.Form_Load()) {
    day->Logic.Form_Unload();
    return;
  }
  QObject::connect(&day->Window, &QtDayWindow::Unloaded, &day->Window, [this] { DropDayWindow(); });
  day->Window.setWindowTitle(ToQString(caption));
  day->Window.show();
  day->Window.raise();
  day->Window.activateWindow();
  day_ = std::move(day);
}

/// Its logic may be at work when the window closes, so it goes when that has returned.
void Program::DropDayWindow() {
  if (day_) {
    day_.release()->deleteLater();
  }
}

void Program::EnableMonthWindow(bool enabled) {
  month_window_.setEnabled(enabled);
}

void Program::RepaintMonthWindow() {
  month_.Repaint();
}

bool Program::MayOpenDay() {
  return month_.MayOpenDay();
}

void Program::EnableDayWindow(bool enabled) {
  if (day_) {
    day_->Window.setEnabled(enabled);
  }
}

void Program::SelectSingleBooking() {
  if (day_) {
    day_->Logic.SelectSingleBooking();
  }
}

// The windows that are not there yet leave the one that opens them as it was.

void Program::OpenDayViewer(const std::string&) {
  EnableMonthWindow(true);
}

void Program::ShowDayViewer() {}

void Program::HideDayViewer() {}

void Program::ShowMultiDayWindow(const std::string&) {
  EnableDayWindow(true);
}

void Program::OpenSettings() {
  EnableMonthWindow(true);
}

void Program::OpenAbout() {
  EnableMonthWindow(true);
}

void Program::EndProgram() {
  QCoreApplication::exit(0);
}

}  // namespace veyra
