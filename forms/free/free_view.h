#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "data/one_based.h"
#include "data/phrase.h"
#include "forms/piecework.h"
#include "logic/calendar_rows.h"
#include "logic/slots.h"

namespace veyra {

/// What the fields of the window of free times hold.
struct FreeFields {
  static OneBased<bool, 7> EveryWeekday() {
    OneBased<bool, 7> days;
    std::fill(days.begin(), days.end(), true);
    return days;
  }

  int HalfHours = 2;
  OneBased<bool, 7> Days = EveryWeekday();  ///< 1 for Sunday to 7.
  modRes::SlotRange Hours = {17, 44};       ///< From 8:00 AM to 10:00 PM.
  std::array<std::string, 2> Text1;         ///< The first and the last date, as typed.
  std::set<std::int64_t> LeftOut = {};      ///< The facilities that are not ticked, by ID.
};

/// What the window of free times is to show below its fields.
struct FreePicture {
  std::vector<Phrase> Lines;
  Phrase State;  ///< What is to be said of them, or why there can be none.
};

/// What the logic of the window of free times tells its screen. The screen reports gestures to
/// frmFree.
class FreeView : public PieceworkView {
 public:
  /// Shows the fields, and these facilities to be ticked.
  virtual void ShowFields(const FreeFields& fields, const std::vector<Facility>& facilities) = 0;

  /// Shows these lines. The chosen one stays chosen where it is among them still.
  virtual void ShowFree(const FreePicture& picture) = 0;

  /// Takes the window off the screen, which is then told to frmFree::Form_Unload.
  virtual void CloseWindow() = 0;
};

}  // namespace veyra
