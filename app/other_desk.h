#pragma once

#include <string>

#include "logic/dialogs.h"

namespace veyra {

/// Asks the operator whether to open a calendar that the note beside it says is open on another
/// computer, and returns whether to. Where there is no such note nobody is asked. `calendar` is the
/// calendar file as this program writes its name.
bool MayShareCalendar(const std::string& calendar, Dialogs& dialogs);

}  // namespace veyra
