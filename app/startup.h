#pragma once

#include <string>

#include "forms/month/frmCalendar.h"
#include "logic/clock.h"
#include "logic/dialogs.h"
#include "logic/session.h"

namespace veyra {

/// The loading of the month window, which is the start of the program: from the slot labels by way
/// of path.txt and the two databases to the first month on the screen. `app_folder` is the folder
/// of the program file, without a separator at its end. Throws Error when a database or a colour
/// cannot be used; the program must then end.
void StartUp(Session& session, frmCalendar& calendar, Dialogs& dialogs,
             const std::string& app_folder);

/// Opens the calendar anew, after the file that bears its name was replaced: brings its tables up
/// to date, and fills and selects the facilities. The month is left to be drawn by the caller.
/// Throws Error when the file cannot be used; then it may be tried again.
void OpenCalendarAnew(Session& session, frmCalendar& calendar, Dialogs& dialogs);

}  // namespace veyra
