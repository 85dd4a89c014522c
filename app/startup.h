#pragma once

#include <filesystem>
#include <functional>

#include "forms/month/frmCalendar.h"
#include "logic/clock.h"
#include "logic/dialogs.h"
#include "logic/session.h"

namespace veyra {

/// Brings the windows of another program of this kind to the front that has the data folder open on
/// this screen; returns whether there is one.
using ShowRunning = std::function<bool(const std::filesystem::path& data_folder)>;

/// The loading of the month window, which is the start of the program: from the slot labels by way
/// of path.txt and the two databases to the first month on the screen. `app_folder` is the folder
/// of the program file, without a separator at its end. Returns false, with no database opened,
/// when the windows of a running program have come to the front instead, or the operator does not
/// want to open what is open on another computer; throws Error when a database or a colour cannot
/// be used. In both cases the program must end.
bool StartUp(Session& session, frmCalendar& calendar, Dialogs& dialogs,
             const std::filesystem::path& app_folder, const ShowRunning& show_running = {});

/// Opens the calendar anew, after the file that bears its name was replaced: brings its tables up
/// to date, and fills and selects the facilities. The month is left to be drawn by the caller.
/// Throws Error when the file cannot be used; then it may be tried again.
void OpenCalendarAnew(Session& session, frmCalendar& calendar, Dialogs& dialogs);

}  // namespace veyra
