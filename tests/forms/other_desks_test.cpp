#include "forms/month/other_desks.h"

#include "logic/facilities.h"
#include "tests/fake_feed.h"
#include "tests/forms/month_fixture.h"

namespace veyra {
namespace {

/// A desk that shows the Pool in March 2014, and others that the test moves.
class OtherDesksTest : public MonthFixture {
 protected:
  void StartDesk(const std::vector<std::string>& facilities = {"Pool", "Hall"}) {
    Start(facilities);
    session_->ResCon =
        std::make_unique<Connection>(std::make_unique<ToldStore>(folder_.Calendar(), feed_));
    others_ = std::make_unique<OtherDesks>(*session_, *calendar_, windows_, dialogs_);
    EXPECT_EQ(7, others_->Listen());
    shown_before_ = view_.MonthsShown;
  }

  void TakeAndShow() {
    ASSERT_TRUE(others_->Take());
    others_->Show();
  }

  int MonthsShown() const { return view_.MonthsShown - shown_before_; }

  void Rename(const std::string& name, const std::string& new_name) {
    Connection other(folder_.Calendar());
    const auto rooms = other.Open("SELECT * FROM Rooms", CursorType::StaticOptimistic);
    while (ToText(rooms->Field("Name")) != name) {
      rooms->MoveNext();
    }
    rooms->SetField("Name", new_name);
    rooms->Update();
  }

