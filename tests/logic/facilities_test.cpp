#include "logic/facilities.h"

#include <gtest/gtest.h>

#include <vector>

#include "data/desk_note.h"
#include "tests/calendar_folder.h"

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
  NameBox box_;
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

/// A desk that shares the calendar with others.
class SharedFacilitiesTest : public FacilitiesTest {
 protected:
  /// Another desk has picked the Hall last, this one nothing yet.
  SharedFacilitiesTest() {
    folder_.AddRoom("Pool");
    folder_.AddRoom("Hall", true);
    folder_.AddRoom("Court");
    Desk().DeskNote = folder_.File("note");
  }

  std::string NamedFirst() {
    NameBox box;
    LoadFacilities(Desk(), box);
    return box.Text;
  }
};

TEST_F(SharedFacilitiesTest, WhereNothingIsNotedTheColumnSaysWhichIsActive) {
  EXPECT_EQ("Hall", NamedFirst());
}

TEST_F(SharedFacilitiesTest, SelectingOneTurnsNoPageOfOtherDesks) {
  SelectFacility(Desk(), "Court");
  EXPECT_EQ(3, Desk().CurRmID);
  EXPECT_EQ("1 Pool\n2 Hall active\n3 Court\n", folder_.Rooms());
  EXPECT_EQ("Court", NamedFirst());
  Desk().DeskNote = folder_.File("note of another desk");
  EXPECT_EQ("Hall", NamedFirst());
}

TEST_F(SharedFacilitiesTest, SelectingAnUnknownNameLeavesWhatIsNoted) {
  SelectFacility(Desk(), "Court");
  SelectFacility(Desk(), "no such");
  EXPECT_EQ("Court", NamedFirst());
}

TEST_F(SharedFacilitiesTest, ANotedFacilityThatIsGoneIsAsIfNoneWasNoted) {
  WriteDeskNote(Desk().DeskNote, 77);
  EXPECT_EQ("Hall", NamedFirst());
}

TEST_F(SharedFacilitiesTest, ANewFacilityIsNotedAndTakesNoMark) {
  box_.Text = "Sauna";
  AddFacility(Desk(), box_);
  EXPECT_EQ("1 Pool\n2 Hall active\n3 Court\n4 Sauna\n", folder_.Rooms());
  EXPECT_EQ("Sauna", NamedFirst());
}

TEST_F(SharedFacilitiesTest, TheFirstOneAfterADeletionIsNotedAndTakesNoMark) {
  std::string shown;
  SelectFirstFacility(Desk(), box_, shown);
  EXPECT_EQ("Pool", shown);
  EXPECT_EQ("Pool", NamedFirst());
  KeepMarkOnServer(Desk());
  EXPECT_EQ("1 Pool\n2 Hall active\n3 Court\n", folder_.Rooms());
}

TEST_F(SharedFacilitiesTest, TheColumnIsKeptMarkedForWhoeverLeaves) {
  SelectFacility(Desk(), "Court");
  Recordset(*folder_.Calendar(), ParseQuery("SELECT * FROM Rooms Where ID = 2"),
            CursorType::StaticOptimistic)
      .Delete();
  KeepMarkOnServer(Desk());
  EXPECT_EQ("1 Pool active\n3 Court\n", folder_.Rooms());
  EXPECT_EQ("Court", NamedFirst());
}

TEST_F(FacilitiesTest, TheVeryFirstFacilityOfASharedCalendarTakesTheMark) {
  Desk().DeskNote = folder_.File("note");
  box_.Text = "Sauna";
  AddFacility(Desk(), box_);
  EXPECT_EQ("1 Sauna active\n", folder_.Rooms());
}

TEST_F(FacilitiesTest, OfAFileNothingIsNoted) {
  folder_.AddRoom("Pool");
  SelectFacility(Desk(), "Pool");
  KeepMarkOnServer(Desk());
  EXPECT_EQ("1 Pool active\n", folder_.Rooms());
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

TEST_F(FacilitiesTest, AfterARestartTheFacilityLastSelectedIsTheTextAgain) {
  folder_.AddRoom("Pool", true);
  folder_.AddRoom("Hall");
  SelectFacility(Desk(), "Hall");
  const auto next_run = folder_.OpenSession();
  LoadFacilities(*next_run, box_);
  EXPECT_EQ("Hall", box_.Text);
}

TEST_F(FacilitiesTest, TheCurrentFacilityIsFoundByItsNumber) {
  folder_.AddRoom("Pool", true);
  Desk().CurRmID = folder_.AddRoom("Hall");
  EXPECT_EQ("Hall", CurrentFacility(Desk()));
  Desk().CurRmID = 7;
  EXPECT_EQ(std::nullopt, CurrentFacility(Desk()));
}

TEST_F(FacilitiesTest, ReloadingListsWhatIsThereAndNamesTheCurrentOne) {
  folder_.AddRoom("Pool", true);
  Desk().CurRmID = folder_.AddRoom("Hall");
  box_ = {{"Pool", "Hall", "gone"}, "gone"};
  ReloadFacilities(Desk(), box_);
  EXPECT_EQ((NameBox{{"Pool", "Hall"}, "Hall"}), box_);
}

TEST_F(FacilitiesTest, ReloadingWithoutAFacilityEmptiesTheBox) {
  box_ = {{"gone"}, "gone"};
  ReloadFacilities(Desk(), box_);
  EXPECT_EQ(NameBox{}, box_);
}

}  // namespace
}  // namespace veyra::modRes
