#pragma once

#include "data/date.h"
#include "forms/print/sheet_printer.h"
#include "logic/clock.h"
#include "logic/dialogs.h"
#include "logic/session.h"

namespace veyra {

/// Prints sheets for the door of the facility that is selected. Each asks for the printer, and says
/// that the sheet is printed or why it is not; without a facility it only says so. Throws
/// DatabaseError, ValueError, and PrinterError when a confirmed sheet cannot be printed.
class DoorSheets {
 public:
  /// All of them must outlive it.
  DoorSheets(Session& session, SheetPrinter& printer, Dialogs& dialogs, const Clock& clock);

  void PrintDay(Date day);
  void PrintWeek(Date day);  ///< The week that holds the day, from Sunday to Saturday.

 private:
  bool HasFacility();
  void Print(const Sheet& sheet);

  Session& session_;
  SheetPrinter& printer_;
  Dialogs& dialogs_;
  const Clock& clock_;
};

}  // namespace veyra
