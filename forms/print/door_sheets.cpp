#include "forms/print/door_sheets.h"

#include <optional>
#include <string>

#include "forms/print/day_sheets.h"
#include "forms/print/print_messages.h"
#include "logic/facilities.h"

namespace veyra {

DoorSheets::DoorSheets(Session& session, SheetPrinter& printer, Dialogs& dialogs,
                       const Clock& clock)
    : session_(session), printer_(printer), dialogs_(dialogs), clock_(clock) {}

void DoorSheets::PrintDay(Date day) {
  if (HasFacility()) {
    Print(DaySheet(session_, day, clock_.Today()));
  }
}

void DoorSheets::PrintWeek(Date day) {
  if (HasFacility()) {
    Print(WeekSheet(session_, day, clock_.Today()));
  }
}

bool DoorSheets::HasFacility() {
  if (modRes::CurrentFacility(session_)) {
    return true;
  }
  dialogs_.MsgBox({.Text = "There is no Facility Selected", .Sign = Icon::Critical});
  return false;
}

void DoorSheets::Print(const Sheet& sheet) {
  std::string chosen;
  try {
    chosen = printer_.AskForPrinter(sheet);
  } catch (const std::exception& failure) {
    dialogs_.MsgBox(PrintFailure(failure));
    return;
  }
  const std::optional<std::string> printer = PrinterNamed(printer_.PrinterNames(), chosen);
  if (!printer) {
    throw NoSuchPrinter(chosen, sheet);
  }
  printer_.UsePrinter(*printer);
  printer_.Print(sheet);
  dialogs_.MsgBox({.Text = Phrase::Tr("Print Complete."), .Sign = Icon::Information});
}

}  // namespace veyra
