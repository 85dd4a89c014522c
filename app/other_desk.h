#pragma once

#include <filesystem>

#include "logic/dialogs.h"

namespace veyra {

/// Asks the operator whether to open a calendar that the note beside it says is open on another
/// computer, and returns whether to. Where there is no such note nobody is asked.
bool MayShareCalendar(const std::filesystem::path& calendar, Dialogs& dialogs);

}  // namespace veyra
