#include "logic/multiday.h"

#include <gtest/gtest.h>

#include <vector>

#include "data/errors.h"
#include "tests/calendar_folder.h"
#include "tests/fake_clock.h"
#include "tests/fake_dialogs.h"

namespace veyra::modRes {
namespace {

constexpr int kMonday = 2;
constexpr int kSaturday = 7;

MultiDayPlan PlanOf(const std::string& from, const std::string& to,
                    const std::vector<int>& weekdays) {
  MultiDayPlan plan{{from, to}, {}};
  for (const int weekday : weekdays) {
    plan.Days[static_cast<std::size_t>(weekday)] = true;
  }
  return plan;
}

const std::vector<int> kEveryDay = {1, 2, 3, 4, 5, 6, 7};

class PlanTest : public testing::Test {
 protected:
  std::int64_t Count(const MultiDayPlan& plan) {
    return CountPlannedDates(RangeOfPlan(plan, clock_.Today()));
  }

  FakeClock clock_{2014, 3, 15};
};

TEST_F(PlanTest, OneTickedDayCountsOnce) {
  EXPECT_EQ(1, Count(PlanOf("3/17/2014", "3/17/2014", {kMonday})));
}

TEST_F(PlanTest, OneUntickedDayCountsNot) {
  EXPECT_EQ(0, Count(PlanOf("3/18/2014", "3/18/2014", {kMonday})));
}

TEST_F(PlanTest, FourteenDaysHoldTwoMondays) {
  EXPECT_EQ(2, Count(PlanOf("3/18/2014", "3/31/2014", {kMonday})));
}

TEST_F(PlanTest, BothEndsBelongToTheRange) {
  EXPECT_EQ(3, Count(PlanOf("3/17/2014", "3/31/2014", {kMonday})));
}

TEST_F(PlanTest, EveryDayOfMarchIs31) {
  EXPECT_EQ(31, Count(PlanOf("2014-03-01", "2014-03-31", kEveryDay)));
}

TEST_F(PlanTest, ARangeThatEndsBeforeItBeginsHasNoDate) {
  EXPECT_EQ(0, Count(PlanOf("3/31/2014", "3/1/2014", kEveryDay)));
}

TEST_F(PlanTest, AsManyAreCountedAsAreVisited) {
  for (int first = 10; first < 17; ++first) {
    for (int last = first - 2; last < 31; ++last) {
      const auto range = RangeOfPlan(PlanOf("3/" + std::to_string(first) + "/2014",
                                            "3/" + std::to_string(last) + "/2014", {1, 2, 6}),
                                     clock_.Today());
      EXPECT_EQ(std::ssize(PlannedDates(range)), CountPlannedDates(range)) << first << " " << last;
    }
  }
}

TEST_F(PlanTest, ATextThatIsNoDateIsAFailure) {
  EXPECT_THROW(Count(PlanOf("soon", "3/1/2014", kEveryDay)), ValueError);
}

TEST_F(PlanTest, WeekdaysHaveTheirEnglishNames) {
  EXPECT_EQ("Sunday", WeekdayName(MakeDate(2014, 3, 16).value()));
  EXPECT_EQ("Monday", WeekdayName(MakeDate(2014, 3, 17).value()));
  EXPECT_EQ("Tuesday", WeekdayName(MakeDate(2014, 3, 18).value()));
  EXPECT_EQ("Wednesday", WeekdayName(MakeDate(2014, 3, 19).value()));
  EXPECT_EQ("Thursday", WeekdayName(MakeDate(2014, 3, 20).value()));
  EXPECT_EQ("Friday", WeekdayName(MakeDate(2014, 3, 21).value()));
  EXPECT_EQ("Saturday", WeekdayName(MakeDate(2014, 3, 22).value()));
}

class ConflictsTest : public testing::Test {
 protected:
  ConflictsTest() {
    pool_ = folder_.AddRoom("Pool", true);
    hall_ = folder_.AddRoom("Hall");
  }

  /// Checks slots `first` to `last` on the dates of the plan, for the pool.
  void Check(const MultiDayPlan& plan, int first, int last) {
    session_ = folder_.OpenSession();
    session_->CurRmID = pool_;
    session_->SelFirstSlot = first;
    session_->SelLastSlot = last;
    session_->PlannedDayCount = CountPlannedDates(RangeOfPlan(plan, clock_.Today()));
    CheckMultiDayConflicts(*session_, plan, clock_, dialogs_);
  }

  std::int64_t Free() const { return session_->MultiBookCount; }

