#include "forms/free/frmFree.h"

#include "data/errors.h"
#include "forms/month/desk_actions.h"
#include "tests/failing_store.h"
#include "tests/forms/month_fixture.h"

namespace veyra {
namespace {

class FakeFreeView : public FreeView {
 public:
  FreeFields Fields;
  std::vector<Facility> Facilities;
  FreePicture Picture;
  bool Works = false;
  int Closings = 0;

  void ShowFields(const FreeFields& fields, const std::vector<Facility>& facilities) override {
    Fields = fields;
    Facilities = facilities;
  }
  void ShowFree(const FreePicture& picture) override { Picture = picture; }
  void KeepWorking(bool working) override { Works = working; }
  void CloseWindow() override { ++Closings; }
};

/// On 15 March 2014, a Saturday.
class FrmFreeTest : public MonthFixture {
 protected:
  void Open(const std::vector<std::string>& facilities = {"Pool", "Hall"}) {
    Start(facilities);
    free_ = std::make_unique<frmFree>(*session_, fields_, free_view_, windows_, clock_);
    free_->Form_Load();
    Finish();
  }

  /// Two hours on that Saturday between 9:00 AM and 3:00 PM.
  void WishTwoHours() {
    FreeFields fields = free_view_.Fields;
    fields.HalfHours = 4;
    fields.Hours = {19, 30};
    fields.Text1 = {"3/15/2014", "3/15/2014"};
    Change(fields);
  }

  void Change(const FreeFields& fields) {
    free_->Fields_Change(fields);
    Finish();
  }

  void Finish() {
    while (free_view_.Works) {
      free_->Work();
    }
  }

  std::string State() const { return free_view_.Picture.State.English(); }

