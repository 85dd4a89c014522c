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

}  // namespace veyra
