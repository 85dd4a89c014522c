#pragma once

#include <gtest/gtest.h>

#include "app/startup.h"
#include "tests/calendar_folder.h"
#include "tests/fake_clock.h"
#include "tests/fake_dialogs.h"
#include "tests/forms/fake_month_view.h"
#include "tests/forms/fake_sheet_printer.h"
#include "tests/forms/fake_windows.h"

namespace veyra {

/// An application folder beside a data folder, and a month window not yet loaded.
class StartUpFixture : public testing::Test {
 protected:
  bool Start(const ShowRunning& show_running = {}) {
    return StartUp(session_, calendar_, dialogs_, app_.path().string(), show_running);
  }

  TempFolder app_;
  CalendarFolder data_;
  Session session_;
  FakeMonthView view_;
  FakeWindows windows_;
  FakeDialogs dialogs_;
  FakeClock clock_{2014, 3, 15};
  FakeSheetPrinter printer_;
  frmCalendar calendar_{session_, view_, windows_, dialogs_, clock_, printer_};
};

}  // namespace veyra
