#pragma once

#include <cstddef>
#include <functional>

#include "forms/month/frmCalendar.h"
#include "forms/windows.h"
#include "logic/clock.h"
#include "logic/dialogs.h"

namespace veyra {

/// What the operator does in the month window beside its fixed controls: by a key, or by the menu
/// of the window's background. Every one may throw what the logic throws.
class DeskActions {
 public:
  /// So many facilities have a key.
  static constexpr std::size_t kFacilityKeys = 9;

  /// All of them must outlive it.
  DeskActions(frmCalendar& month, Windows& windows, Dialogs& dialogs, const Clock& clock);

  /// Turns to the month of today and chooses its cell.
  void ShowToday();

  /// Asks for a date, again and again while what is typed is none, and turns to it. A text without
  /// a year is of the present year.
  void GoToDate();

  /// Picks that facility of the box, counted from 1. Nothing happens when there are not so many.
  void PickFacility(std::size_t number);

  /// Opens the find window, the window of free times.
  void Find();
  void FindFreeTime();

  /// Opens the board of the chosen day.
  void ShowDayBoard();

  /// Takes back what the desk did last, when the operator agrees.
  void Undo();

  /// Prints the month, as the button does, and the week of the chosen day.
  void PrintMonth();
  void PrintWeek();

 private:
  void OpenOver(const std::function<void()>& open);

  frmCalendar& month_;
  Windows& windows_;
  Dialogs& dialogs_;
  const Clock& clock_;
};

}  // namespace veyra
