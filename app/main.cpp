#include <QApplication>
#include <QLocale>
#include <clocale>
#include <cstdlib>

#include "app/end_requests.h"
#include "app/first_start.h"
#include "app/program.h"
#include "app/running_program.h"
#include "app/translation.h"
#include "data/application_folder.h"
#include "data/errors.h"
#include "forms/handler_guard.h"
#include "forms/widgets/qt_dialogs.h"
#include "forms/widgets/qt_gesture_guard.h"
#include "forms/widgets/qt_program_icon.h"
#include "forms/widgets/qt_style.h"
#include "forms/widgets/qt_text.h"
#include "logic/clock.h"

namespace {

/// Runs the program from its start to its end; returns its exit status.
int Run(veyra::Program& program, veyra::Dialogs& dialogs) {
  const std::string program_folder = veyra::ToUtf8(QApplication::applicationDirPath());
  const std::string app_folder = veyra::ApplicationFolder(program_folder, veyra::UserDataHome());
  bool is_new = false;
  try {
    is_new = veyra::MakeApplicationFolder(app_folder, program_folder);
  } catch (const veyra::Error& failure) {
    dialogs.MsgBox(veyra::StandardReport(failure));
    return EXIT_FAILURE;
  }
  const veyra::EndRequests ending(program);
  veyra::RunningProgram running;
  bool is_second = false;
  const auto show_running = [&](const std::filesystem::path& data_folder) {
    return is_second = !running.Claim(data_folder);
  };
  if (!program.Start(app_folder, program_folder, show_running)) {
    return is_second ? EXIT_SUCCESS : EXIT_FAILURE;
  }
  if (is_new) {
    dialogs.MsgBox({.Text = veyra::WelcomeText(app_folder), .Sign = veyra::Icon::Information});
  }
  return ending.WereMade() ? EXIT_SUCCESS : QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setStyle(new veyra::QtStyle);
  QApplication::setWindowIcon(veyra::ProgramIcon());
  QApplication::setDesktopFileName(QStringLiteral("veyra-calendar"));
  QApplication::setQuitOnLastWindowClosed(false);
  const auto translation = veyra::InstallTranslation(QLocale::system().uiLanguages());
  const veyra::QtGestureGuard gesture_guard;
  // Numbers are written with a point, whatever the country.
  std::setlocale(LC_NUMERIC, "C");

  const veyra::SystemClock clock;
  veyra::QtDialogs dialogs;
  veyra::Program program(clock, dialogs);
  return Run(program, dialogs);
}
