#pragma once

#include <string>

#include "data/color_settings.h"
#include "forms/print/sheet.h"
#include "logic/listings.h"

namespace veyra {

/// The sheet of the month that is shown: its title, the facility's name, the weekdays and its days.
/// REQUIRES: a month that is shown, so with a title and days. Throws ValueError when a colour is
/// not a number.
Sheet MonthSheet(const modRes::MonthPicture& shown, const std::string& room,
                 const ColorSettings& colors);

}  // namespace veyra
