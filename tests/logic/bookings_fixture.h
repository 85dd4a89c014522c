#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "data/errors.h"
#include "logic/bookings.h"
#include "logic/delete_bookings.h"
#include "logic/rename_bookings.h"
#include "tests/calendar_folder.h"
#include "tests/failing_store.h"
#include "tests/fake_clock.h"
#include "tests/fake_dialogs.h"
#include "tests/logic/fake_screens.h"

namespace veyra::modRes {

using Boxes = std::vector<std::string>;

/// A desk on 6 April 2014, a Sunday, at the facility Pool; beside it there is Hall.
class BookingsFixture : public testing::Test {
 protected:
  BookingsFixture() {
    pool_ = folder_.AddRoom("Pool", true);
    hall_ = folder_.AddRoom("Hall");
  }

  Session& Desk() {
    if (!session_) {
      session_ = folder_.OpenSession();
      session_->ResCon =
          std::make_unique<Connection>(std::make_unique<FailingStore>(folder_.Calendar(), faults_));
      session_->CurRmID = pool_;
      session_->CurMonth = 4;
      session_->CurYear = 2014;
      session_->DayDate = MakeDate(2014, 4, 6).value();
      session_->CurrentColors = {"0", "0", "0", "0", "0"};
    }
    return *session_;
  }

  /// The rows pressed and released.
  void Select(int pressed, int released) {
    const SlotRange range = RangeOfRows(pressed, released);
    Desk().AnchorRow = pressed;
    Desk().SelFirstSlot = range.First;
    Desk().SelLastSlot = Desk().SelEndRow = range.Last;
  }

  /// As the operator does before he books.
  void LookAtTheDay() {
    Desk()
        .ResCon
        ->Open("SELECT * FROM Reserv Where DateOfRes = #4/6/2014#", CursorType::StaticOptimistic)
        ->RecordCount();
  }

  void Book(const std::string& name, int first, int last) {
    Select(first, last);
    MakeBookings(Desk(), {name, false, {}}, {grid_, screens_}, clock_, dialogs_);
  }

  void BookSeveral(const std::string& name, int first, int last, const std::string& from,
                   const std::string& to, const std::vector<std::size_t>& weekdays) {
    MultiDayPlan plan{{from, to}, {}};
    for (const std::size_t weekday : weekdays) {
      plan.Days[weekday] = true;
    }
    Select(first, last);
    MakeBookings(Desk(), {name, true, plan}, {grid_, screens_}, clock_, dialogs_);
  }

  void Delete(int pressed, int released) {
    Select(pressed, released);
    DeleteBookings(Desk(), {grid_, screens_}, {screens_, screens_, clock_}, dialogs_);
  }

  std::string Rename(int pressed, int released, std::string name) {
    Select(pressed, released);
    RenameBookings(Desk(), name, {grid_, screens_}, {screens_, screens_, clock_}, dialogs_);
    return name;
  }

  /// Three dates of one group for the pool, and one of another facility under the same key.
  void AddGroup() {
    const Value key = 20140401120000.0;
    folder_.AddBooking(pool_, "2014-04-06", 19, 21, "Choir", key);
    folder_.AddBooking(pool_, "2014-04-13", 19, 21, "Choir", key);
    folder_.AddBooking(pool_, "2014-04-20", 19, 21, "Choir", key);
    folder_.AddBooking(hall_, "2014-04-06", 19, 21, "Choir", key);
  }

  /// The three dates, of which all are meant when it is asked.
  void MeanTheGroup() {
    AddGroup();
    Desk();
    dialogs_.AnswerNext(Answer::Yes);
  }

  /// Another program gives the first booking that the query finds another name.
  void RenameElsewhere(const std::string& query, const std::string& name) {
    Connection other(folder_.Calendar());
    const auto booking = other.Open(query, CursorType::StaticOptimistic);
    booking->SetField("Event", name);
    booking->Update();
  }

  /// As a statement fails of which the store cannot say whether it was carried out.
  static void ThrowUnknown() {
    throw OutcomeUnknownError({"/desk/Calendar.mdb", "The disk failed in the commit.", "Look."});
  }

  CalendarFolder folder_;
  Faults faults_;
  FakeClock clock_{2014, 4, 6};
  FakeDialogs dialogs_;
  FakeScreens screens_;
  DayGrid grid_;
  std::unique_ptr<Session> session_;
  std::int64_t pool_ = 0;
  std::int64_t hall_ = 0;
};

}  // namespace veyra::modRes
