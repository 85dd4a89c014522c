#include <QApplication>
#include <clocale>
#include <cstdlib>

#include "app/end_requests.h"
#include "app/program.h"
#include "forms/widgets/qt_dialogs.h"
#include "forms/widgets/qt_gesture_guard.h"
#include "forms/widgets/qt_program_icon.h"
#include "forms/widgets/qt_style.h"
#include "forms/widgets/qt_text.h"
#include "logic/clock.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setStyle(new veyra::QtStyle);
  QApplication::setWindowIcon(veyra::ProgramIcon());
  QApplication::setDesktopFileName(QStringLiteral("veyra-calendar"));
  QApplication::setQuitOnLastWindowClosed(false);
  const veyra::QtGestureGuard gesture_guard;
  // Numbers are written with a point, whatever the country.
  std::setlocale(LC_NUMERIC, "C");

  const veyra::SystemClock clock;
  veyra::QtDialogs dialogs;
  veyra::Program program(clock, dialogs);
  const veyra::EndRequests ending(program);
  if (!program.Start(veyra::ToUtf8(QApplication::applicationDirPath()))) {
    return EXIT_FAILURE;
  }
  if (ending.WereMade()) {
    return EXIT_SUCCESS;
  }
  return QApplication::exec();
}