  CalendarFolder folder_;
  FakeClock clock_{2014, 3, 15};
  FakeDialogs dialogs_;
  std::unique_ptr<Session> session_;
  std::int64_t pool_ = 0;
  std::int64_t hall_ = 0;
  const MultiDayPlan mondays_ = PlanOf("3/3/2014", "5/5/2014", {kMonday});
};

TEST_F(ConflictsTest, TheClashQueryReadsAsDesigned) {
  Session session;
  session.SelFirstSlot = 18;
  session.SelLastSlot = 20;
  EXPECT_EQ(
      "SELECT * FROM Reserv Where DateOfRes = #3/17/2014# And ((18 >= TimeFrom AND 18 <= TimeTo) "
      "OR (20 >= TimeFrom AND 20 <= TimeTo));",
      ClashQuery(session, MakeDate(2014, 3, 17).value()));
}

TEST_F(ConflictsTest, WithoutConflictsNothingIsSaid) {
  Check(mondays_, 18, 20);
  EXPECT_TRUE(dialogs_.Boxes().empty());
  EXPECT_EQ(10, Free());
}

TEST_F(ConflictsTest, ConflictsAreListedWithTheirWeekdays) {
  folder_.AddBooking(pool_, "2014-03-17", 18, 18, "a");
  folder_.AddBooking(pool_, "2014-03-24", 20, 25, "b");
  Check(mondays_, 18, 20);
  EXPECT_EQ(
      "[OK Exclamation] There are 2 Conflicts.\r\nMonday - 3/17/2014\r\nMonday - 3/24/2014\r\n"
      "All that will be set are the remaining 8 Bookings without Conflicts.",
      dialogs_.OnlyBox());
  EXPECT_EQ(8, Free());
}

TEST_F(ConflictsTest, WhenEveryDateClashesNoneCanBeMade) {
  folder_.AddBooking(pool_, "2014-03-17", 18, 18, "a");
  Check(PlanOf("3/17/2014", "3/17/2014", {kMonday}), 18, 20);
  EXPECT_EQ("[OK Exclamation] Due to other Booking Conflicts, none of these Bookings can be made.",
            dialogs_.OnlyBox());
  EXPECT_EQ(0, Free());
}

TEST_F(ConflictsTest, TwoBookingsOnOneDateAreOneConflict) {
  folder_.AddBooking(pool_, "2014-03-17", 18, 18, "a");
  folder_.AddBooking(pool_, "2014-03-17", 20, 20, "b");
  Check(mondays_, 18, 20);
  EXPECT_EQ(
      "[OK Exclamation] There are 1 Conflicts.\r\nMonday - 3/17/2014\r\n"
      "All that will be set are the remaining 9 Bookings without Conflicts.",
      dialogs_.OnlyBox());
}

TEST_F(ConflictsTest, ABookingOfAnotherFacilityIsAConflict) {
  folder_.AddBooking(hall_, "2014-03-17", 18, 18, "a");
  Check(mondays_, 18, 20);
  EXPECT_EQ(9, Free());
}

TEST_F(ConflictsTest, AnEnclosedBookingIsNotFound) {
  folder_.AddBooking(pool_, "2014-03-17", 10, 12, "a");
  Check(mondays_, 8, 14);
  EXPECT_EQ(10, Free());
}

TEST_F(ConflictsTest, ABookingThatEndsInTheFirstSlotIsAConflict) {
  folder_.AddBooking(pool_, "2014-03-17", 16, 18, "a");
  Check(mondays_, 18, 20);
  EXPECT_EQ(9, Free());
}

TEST_F(ConflictsTest, ABookingThatEndsBeforeTheFirstSlotIsNone) {
  folder_.AddBooking(pool_, "2014-03-17", 16, 17, "a");
  Check(mondays_, 18, 20);
  EXPECT_EQ(10, Free());
}

TEST_F(ConflictsTest, ABookingOnAnUntickedWeekdayIsNone) {
  folder_.AddBooking(pool_, "2014-03-18", 18, 20, "a");
  Check(mondays_, 18, 20);
  EXPECT_EQ(10, Free());
}

TEST_F(ConflictsTest, AReversedRangeChecksNothing) {
  folder_.AddBooking(pool_, "2014-03-17", 18, 20, "a");
  Check(PlanOf("3/31/2014", "3/1/2014", kEveryDay), 18, 20);
  EXPECT_TRUE(dialogs_.Boxes().empty());
  EXPECT_EQ(0, Free());
}

TEST_F(ConflictsTest, ACancelledCheckLeavesNothingToBook) {
  folder_.AddBooking(pool_, "0100-01-04", 18, 20, "a");
  dialogs_.EndEarlyAfter(300);
  Check(PlanOf("1/1/100", "12/31/9999", {kSaturday}), 18, 20);
  EXPECT_TRUE(dialogs_.Boxes().empty());
  EXPECT_EQ(0, Free());
}

}  // namespace
}  // namespace veyra::modRes
