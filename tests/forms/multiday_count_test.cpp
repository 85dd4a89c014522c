#include <memory>

#include "data/errors.h"
#include "forms/multiday/frmMultiDay.h"
#include "tests/failing_store.h"
#include "tests/forms/day_fixture.h"
#include "tests/forms/fake_multiday_view.h"

namespace veyra {
namespace {

/// Counts the taken dates among the Sundays of April 2014, over a real calendar.
class MultiDayCountTest : public DayFixture {
 protected:
  void Open(modRes::SlotRange chosen) {
    if (!session_) {
      OpenDay();
    }
    window_ = std::make_unique<frmMultiDay>(*session_, plan_view_, windows_, dialogs_, clock_);
    window_->Text1_Change(1, "4/27/2014");
    window_->Days_Click(1, true);
    window_->Open("4/6/2014", chosen);
  }

  void WorkOn() {
    while (plan_view_.Works) {
      window_->Work();
    }
  }

  std::string Line() const { return plan_view_.Line.Text.English(); }

  FakeMultiDayView plan_view_;
  std::unique_ptr<frmMultiDay> window_;
};

TEST_F(MultiDayCountTest, DatesThatAreTakenAtTheChosenTimeAreCounted) {
  folder_.AddBooking(1, "2014-04-06", 20, 25, "Swim");
  folder_.AddBooking(1, "2014-04-13", 22, 25, "Beside it");
  folder_.AddBooking(1, "2014-04-14", 20, 20, "A Monday");
  folder_.AddBooking(7, "2014-04-20", 10, 19, "Elsewhere");
  folder_.AddBooking(1, "2014-05-04", 20, 20, "Later");
  Open({19, 21});
  WorkOn();
  EXPECT_EQ("4 dates, 2 of them taken", Line());
  EXPECT_EQ("Counted for 9:00A-10:30A, the time chosen last.", plan_view_.Line.Note);
  window_->Text1_Change(1, "4/13/2014");
  EXPECT_EQ("2 dates, 1 of them taken", Line());
  window_->Text1_Change(0, "4/7/2014");
  EXPECT_EQ("1 date, none of them taken", Line());
}

TEST_F(MultiDayCountTest, ThereAreAsManyAsTheCheckFinds) {
  folder_.AddBooking(1, "2014-04-06", 18, 19, "First");
  folder_.AddBooking(1, "2014-04-13", 21, 30, "Last");
  folder_.AddBooking(1, "2014-04-20", 20, 20, "Within");
  Open({19, 21});
  WorkOn();
  EXPECT_EQ("4 dates, 2 of them taken", Line());
  window_->Command1_Click();
  session_->SelFirstSlot = 19;
  session_->SelLastSlot = 21;
  modRes::CheckMultiDayConflicts(*session_, window_->Plan(), clock_, dialogs_);
  EXPECT_EQ(2, session_->MultiBookCount);
}

TEST_F(MultiDayCountTest, WhileItIsBeingCountedItSaysSo) {
  const std::vector<RowChange> rows(
      100, {RowChange::Kind::Add, "Reserv", {}, {{"RmID", std::int64_t{1}}}});
  folder_.Calendar()->ChangeAll(rows, {});
  OpenDay();
  MultiDayPlan plan{{"4/6/2014", "4/27/2014"}, {}};
  plan.Days[1] = true;
  modRes::TakenDays taken(session_->ResCon->Rows(), {19, 21});
  taken.WorkOn({});
  EXPECT_EQ("4 dates, counting those taken ...",
            DescribePlan(plan, clock_.Today(), session_->SlotLabel, &taken).Text);
}

TEST_F(MultiDayCountTest, ItStopsWhenTheWindowCloses) {
  Open({19, 21});
  plan_view_.KeepWorking(true);
  window_->Command1_Click();
  EXPECT_FALSE(plan_view_.Works);
  window_->Days_Click(2, true);
  EXPECT_EQ("7 dates", Line());
}

TEST_F(MultiDayCountTest, AFailureEndsTheCountAndNotTheWindow) {
  OpenDay();
  Faults faults;
  session_->ResCon =
      std::make_unique<Connection>(std::make_unique<FailingStore>(folder_.Calendar(), faults));
  faults.Fail(Statement::Select, 1, 1000);
  EXPECT_THROW(Open({19, 21}), DatabaseBusyError);
  EXPECT_TRUE(plan_view_.Visible);
  EXPECT_FALSE(plan_view_.Works);
  EXPECT_EQ("4 dates", Line());
}

TEST_F(MultiDayCountTest, TheRowsThatWereHighlightedLastAreThoseThatAreChosen) {
  OpenDay();
  day_->Book_Click(1);
  EXPECT_EQ(0, windows_.ChosenRows.First);
  day_->MSFlexGrid1_Stretch(30, 26);
  day_->Book_Click(1);
  EXPECT_EQ(26, windows_.ChosenRows.First);
  EXPECT_EQ(30, windows_.ChosenRows.Last);
}

}  // namespace
}  // namespace veyra
