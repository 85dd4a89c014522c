#include "forms/month/desk_actions.h"

#include <string>
#include <vector>

#include "data/date.h"
#include "data/shown_name.h"
#include "logic/date_parser.h"

namespace veyra {

DeskActions::DeskActions(frmCalendar& month, Windows& windows, Dialogs& dialogs, const Clock& clock)
    : month_(month), windows_(windows), dialogs_(dialogs), clock_(clock) {}

void DeskActions::Find() {
  OpenOver([this] { windows_.OpenFind(); });
}

void DeskActions::FindFreeTime() {
  OpenOver([this] { windows_.OpenFreeTimes(); });
}

void DeskActions::ShowDayBoard() {
  OpenOver([this] { windows_.OpenDayBoard(month_.ChosenDate()); });
}

/// The month window waits for the one that is opened, unless that fails to open.
void DeskActions::OpenOver(const std::function<void()>& open) {
  windows_.EnableMonthWindow(false);
  try {
    open();
  } catch (...) {
    windows_.EnableMonthWindow(true);
    throw;
  }
}

void DeskActions::Undo() {
  windows_.Undo();
}

void DeskActions::PrintMonth() {
  month_.Command3_Click();
}

void DeskActions::PrintWeek() {
  windows_.PrintWeek(month_.ChosenDate());
}

void DeskActions::ShowToday() {
  month_.ShowDay(clock_.Today());
}

void DeskActions::GoToDate() {
  const Date today = clock_.Today();
  std::string text = DateText(today);
  while (true) {
    text = dialogs_.InputBox(Phrase::Tr("Date, for example 3/15/2014 or March 15"),
                             Phrase::Tr("Go to a Date"), text);
    if (text.empty()) {
      return;
    }
    if (const auto day = ParseDate(text, today)) {
      month_.ShowDay(*day);
      return;
    }
    dialogs_.MsgBox({.Text = Phrase::Tr("\"%1\" is not a date.", ShownName(text)) + kLineBreak +
                             Phrase::Tr("Enter it again, for example 3/15/2014."),
                     .Sign = Icon::Exclamation});
  }
}

void DeskActions::PickFacility(std::size_t number) {
  const std::vector<std::string>& names = month_.FacilityBox().Items;
  if (number >= 1 && number <= names.size()) {
    // By value: the picking may fill the box anew.
    month_.PickFacility(std::string(names[number - 1]));
  }
}

}  // namespace veyra
