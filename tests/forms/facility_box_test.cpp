#include "data/errors.h"
#include "logic/facilities.h"
#include "tests/forms/month_fixture.h"

namespace veyra {
namespace {

class FacilityBoxTest : public MonthFixture {};

TEST_F(FacilityBoxTest, PickingAFacilityShowsItsMonth) {
  Start({"Pool", "Hall"});
  folder_.AddBooking(2, "2014-03-05", 1, 2, "Dance");
  session_->IsLoading = true;
  calendar_->Combo1_Click("Hall");
  EXPECT_EQ("Hall", view_.lblRoom);
  EXPECT_EQ(2, session_->CurRmID);
  EXPECT_EQ((modRes::DayLines{"12:00A- 1:00A Dance"}), view_.Picture.Cells[11].Lines);
  EXPECT_FALSE(session_->IsLoading);
}

TEST_F(FacilityBoxTest, AFacilityThatCannotBeSelectedIsNotNamed) {
  Start({"Pool", "Hall"});
  BreakCalendar();
  view_.Combo1.Text = "Hall";
  EXPECT_THROW(calendar_->Combo1_Click("Hall"), DatabaseError);
  EXPECT_EQ("Pool", view_.Combo1.Text);
  EXPECT_EQ("Pool", view_.lblRoom);
  EXPECT_EQ(1, session_->CurRmID);
}

TEST_F(FacilityBoxTest, TypingAListedNameInLowerCaseAdoptsItsSpelling) {
  Start({"Pool", "Hall"});
  TypeAndEnter("hALL");
  EXPECT_EQ("Hall", view_.Combo1.Text);
  EXPECT_TRUE(dialogs_.Boxes().empty());
  EXPECT_EQ(1, view_.MonthsShown);
  EXPECT_EQ("1 Pool active\n2 Hall\n", folder_.Rooms());
}

TEST_F(FacilityBoxTest, CaseIsThatOfEveryScript) {
  Start({"\u00C9t\u00E9"});
  TypeAndEnter("\u00E9T\u00C9");
  EXPECT_EQ("\u00C9t\u00E9", view_.Combo1.Text);
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(FacilityBoxTest, TypingANewNameAsksForItInProperCase) {
  Start();
  dialogs_.AnswerNext(Answer::No);
  TypeAndEnter("main HALL");
  EXPECT_EQ("[Yes/No Exclamation] Do you want to add a new Facility called Main Hall?",
            dialogs_.OnlyBox());
}

TEST_F(FacilityBoxTest, AddingAFacilityEndsTheLoading) {
  Start();
  session_->IsLoading = true;
  dialogs_.AnswerNext(Answer::Yes);
  TypeAndEnter("Hall");
  EXPECT_EQ("Hall", view_.lblRoom);
  EXPECT_FALSE(session_->IsLoading);
}

TEST_F(FacilityBoxTest, TheProperCaseNameIsSeenBehindTheQuestion) {
  Start();
  dialogs_.AnswerNext(Answer::No);
  std::string seen;
  dialogs_.WhileShown = [&] { seen = view_.Combo1.Text; };
  TypeAndEnter("main hall");
  EXPECT_EQ("Main Hall", seen);
}

TEST_F(FacilityBoxTest, YesAddsTheFacilityAndShowsItsEmptyMonth) {
  Start();
  folder_.AddBooking(1, "2014-03-05", 1, 2, "Swim");
  dialogs_.AnswerNext(Answer::Yes);
  TypeAndEnter("main hall");
  EXPECT_EQ((NameBox{{"Pool", "Main Hall"}, "Main Hall", {"Main Hall"}}), view_.Combo1);
  EXPECT_EQ("Main Hall", view_.lblRoom);
  EXPECT_EQ(2, session_->CurRmID);
  EXPECT_EQ("1 Pool active\n2 Main Hall active\n", folder_.Rooms());
  EXPECT_EQ(2, view_.MonthsShown);
  EXPECT_EQ(modRes::DayLines{}, view_.Picture.Cells[11].Lines);
}

TEST_F(FacilityBoxTest, NoPutsTheCurrentFacilityBack) {
  Start();
  dialogs_.AnswerNext(Answer::No);
  TypeAndEnter("main hall");
  EXPECT_EQ((NameBox{{"Pool"}, "Pool"}), view_.Combo1);
  EXPECT_EQ("1 Pool active\n", folder_.Rooms());
}

TEST_F(FacilityBoxTest, EnterInAnEmptyBoxAsksNothing) {
  Start();
  TypeAndEnter("");
  EXPECT_TRUE(dialogs_.Boxes().empty());
  EXPECT_EQ("1 Pool active\n", folder_.Rooms());
}

TEST_F(FacilityBoxTest, OnlyEnterDoesAnything) {
  Start();
  Type("main hall");
  calendar_->Combo1_KeyPress('x');
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(FacilityBoxTest, AnAddedFacilityIsThereAfterARestart) {
  Start();
  dialogs_.AnswerNext(Answer::Yes);
  TypeAndEnter("main hall");
  NameBox box;
  const auto next_run = folder_.OpenSession();
  modRes::LoadFacilities(*next_run, box);
  EXPECT_EQ("Main Hall", box.Text);
}

TEST_F(FacilityBoxTest, FocusSelectsTheWholeTextWhenThereIsOne) {
  Start();
  calendar_->Combo1_GotFocus();
  EXPECT_EQ(1, view_.TextsSelected);
}

TEST_F(FacilityBoxTest, FocusOnAnEmptyBoxSelectsNothing) {
  Start({});
  calendar_->Combo1_GotFocus();
  EXPECT_EQ(0, view_.TextsSelected);
}

TEST_F(FacilityBoxTest, AnotherFacilitysNameGoesBackWhenTheBoxIsLeft) {
  Start({"Pool", "Hall"});
  TypeAndEnter("hall");
  calendar_->Combo1_LostFocus();
  EXPECT_EQ("Pool", view_.Combo1.Text);
  EXPECT_EQ(1, session_->CurRmID);
}

TEST_F(FacilityBoxTest, AnEmptiedBoxStaysEmptyWhenItIsLeft) {
  Start();
  Type("");
  calendar_->Combo1_LostFocus();
  EXPECT_EQ("", view_.Combo1.Text);
  calendar_->lstDay_MouseDown(11, MouseButton::Left);
  EXPECT_EQ("[OK Critical] There is no Facility Selected", dialogs_.OnlyBox());
}

TEST_F(FacilityBoxTest, WithoutAFacilityATypedNameGoesWhenTheBoxIsLeft) {
  Start({});
  Type("main hall");
  calendar_->Combo1_LostFocus();
  EXPECT_EQ("", view_.Combo1.Text);
}

TEST_F(FacilityBoxTest, AnAddedFacilityKeepsItsNameInTheBox) {
  Start();
  dialogs_.AnswerNext(Answer::Yes);
  TypeAndEnter("main hall");
  calendar_->Combo1_LostFocus();
  EXPECT_EQ("Main Hall", view_.Combo1.Text);
}

TEST_F(FacilityBoxTest, ADayIsOpenedForTheFacilityThatTheBoxNames) {
  Start({"Pool", "Hall"});
  Type("Hall");
  calendar_->lstDay_MouseDown(11, MouseButton::Left);
  EXPECT_EQ("Pool", view_.Combo1.Text);
  EXPECT_EQ("hide month\nopen day \"  3/5/2014 Bookings\"\n", windows_.Log);
}

TEST_F(FacilityBoxTest, ANameTypedInANewCalendarOpensNoDay) {
  Start({});
  Type("main hall");
  calendar_->lstDay_MouseDown(11, MouseButton::Left);
  EXPECT_EQ("[OK Critical] There is no Facility Selected", dialogs_.OnlyBox());
  EXPECT_EQ("", windows_.Log);
}

TEST_F(FacilityBoxTest, ADayIsNotOpenedOnceItsFacilityIsGone) {
  Start();
  Remove("Pool");
  calendar_->lstDay_MouseDown(11, MouseButton::Left);
  EXPECT_EQ("[OK Critical] There is no Facility Selected", dialogs_.OnlyBox());
  EXPECT_FALSE(calendar_->PrepareToOpenDay()) << "nor from the viewer";
}

TEST_F(FacilityBoxTest, AHalfTypedNameDoesNotKeepTheDeletedFacilityInTheList) {
  Start({"Pool", "Hall"});
  Type("poo");
  dialogs_.AnswerNext(Answer::Yes);
  calendar_->Command4_Click();
  EXPECT_EQ((NameBox{{"Hall"}, "Hall"}), view_.Combo1);
}

TEST_F(FacilityBoxTest, AnEmptiedBoxDoesNotKeepTheDeletedFacilityInTheList) {
  Start({"Pool", "Hall"});
  Type("");
  dialogs_.AnswerNext(Answer::Yes);
  calendar_->Command4_Click();
  EXPECT_EQ((NameBox{{"Hall"}, "Hall"}), view_.Combo1);
}

TEST_F(FacilityBoxTest, APickedNameThatIsGoneReloadsTheListAndKeepsTheFacility) {
  Start({"Pool", "Hall", "Court"});
  Remove("Hall");
  calendar_->Combo1_Click("Hall");
  EXPECT_EQ((NameBox{{"Pool", "Court"}, "Pool"}), view_.Combo1);
  EXPECT_EQ("Pool", view_.lblRoom);
  EXPECT_EQ(1, session_->CurRmID);
  EXPECT_EQ("1 Pool active\n3 Court\n", folder_.Rooms());
}

TEST_F(FacilityBoxTest, WithoutANameNothingIsAskedToBeDeleted) {
  Start({});
  calendar_->Command4_Click();
  EXPECT_EQ("[OK Critical] There is no Facility Selected", dialogs_.OnlyBox());
}

TEST_F(FacilityBoxTest, TheLastFacilityIsNotAskedForOnceItIsDeleted) {
  Start();
  dialogs_.AnswerNext(Answer::Yes);
  calendar_->Command4_Click();
  calendar_->Command4_Click();
  EXPECT_EQ("[OK Critical] There is no Facility Selected", dialogs_.Boxes().back());
}

TEST_F(FacilityBoxTest, WhileNoneIsSelectedDeletingTakesNothingAndSelectsTheFirst) {
  folder_.AddRoom("Pool");
  folder_.AddRoom("Hall");
  folder_.AddBooking(1, "2014-03-05", 1, 2, "Swim");
  Start({});
  dialogs_.AnswerNext(Answer::Yes);
  calendar_->Command4_Click();
  EXPECT_EQ("[Yes/No Critical] Are you Sure you want to Delete  and All Events associated with it?",
            dialogs_.OnlyBox());
  EXPECT_EQ("1 Pool active\n2 Hall\n", folder_.Rooms());
  EXPECT_EQ("1 2014-03-05 1-2 Swim\n", folder_.Bookings());
  EXPECT_EQ((NameBox{{"Pool", "Hall"}, "Pool"}), view_.Combo1);
  EXPECT_EQ("Pool", view_.lblRoom);
}

TEST_F(FacilityBoxTest, AFacilityOfAnotherProgramWithoutANameCanBeDeletedToo) {
  Start({"Pool", ""});
  dialogs_.AnswerNext(Answer::Yes);
  calendar_->Command4_Click();
  EXPECT_EQ(2, session_->CurRmID);
  dialogs_.AnswerNext(Answer::Yes);
  calendar_->Command4_Click();
  EXPECT_EQ("[Yes/No Critical] Are you Sure you want to Delete  and All Events associated with it?",
            dialogs_.Boxes().back());
  EXPECT_EQ("", folder_.Rooms());
  EXPECT_EQ((NameBox{}), view_.Combo1);
}

TEST_F(FacilityBoxTest, DeletingAFacilityTellsItsBookingsAndEnterDeletesNothing) {
  Start();
  folder_.AddBooking(1, "2014-03-14", 1, 2, "yesterday");
  folder_.AddBooking(1, "2014-03-15", 1, 2, "today");
  dialogs_.AnswerNext(Answer::No);
  calendar_->Command4_Click();
  EXPECT_EQ("Bookings: 2, of these today or later: 1", dialogs_.LastMessage().Details);
  EXPECT_EQ(Answer::No, dialogs_.LastMessage().Default);
}

TEST_F(FacilityBoxTest, ReloadingShowsWhatTheCalendarHolds) {
  Start({"Pool", "Hall"});
  Type("half typed");
  folder_.AddRoom("Court");
  Remove("Hall");
  calendar_->ReloadFacilities();
  EXPECT_EQ((NameBox{{"Pool", "Court"}, "Pool"}), view_.Combo1);
}

TEST_F(FacilityBoxTest, ANameThatTurnsTheDirectionIsSetApartInTheQuestion) {
  Start({"\u202Eloop"});
  dialogs_.AnswerNext(Answer::No);
  calendar_->Command4_Click();
  EXPECT_EQ(
      "[Yes/No Critical] Are you Sure you want to Delete \u2068\u202Eloop\u2069 and All Events "
      "associated with it?",
      dialogs_.OnlyBox());
}

TEST_F(FacilityBoxTest, DeletingAFacilityIsAskedByTheNameAboveTheGrid) {
  Start({"Pool", "Hall"});
  Type("half typed");
  dialogs_.AnswerNext(Answer::No);
  calendar_->Command4_Click();
  EXPECT_EQ(
      "[Yes/No Critical] Are you Sure you want to Delete Pool and All Events associated with it?",
      dialogs_.OnlyBox());
  EXPECT_EQ("1 Pool active\n2 Hall\n", folder_.Rooms());
}

TEST_F(FacilityBoxTest, YesDeletesTheFacilityAndShowsTheFirstLeft) {
  Start({"Pool", "Hall"});
  folder_.AddBooking(1, "2014-03-05", 1, 2, "Swim");
  folder_.AddBooking(2, "2014-03-05", 3, 4, "Dance");
  dialogs_.AnswerNext(Answer::Yes);
  calendar_->Command4_Click();
  EXPECT_EQ((NameBox{{"Hall"}, "Hall"}), view_.Combo1);
  EXPECT_EQ("Hall", view_.lblRoom);
  EXPECT_EQ("2 2014-03-05 3-4 Dance\n", folder_.Bookings());
  EXPECT_EQ((modRes::DayLines{" 1:00A- 2:00A Dance"}), view_.Picture.Cells[11].Lines);
}

TEST_F(FacilityBoxTest, DeletingTheLastFacilityEmptiesTheBoxAndDrawsTheMonth) {
  Start();
  dialogs_.AnswerNext(Answer::Yes);
  calendar_->Command4_Click();
  EXPECT_EQ((NameBox{}), view_.Combo1);
  EXPECT_EQ(1, session_->CurRmID);
  EXPECT_EQ(2, view_.MonthsShown);
}

}  // namespace
}  // namespace veyra
