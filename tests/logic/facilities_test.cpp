#include "logic/facilities.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/calendar_folder.h"
#include "tests/fake_dialogs.h"

namespace veyra::modRes {
namespace {

using Names = std::vector<std::string>;

class FacilitiesTest : public testing::Test {
 protected:
  /// The session of this test, opened once the rows it starts from are there.
  Session& Desk() {
    if (!session_) {
      session_ = folder_.OpenSession();
    }
    return *session_;
  }

  CalendarFolder folder_;
  std::unique_ptr<Session> session_;
  FakeDialogs dialogs_;
  NameBox box_;
  std::string lblRoom_ = "old caption";
};

TEST_F(FacilitiesTest, AllFacilitiesAreListedWhateverTheirMark) {
  folder_.AddRoom("Pool");
  folder_.AddRoom("Hall", true);
  folder_.AddRoom("Court");
  LoadFacilities(Desk(), box_);
  EXPECT_EQ((NameBox{{"Pool", "Hall", "Court"}, "Hall"}), box_);
}

TEST_F(FacilitiesTest, OfTwoActiveFacilitiesTheLastIsShown) {
  folder_.AddRoom("Pool", true);
  folder_.AddRoom("Hall", true);
  LoadFacilities(Desk(), box_);
  EXPECT_EQ("Hall", box_.Text);
}

TEST_F(FacilitiesTest, WithNoFacilityTheBoxIsLeftAsItWas) {
  box_ = {{"left"}, "over"};
  LoadFacilities(Desk(), box_);
  EXPECT_EQ((NameBox{{"left"}, "over"}), box_);
}

TEST_F(FacilitiesTest, SelectingMarksThatOneFacilityOnly) {
  folder_.AddRoom("Pool", true);
  folder_.AddRoom("Hall", true);
  const auto court = folder_.AddRoom("Court");
  SelectFacility(Desk(), "Court");
  EXPECT_EQ(court, Desk().CurRmID);
  EXPECT_EQ("1 Pool\n2 Hall\n3 Court active\n", folder_.Rooms());
}

TEST_F(FacilitiesTest, SelectingAnUnknownNameKeepsCurRmIDAndClearsEveryMark) {
  folder_.AddRoom("Pool", true);
  Desk().CurRmID = 1;
  SelectFacility(Desk(), "pool");
  EXPECT_EQ(1, Desk().CurRmID);
  EXPECT_EQ("1 Pool\n", folder_.Rooms());
}

TEST_F(FacilitiesTest, AFacilityWithoutANameIsNotSelectedByAnEmptyText) {
  folder_.AddRoom("");
  folder_.AddRoom("Pool", true);
  folder_.Calendar()->Insert("Rooms", {{"Active", std::int64_t{0}}});
  Desk().CurRmID = 2;
  SelectFacility(Desk(), "");
  EXPECT_EQ(2, Desk().CurRmID);
}

TEST_F(FacilitiesTest, ShowingTheCurrentFacilityPutsItsNameBack) {
  folder_.AddRoom("Pool");
  Desk().CurRmID = folder_.AddRoom("Hall");
  box_.Text = "half typed";
  ShowCurrentFacility(Desk(), box_);
  EXPECT_EQ("Hall", box_.Text);
}

TEST_F(FacilitiesTest, WithNoCurrentFacilityTheTextStays) {
  box_.Text = "half typed";
  ShowCurrentFacility(Desk(), box_);
  EXPECT_EQ("half typed", box_.Text);
}

TEST_F(FacilitiesTest, AnAddedFacilityIsCurrentActiveAndLast) {
  folder_.AddRoom("Pool", true);
  LoadFacilities(Desk(), box_);
  box_.Text = "Main Hall";
  AddFacility(Desk(), box_);
  EXPECT_EQ(2, Desk().CurRmID);
  EXPECT_EQ((Names{"Pool", "Main Hall"}), box_.Items);
  EXPECT_EQ("1 Pool active\n2 Main Hall active\n", folder_.Rooms());
}

TEST_F(FacilitiesTest, TheNextSelectionCorrectsTheMarksThatAddingLeft) {
  folder_.AddRoom("Pool", true);
  box_.Text = "Main Hall";
  AddFacility(Desk(), box_);
  SelectFacility(Desk(), "Main Hall");
  EXPECT_EQ("1 Pool\n2 Main Hall active\n", folder_.Rooms());
}

TEST_F(FacilitiesTest, ANameWithAQuoteIsHarmless) {
  box_.Text = "O'Neill's \"Hall\"; DROP TABLE Rooms; #";
  AddFacility(Desk(), box_);
  SelectFacility(Desk(), box_.Text);
  EXPECT_EQ("1 " + box_.Text + " active\n", folder_.Rooms());
}

TEST_F(FacilitiesTest, DeletingTakesTheBookingsOfThatFacilityOnly) {
  const auto pool = folder_.AddRoom("Pool", true);
  const auto hall = folder_.AddRoom("Hall");
  folder_.AddBooking(pool, "2014-04-06", 1, 2, "swim");
  folder_.AddBooking(hall, "2014-04-06", 1, 2, "dance");
  folder_.AddBooking(pool, "2015-01-01", 3, 4, "dive");
  LoadFacilities(Desk(), box_);
  Desk().CurRmID = pool;
  DeleteFacility(Desk(), box_, lblRoom_, dialogs_);
  EXPECT_EQ("2 2014-04-06 1-2 dance\n", folder_.Bookings());
  EXPECT_EQ("2 Hall active\n", folder_.Rooms());
}

TEST_F(FacilitiesTest, AfterDeletingTheFirstFacilityLeftIsSelected) {
  folder_.AddRoom("Pool");
  folder_.AddRoom("Hall");
  Desk().CurRmID = folder_.AddRoom("Court", true);
  LoadFacilities(Desk(), box_);
  DeleteFacility(Desk(), box_, lblRoom_, dialogs_);
  EXPECT_EQ(1, Desk().CurRmID);
  EXPECT_EQ((NameBox{{"Pool", "Hall"}, "Pool"}), box_);
  EXPECT_EQ("Pool", lblRoom_);
}

TEST_F(FacilitiesTest, DeletingTheLastFacilityLeavesTheTextEmptyAndCurRmIDAlone) {
  Desk().CurRmID = folder_.AddRoom("Pool", true);
  LoadFacilities(Desk(), box_);
  DeleteFacility(Desk(), box_, lblRoom_, dialogs_);
  EXPECT_EQ((NameBox{}), box_);
  EXPECT_EQ(1, Desk().CurRmID);
  EXPECT_EQ("old caption", lblRoom_);
}

TEST_F(FacilitiesTest, DeletingWithNoneSelectedTakesOnlyTheEntryAndSelectsTheFirst) {
  folder_.AddRoom("Pool");
  folder_.AddRoom("Hall");
  folder_.AddBooking(1, "2014-04-06", 1, 2, "swim");
  box_ = {{"Pool", "Hall"}, "Hall"};
  Desk().CurRmID = 0;
  DeleteFacility(Desk(), box_, lblRoom_, dialogs_);
  EXPECT_EQ((NameBox{{"Pool"}, "Pool"}), box_);
  EXPECT_EQ("1 Pool active\n2 Hall\n", folder_.Rooms());
  EXPECT_EQ("1 2014-04-06 1-2 swim\n", folder_.Bookings());
}

TEST_F(FacilitiesTest, AfterARestartTheFacilityLastSelectedIsTheTextAgain) {
  folder_.AddRoom("Pool", true);
  folder_.AddRoom("Hall");
  SelectFacility(Desk(), "Hall");
  const auto next_run = folder_.OpenSession();
  LoadFacilities(*next_run, box_);
  EXPECT_EQ("Hall", box_.Text);
}

}  // namespace
}  // namespace veyra::modRes