  FreeFields fields_;
  FakeFreeView free_view_;
  std::unique_ptr<frmFree> free_;
};

TEST_F(FrmFreeTest, FourWeeksFromTodayOfAllFacilitiesAreLookedAtAtFirst) {
  Open({"Pool"});
  EXPECT_EQ("3/15/2014", free_view_.Fields.Text1[0]);
  EXPECT_EQ("4/11/2014", free_view_.Fields.Text1[1]);
  EXPECT_EQ(28U, free_view_.Picture.Lines.size());
  EXPECT_EQ("Saturday, 3/15/2014,  8:00A-10:00P, Pool", free_view_.Picture.Lines.front());
  EXPECT_EQ("Free times: 28. Enter opens the day.", State());
}

TEST_F(FrmFreeTest, WhatIsFreeIsShownForWhatIsWished) {
  folder_.AddBooking(1, "2014-03-15", 22, 26, "Smith");
  Open();
  WishTwoHours();
  EXPECT_EQ((std::vector<Phrase>{"Saturday, 3/15/2014,  9:00A- 3:00P, Hall",
                                 "Saturday, 3/15/2014,  1:00P- 3:00P, Pool"}),
            free_view_.Picture.Lines);
}

TEST_F(FrmFreeTest, AFacilityThatIsNotTickedIsLeftOut) {
  Open();
  WishTwoHours();
  FreeFields fields = fields_;
  fields.LeftOut = {1};
  Change(fields);
  EXPECT_EQ((std::vector<Phrase>{"Saturday, 3/15/2014,  9:00A- 3:00P, Hall"}),
            free_view_.Picture.Lines);
}

TEST_F(FrmFreeTest, AChosenLineOpensItsDayAndChoosesTheLengthThatWasWished) {
  folder_.AddBooking(1, "2014-03-15", 19, 21, "Smith");
  Open();
  WishTwoHours();
  free_->List1_Chosen(1);
  EXPECT_EQ(1, free_view_.Closings);
  EXPECT_EQ("open 3/15/2014 of Pool\nchoose 22-25\n", windows_.Log);
  EXPECT_EQ("1 2014-03-15 19-21 Smith\n", folder_.Bookings());
}

TEST_F(FrmFreeTest, ItSaysWhenNothingIsFree) {
  folder_.AddBooking(1, "2014-03-15", 1, 48, "Smith");
  Open({"Pool"});
  WishTwoHours();
  EXPECT_EQ("Nothing is free then for 2 h.", State());
  EXPECT_FALSE(free_view_.Works);
}

TEST_F(FrmFreeTest, ItSaysWhenThereAreMore) {
  Open();
  FreeFields fields = fields_;
  fields.Text1[1] = "12/31/9999";
  Change(fields);
  EXPECT_EQ(frmFree::kMost, free_view_.Picture.Lines.size());
  EXPECT_EQ("The first 200; there are more. Enter opens the day.", State());
  fields.LeftOut = {2};
  fields.Text1[1] = DateText(AddDays(MakeDate(2014, 3, 15).value(), 199));
  Change(fields);
  EXPECT_EQ("Free times: 200. Enter opens the day.", State());
}

TEST_F(FrmFreeTest, WhatCannotBeLookedForIsSaid) {
  Open();
  const FreeFields fine = fields_;
  const auto state_with = [this, &fine](const std::function<void(FreeFields&)>& change) {
    FreeFields fields = fine;
    change(fields);
    Change(fields);
    EXPECT_TRUE(free_view_.Picture.Lines.empty()) << State();
    return State();
  };
  EXPECT_EQ("\"soon\" is not a date. Enter it as 3/15/2014.",
            state_with([](FreeFields& fields) { fields.Text1[0] = "soon"; }));
  EXPECT_EQ("\"\" is not a date. Enter it as 3/15/2014.",
            state_with([](FreeFields& fields) { fields.Text1[1] = ""; }));
  EXPECT_EQ("The dates end before they begin.",
            state_with([](FreeFields& fields) { fields.Text1[1] = "3/14/2014"; }));
  EXPECT_EQ("The hours end before they begin.", state_with([](FreeFields& fields) {
              fields.Hours = {20, 19};
            }));
  EXPECT_EQ("2 h 30 min do not fit between 10:00 PM and midnight.",
            state_with([](FreeFields& fields) {
              fields.Hours = {45, 48};
              fields.HalfHours = 5;
            }));
  EXPECT_EQ("Tick at least one weekday.", state_with([](FreeFields& fields) { fields.Days = {}; }));
  EXPECT_EQ("Tick at least one facility.", state_with([](FreeFields& fields) {
              fields.LeftOut = {1, 2};
            }));
  EXPECT_EQ("None of these dates falls on a ticked weekday.", state_with([](FreeFields& fields) {
              fields.Days = {};
              fields.Days[1] = true;
              fields.Text1[1] = fields.Text1[0];
            }));
  Change(fine);
  EXPECT_EQ("Free times: 56. Enter opens the day.", State());
}

TEST_F(FrmFreeTest, ALengthThatJustFitsIsFound) {
  Open({"Pool"});
  WishTwoHours();
  FreeFields fields = fields_;
  fields.HalfHours = 12;
  Change(fields);
  EXPECT_EQ(1U, free_view_.Picture.Lines.size());
}

TEST_F(FrmFreeTest, WithoutFacilitiesItSaysSo) {
  Open({});
  EXPECT_EQ("There is no facility yet.", State());
}

TEST_F(FrmFreeTest, WhatWasWishedIsThereWhenTheWindowIsOpenedAgain) {
  Open();
  WishTwoHours();
  free_->Form_Unload();
  free_ = std::make_unique<frmFree>(*session_, fields_, free_view_, windows_, clock_);
  free_->Form_Load();
  Finish();
  EXPECT_EQ(4, free_view_.Fields.HalfHours);
  EXPECT_EQ("3/15/2014", free_view_.Fields.Text1[1]);
  EXPECT_EQ(2U, free_view_.Picture.Lines.size());
}

TEST_F(FrmFreeTest, ClosingStopsTheSearchAndLetsGoOfTheCalendar) {
  Open();
  FreeFields fields = fields_;
  fields.Days = {};
  fields.Days[1] = true;
  fields.Text1 = {"1/1/100", "12/31/9999"};
  fields.HalfHours = 48;
  fields.Hours = {1, 48};
  free_->Fields_Change(fields);
  free_->Form_Unload();
  EXPECT_EQ("enable month\n", windows_.Log);
  EXPECT_FALSE(free_view_.Works);
  session_->ResCon.reset();
  free_->Work();
  free_->Fields_Change(fields);
  free_->List1_Chosen(0);
  free_->Drop();
  EXPECT_EQ(0, free_view_.Closings);
}

TEST_F(FrmFreeTest, ACalendarWithoutFacilitiesTableCannotBeSearched) {
  Start();
  BreakCalendar();
  EXPECT_THROW(frmFree(*session_, fields_, free_view_, windows_, clock_), DatabaseError);
}

TEST_F(FrmFreeTest, AFailureEndsTheSearch) {
  Start();
  Faults faults;
  session_->ResCon =
      std::make_unique<Connection>(std::make_unique<FailingStore>(folder_.Calendar(), faults));
  free_ = std::make_unique<frmFree>(*session_, fields_, free_view_, windows_, clock_);
  faults.Fail(Statement::Select, 1, 1000);
  EXPECT_THROW(free_->Form_Load(), DatabaseBusyError);
  free_view_.KeepWorking(true);
  EXPECT_THROW(free_->Work(), DatabaseBusyError);
  EXPECT_FALSE(free_view_.Works);
}

TEST_F(FrmFreeTest, TheMonthWaitsForTheWindowUnlessItCannotBeOpened) {
  Start();
  DeskActions desk(*calendar_, windows_, dialogs_, clock_);
  desk.FindFreeTime();
  EXPECT_EQ("disable month\nopen free times\n", windows_.Log);
  windows_.Log.clear();
  windows_.WhileLoading = [] { throw std::runtime_error("no bookings today"); };
  EXPECT_THROW(desk.FindFreeTime(), std::runtime_error);
  EXPECT_EQ("disable month\nenable month\n", windows_.Log);
}

}  // namespace
}  // namespace veyra
