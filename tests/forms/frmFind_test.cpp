#include "forms/find/frmFind.h"

#include <stdexcept>

#include "data/errors.h"
#include "forms/month/desk_actions.h"
#include "tests/forms/month_fixture.h"

namespace veyra {
namespace {

class FakeFindView : public FindView {
 public:
  FindPicture Picture;
  bool Works = false;
  int Closings = 0;

  void ShowFound(const FindPicture& picture) override { Picture = picture; }
  void KeepWorking(bool working) override { Works = working; }
  void CloseWindow() override { ++Closings; }
};

/// On 15 March 2014.
class FrmFindTest : public MonthFixture {
 protected:
  void Open() {
    Start({"Pool", "Hall"});
    find_ = std::make_unique<frmFind>(*session_, find_view_, windows_, clock_);
    find_->Form_Load();
  }

  void Type(const std::string& text) {
    find_->Text1_Change(text);
    while (find_view_.Works) {
      find_->Work();
    }
  }

  FakeFindView find_view_;
  std::unique_ptr<frmFind> find_;
};

TEST_F(FrmFindTest, ItSaysWhatToTypeAndReadsMeanwhile) {
  Open();
  EXPECT_EQ("Type part of a guest's or an event's name.", find_view_.Picture.State);
  EXPECT_TRUE(find_view_.Works);
}

TEST_F(FrmFindTest, WhatIsFoundIsShown) {
  folder_.AddBooking(1, "2014-03-16", 19, 21, "Smith");
  folder_.AddBooking(1, "2014-03-14", 19, 21, "Smith");
  Open();
  Type("smi");
  EXPECT_EQ((std::vector<Phrase>{"Sunday, 3/16/2014,  9:00A-10:30A, Pool, Smith"}),
            find_view_.Picture.Upcoming);
  EXPECT_EQ((std::vector<Phrase>{"Friday, 3/14/2014,  9:00A-10:30A, Pool, Smith"}),
            find_view_.Picture.Past);
  EXPECT_EQ("To come: 1. Past: 1. Enter opens the day.", find_view_.Picture.State);
}

TEST_F(FrmFindTest, ItSaysWhenThereIsNone) {
  Open();
  Type("smi");
  EXPECT_EQ("No booking has such a name.", find_view_.Picture.State);
  EXPECT_FALSE(find_view_.Works);
}

TEST_F(FrmFindTest, AChosenLineOpensItsDay) {
  folder_.AddBooking(1, "2014-03-16", 19, 21, "Smith");
  folder_.AddBooking(2, "2014-03-14", 19, 21, "Smith");
  Open();
  Type("smith");
  find_->List1_Chosen(1);
  EXPECT_EQ(1, find_view_.Closings);
  EXPECT_EQ("open 3/14/2014 of Hall\n", windows_.Log);
}

TEST_F(FrmFindTest, ClosingGivesTheMonthBackAndLetsGoOfTheCalendar) {
  folder_.AddBooking(1, "2014-03-16", 19, 21, "Smith");
  Open();
  find_->Form_Unload();
  EXPECT_EQ("enable month\n", windows_.Log);
  EXPECT_FALSE(find_view_.Works);
  session_->ResCon.reset();
  find_->Text1_Change("smith");
  find_->Work();
  find_->List1_Chosen(0);
  EXPECT_TRUE(find_view_.Picture.Upcoming.empty());
}

TEST_F(FrmFindTest, ACalendarWithoutBookingsCannotBeSearched) {
  Start({"Pool"});
  BreakCalendar();
  EXPECT_THROW(frmFind(*session_, find_view_, windows_, clock_), DatabaseError);
}

TEST_F(FrmFindTest, TheMonthTakesInputAgainWhenItCannotBeOpened) {
  Start({"Pool"});
  windows_.WhileLoading = [] { throw std::runtime_error("no bookings today"); };
  DeskActions desk(*calendar_, windows_, dialogs_, clock_);
  EXPECT_THROW(desk.Find(), std::runtime_error);
  EXPECT_EQ("disable month\nenable month\n", windows_.Log);
}

TEST_F(FrmFindTest, ADayOfAnotherFacilityIsOpened) {
  Start({"Pool", "Hall"});
  session_->PrintLayoutOn = true;
  calendar_->OpenDay("Hall", MakeDate(2014, 12, 22).value());
  EXPECT_EQ("Hall", view_.lblRoom);
  EXPECT_EQ("December 2014", view_.Picture.Title);
  EXPECT_EQ("hide month\nopen day \"  12/22/2014 Bookings\"\n", windows_.Log);
}

TEST_F(FrmFindTest, AFacilityThatIsGoneOpensNoDayOfAnother) {
  Start({"Pool", "Hall"});
  Remove("Hall");
  calendar_->OpenDay("Hall", MakeDate(2014, 12, 22).value());
  EXPECT_EQ("The facility Hall is not there any more.", dialogs_.LastMessage().Text);
  EXPECT_EQ("", windows_.Log);
}

}  // namespace
}  // namespace veyra
