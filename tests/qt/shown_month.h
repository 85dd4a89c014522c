#pragma once

#include <QApplication>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "forms/handler_guard.h"
#include "forms/month/desk_actions.h"
#include "forms/month/frmCalendar.h"
#include "forms/month/qt_month_window.h"
#include "tests/calendar_folder.h"
#include "tests/fake_clock.h"
#include "tests/fake_dialogs.h"
#include "tests/forms/fake_windows.h"

namespace veyra {

/// The month window on the screen, March 2014 with the 5th as today.
class ShownMonth {
 public:
  /// `make_printer` is given the window and returns a SheetPrinter, which is kept.
  template <typename MakePrinter>
  explicit ShownMonth(MakePrinter make_printer) : printer_(make_printer(Window)) {
    folder_.AddRoom("Office of Fire", true);
    session_ = folder_.OpenSession();
    session_->CurrentColors = {"16777215", "12582912", "0", "255", "13434879"};
    logic_.emplace(*session_, Window, windows_, Dialogs, clock_, *printer_);
    desk_.emplace(*logic_, windows_, Dialogs, clock_);
    Window.SetHandler(&*logic_, &*desk_);
    logic_->LoadFacilityBox();
    logic_->SelectActiveFacility();
  }

  /// Lists so many bookings on the day: on the 5th "12:30A- 1:00A 05-1 ..." and so on.
  void Book(int day, int bookings, const std::string& name = "a guest with a long name") {
    const std::string day_text = (day < 10 ? "0" : "") + std::to_string(day);
    for (int number = 1; number <= bookings; ++number) {
      const modRes::SlotRange half_hour{2 * number, 2 * number};
      lines_[day].push_back(modRes::RangeLabel(session_->SlotLabel, half_hour) + " " + day_text +
                            "-" + std::to_string(number) + " " + name);
    }
  }

  void SetColors(const ColorSettings& colors) { session_->CurrentColors = colors; }

  void Show(int width = 1120, int height = 680) {
    logic_->ApplyHeaderColors();
    logic_->ShowCurrentMonth();
    for (const auto& [day, lines] : lines_) {
      Window.ShowDayCell(day + 6, lines);
    }
    Window.resize(width, height);
    Window.show();
    QApplication::processEvents();
  }

  FakeDialogs Dialogs;
  HandlerGuard Guard{Dialogs};
  QtMonthWindow Window{Guard};

  SheetPrinter& Printer() { return *printer_; }

 private:
  std::unique_ptr<SheetPrinter> printer_;
  CalendarFolder folder_;
  std::unique_ptr<Session> session_;
  FakeWindows windows_;
  FakeClock clock_{2014, 3, 5};
  std::map<int, modRes::DayLines> lines_;
  std::optional<frmCalendar> logic_;
  std::optional<DeskActions> desk_;
};

}  // namespace veyra
