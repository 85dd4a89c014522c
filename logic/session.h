#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "data/color_settings.h"
#include "data/databases.h"
#include "data/date.h"
#include "logic/guest_names.h"
#include "logic/slots.h"

namespace veyra {

/// What opens the day window, and is to be refreshed after a change: DayViewer while that is
/// loaded.
enum class Opener { MonthWindow = 1, DayViewer = 2 };

/// The state that all windows share, one for a run. With its base it holds the folders, the two
/// connections and the state of the booking flow, under the names the design gives them.
struct Session : Databases {
  /// Of a calendar that several desks share: where this desk notes the facility that it has
  /// selected last (data/desk_note.h). Empty for a file, in which Rooms.Active says it.
  std::filesystem::path DeskNote;

  std::int64_t CurRmID = 0;  ///< Rooms.ID of the selected facility, 0 before any.
  int CurMonth = 0;          ///< Month shown in the month window, 1 to 12.
  int CurYear = 0;           ///< Year shown in the month window.
  bool IsLoading = false;    ///< True while start-up runs.

  Date DayDate{};        ///< The day last opened.
  int DayCellIndex = 0;  ///< The cell of the month grid it was opened from, 1 to 42.
  Opener DayOpener = Opener::MonthWindow;

  bool PrintLayoutOn = false;  ///< The month window is laid out as printed.

  modRes::SlotLabelTable SlotLabel;  ///< Short slot labels, filled once at start-up.

  modRes::TimeSlot SelFirstSlot = 0;  ///< First slot of the day grid's selection.
  modRes::TimeSlot SelLastSlot = 0;   ///< Last slot of the day grid's selection, included.
  int AnchorRow = 0;                  ///< Row of the day grid on which the mouse was pressed.
  int SelEndRow = 0;                  ///< Last row of the selection.
  std::string AnchorTimeText;         ///< Long label of the day grid's current row when pressed.

  std::int64_t PlannedDayCount = 0;  ///< Dates in the multiple-day plan.
  std::int64_t MultiBookCount = 0;   ///< Of those, the ones free of clashes.

  GuestNames Guests;  ///< As they were read last.

  std::vector<std::string> UsedNames;  ///< For which was booked in this run, the last one first.

  ColorSettings CurrentColors;  ///< The colours in use.
  ColorSettings StoredColors;   ///< The colours as read at start-up.
};

}  // namespace veyra
