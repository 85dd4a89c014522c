#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "forms/day/frmDay.h"
#include "logic/date_parser.h"
#include "tests/calendar_folder.h"
#include "tests/fake_clock.h"
#include "tests/fake_dialogs.h"
#include "tests/forms/fake_day_view.h"
#include "tests/forms/fake_windows.h"
#include "tests/logic/fake_screens.h"

namespace veyra {

using Boxes = std::vector<std::string>;

/// The day window of 6 April 2014, five days ahead, for the one facility Pool; one guest, Ann.
class DayFixture : public testing::Test {
 protected:
  DayFixture() {
    folder_.AddRoom("Pool", true);
    folder_.AddGuest(std::string("Ann"));
  }

  void OpenDay(const std::string& day = "4/6/2014") {
    if (!session_) {
      session_ = folder_.OpenSession();
    }
    session_->CurRmID = 1;
    session_->CurMonth = 4;
    session_->CurYear = 2014;
    session_->CurrentColors = {"0", "0", "0", "0", "0"};
    session_->DayDate = ParseDate(day, clock_.Today()).value();
    session_->DayCellIndex = 8;
    day_ = std::make_unique<frmDay>(*session_, view_, modRes::Listings{screens_, screens_, clock_},
                                    plan_, windows_, dialogs_);
    day_->Form_Load();
  }

  void Drag(int pressed, int released) {
    day_->MSFlexGrid1_MouseDown(pressed, 1);
    day_->MSFlexGrid1_Click(released, 1);
  }
  void Click(int row) { Drag(row, row); }

  static bool IsLimited() { return TestedStoreKind() == StoreKind::Access; }
  void AnswerNext(Answer answer) { dialogs_.AnswerNext(answer); }
  std::string Question() const { return dialogs_.Boxes().empty() ? "" : dialogs_.Boxes().front(); }
  std::string Bookings() { return folder_.Bookings(); }
  std::string Grid() const { return Rendered(view_.MSFlexGrid1); }

  /// As if the multiple-day window had been closed with this plan.
  void Plan(const std::string& from, const std::string& to,
            const std::vector<std::size_t>& weekdays) {
    plan_ = {{from, to}, {}};
    for (const std::size_t weekday : weekdays) {
      plan_.Days[weekday] = true;
    }
    session_->PlannedDayCount =
        modRes::CountPlannedDates(modRes::RangeOfPlan(plan_, clock_.Today()));
    day_->Book_Click(1);
  }

  CalendarFolder folder_;
  FakeClock clock_{2014, 4, 1};
  FakeDialogs dialogs_;
  FakeWindows windows_;
  FakeScreens screens_;
  FakeDayView view_;
  MultiDayPlan plan_;
  std::unique_ptr<Session> session_;
  std::unique_ptr<frmDay> day_;
};

}  // namespace veyra