  FakeFeed feed_;
  std::unique_ptr<OtherDesks> others_;
  int shown_before_ = 0;
};

TEST_F(OtherDesksTest, ABookingOfTheMonthIsShown) {
  StartDesk();
  folder_.AddBooking(1, "2014-03-31", 19, 20, "Smith");
  feed_.TellBooking(1, "2014-03-31");
  TakeAndShow();
  EXPECT_EQ(1, MonthsShown());
  EXPECT_EQ(modRes::DayLines{" 9:00A-10:00A Smith"}, view_.Picture.Cells[37].Lines);
  EXPECT_FALSE(others_->Take());
}

TEST_F(OtherDesksTest, ManyBookingsAreShownAtOnce) {
  StartDesk();
  for (int i = 1; i <= 20; ++i) {
    feed_.TellBooking(1, "2014-03-10");
    others_->Take();
  }
  others_->Show();
  EXPECT_EQ(1, MonthsShown());
}

TEST_F(OtherDesksTest, ABookingOfAnotherFacilityOrMonthIsNotDrawn) {
  StartDesk();
  feed_.TellBooking(2, "2014-03-10");
  feed_.TellBooking(1, "2014-02-28");
  feed_.TellBooking(1, "2014-04-01");
  TakeAndShow();
  EXPECT_EQ(0, MonthsShown());
}

TEST_F(OtherDesksTest, WhatTheDeskHasDoneItselfIsNotDrawnTwice) {
  StartDesk();
  feed_.TellBooking(1, "2014-03-10", true);
  EXPECT_FALSE(others_->Take());
}

TEST_F(OtherDesksTest, TheWindowsOfTheDayAreToldOfTheirDayOnly) {
  StartDesk();
  session_->DayDate = MakeDate(2014, 3, 10).value();
  feed_.TellBooking(1, "2014-03-11");
  TakeAndShow();
  EXPECT_EQ("show lists anew\n", windows_.Log);
  feed_.TellBooking(1, "2014-03-10");
  TakeAndShow();
  EXPECT_EQ("show lists anew\nshow day anew\nshow lists anew\n", windows_.Log);
}

TEST_F(OtherDesksTest, AFacilityThatWasAddedStandsInTheBox) {
  StartDesk();
  folder_.AddRoom("Sauna");
  feed_.TellFacility(3);
  TakeAndShow();
  EXPECT_EQ((std::vector<std::string>{"Pool", "Hall", "Sauna"}), view_.Combo1.Items);
  EXPECT_EQ("Pool", view_.Combo1.Text);
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(OtherDesksTest, AFacilityThatWasRenamedIsShownByItsNewName) {
  StartDesk();
  Rename("Pool", "Great Pool");
  feed_.TellFacility(1);
  TakeAndShow();
  EXPECT_EQ("Great Pool", view_.Combo1.Text);
  EXPECT_EQ("Great Pool", view_.lblRoom);
  EXPECT_NE(std::string::npos, windows_.Log.find("show day anew"));
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(OtherDesksTest, AHalfTypedNameStays) {
  StartDesk();
  Type("Sau");
  folder_.AddRoom("Cellar");
  Rename("Pool", "Great Pool");
  feed_.TellFacility(3);
  TakeAndShow();
  EXPECT_EQ("Sau", view_.Combo1.Text);
  EXPECT_EQ("Great Pool", view_.lblRoom);
  EXPECT_EQ("Cellar", view_.Combo1.Items.back());
}

TEST_F(OtherDesksTest, AnEmptiedBoxStaysEmpty) {
  StartDesk();
  Type("");
  feed_.TellFacility(2);
  TakeAndShow();
  EXPECT_EQ("", view_.Combo1.Text);
}

TEST_F(OtherDesksTest, TheNamesUsedLastAreStillOfferedFirst) {
  StartDesk();
  calendar_->Combo1_Click("Hall");
  feed_.TellFacility(2);
  TakeAndShow();
  EXPECT_EQ(std::vector<std::string>{"Hall"}, view_.Combo1.Used);
}

TEST_F(OtherDesksTest, OfAFacilityThatIsGoneTheOperatorIsToldAndTheFirstOneIsShown) {
  StartDesk({"Pool", "Hall", "Sauna"});
  calendar_->Combo1_Click("Hall");
  folder_.AddBooking(1, "2014-03-10", 19, 20, "Smith");
  Remove("Hall");
  feed_.TellFacility(2);
  dialogs_.WhileShown = [&] { EXPECT_EQ("Pool", view_.lblRoom); };
  TakeAndShow();
  EXPECT_EQ(
      "[OK Exclamation] The facility Hall was deleted at another desk, with all its bookings.\r\n"
      "The first one is shown now: Pool.",
      dialogs_.OnlyBox());
  EXPECT_EQ("Pool", view_.Combo1.Text);
  EXPECT_EQ(1, session_->CurRmID);
  EXPECT_FALSE(view_.Picture.Cells[16].Lines.empty());
  EXPECT_EQ(0U, windows_.Log.find("leave day\n"));
  EXPECT_EQ((std::vector<std::string>{"Pool", "Sauna"}), view_.Combo1.Items);
}

TEST_F(OtherDesksTest, ThatOneThatIsNotShownIsGoneNobodyIsTold) {
  StartDesk();
  Remove("Hall");
  feed_.TellFacility(2);
  TakeAndShow();
  EXPECT_TRUE(dialogs_.Boxes().empty());
  EXPECT_EQ("Pool", view_.lblRoom);
}

TEST_F(OtherDesksTest, WhenTheLastOneIsGoneThereIsNoFacility) {
  StartDesk({"Pool"});
  Type("Sau");
  Remove("Pool");
  feed_.TellFacility(1);
  TakeAndShow();
  EXPECT_EQ(
      "[OK Exclamation] The facility Pool was deleted at another desk, with all its bookings.\r\n"
      "There is no other one.",
      dialogs_.OnlyBox());
  EXPECT_EQ("", view_.Combo1.Text);
  EXPECT_TRUE(view_.Combo1.Items.empty());
  calendar_->lstDay_MouseDown(10, MouseButton::Left);
  EXPECT_EQ("[OK Critical] There is no Facility Selected", dialogs_.Boxes().back());
  feed_.TellFacility(1);
  TakeAndShow();
  EXPECT_EQ(2U, dialogs_.Boxes().size()) << "told twice";
}

TEST_F(OtherDesksTest, AfterALossEverythingIsShownAnew) {
  StartDesk();
  folder_.AddRoom("Sauna");
  folder_.AddBooking(1, "2014-03-10", 19, 20, "Smith");
  feed_.TellAnything();
  TakeAndShow();
  EXPECT_EQ(1, MonthsShown());
  EXPECT_EQ("Sauna", view_.Combo1.Items.back());
  EXPECT_EQ("show day anew\nshow lists anew\n", windows_.Log);
}

/// A store whose server is away.
class AwayStore : public ToldStore {
 public:
  using ToldStore::ToldStore;

  std::unique_ptr<RowSource> Select(const Query& query) override {
    if (IsAway) {
      throw DatabaseError({FileName(), "The server is away.", "Wait."});
    }
    return ToldStore::Select(query);
  }
  std::vector<std::unique_ptr<RowSource>> SelectAll(const std::vector<Query>& queries) override {
    return Store::SelectAll(queries);
  }

  bool IsAway = false;
};

TEST_F(OtherDesksTest, ACalendarThatCannotBeReadBringsUpNoBoxAndIsShownWithWhatIsToldNext) {
  StartDesk();
  auto store = std::make_unique<AwayStore>(folder_.Calendar(), feed_);
  AwayStore& away = *store;
  session_->ResCon = std::make_unique<Connection>(std::move(store));
  others_->Listen();
  folder_.AddBooking(1, "2014-03-10", 19, 20, "Smith");
  away.IsAway = true;
  feed_.TellBooking(1, "2014-03-10");
  TakeAndShow();
  EXPECT_TRUE(dialogs_.Boxes().empty());
  EXPECT_TRUE(view_.Picture.Cells[16].Lines.empty());
  away.IsAway = false;
  feed_.TellBooking(2, "2019-01-01");
  TakeAndShow();
  EXPECT_FALSE(view_.Picture.Cells[16].Lines.empty());
}

TEST_F(OtherDesksTest, OfAFileNobodyTells) {
  Start();
  session_->ResCon = std::make_unique<Connection>(
      CreateStore(folder_.File("File.mdb"), Durability::AtOnce, FileKind::Sqlite));
  OtherDesks others(*session_, *calendar_, windows_, dialogs_);
  EXPECT_EQ(-1, others.Listen());
  EXPECT_FALSE(others.Take());
}

}  // namespace
}  // namespace veyra
