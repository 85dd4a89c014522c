#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "forms/month/frmCalendar.h"
#include "tests/calendar_folder.h"
#include "tests/fake_clock.h"
#include "tests/fake_dialogs.h"
#include "tests/forms/fake_month_view.h"
#include "tests/forms/fake_sheet_printer.h"
#include "tests/forms/fake_windows.h"

namespace veyra {

/// The month window's logic on 15 March 2014.
class MonthFixture : public testing::Test {
 protected:
  /// Starts on March 2014 with these facilities, the first of them active.
  void Start(const std::vector<std::string>& facilities = {"Pool"}) {
    for (const std::string& name : facilities) {
      folder_.AddRoom(name, name == facilities.front());
    }
    session_ = folder_.OpenSession();
    session_->CurrentColors = {"-2147483643", "12582912", "0", "255", "65535"};
    calendar_ =
        std::make_unique<frmCalendar>(*session_, view_, windows_, dialogs_, clock_, printer_);
    calendar_->LoadFacilityBox();
    calendar_->ApplyHeaderColors();
    calendar_->SelectActiveFacility();
    calendar_->ShowCurrentMonth();
  }

  void Type(const std::string& text) {
    view_.Combo1.Text = text;
    calendar_->Combo1_Change(text);
  }
  void TypeAndEnter(const std::string& text) {
    Type(text);
    calendar_->Combo1_KeyPress(13);
  }

  /// Takes a facility away behind the program's back.
  void Remove(const std::string& name) {
    Connection other(folder_.Calendar());
    const auto rooms = other.Open("SELECT * FROM Rooms", CursorType::StaticOptimistic);
    while (ToText(rooms->Field("Name")) != name) {
      rooms->MoveNext();
    }
    rooms->Delete();
  }

  /// Makes every query on the bookings fail until the table is back.
  void BreakCalendar() { session_->ResCon = std::make_unique<Connection>(EmptyStore()); }

  std::unique_ptr<Store> EmptyStore() {
    return CreateStoreOfKind(TestedStoreKind(), folder_.File("Empty.mdb"));
  }

  CalendarFolder folder_;
  FakeClock clock_{2014, 3, 15};
  FakeDialogs dialogs_;
  FakeWindows windows_;
  FakeMonthView view_;
  FakeSheetPrinter printer_;
  std::unique_ptr<Session> session_;
  std::unique_ptr<frmCalendar> calendar_;
};

}  // namespace veyra
