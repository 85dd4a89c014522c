#include "forms/board/frmBoard.h"

#include "data/errors.h"
#include "forms/month/desk_actions.h"
#include "tests/forms/month_fixture.h"

namespace veyra {
namespace {

class FakeBoardView : public BoardView {
 public:
  std::string Day;
  modRes::DayBoard Board;
  std::string Log;

  void ShowBoard(const Phrase& day, const modRes::DayBoard& board) override {
    Day = day.English();
    Board = board;
  }
  void ShowWindow() override { Log += "show\n"; }
  void HideWindow() override { Log += "hide\n"; }
};

/// On 15 March 2014, a Saturday, with the facilities Pool and Hall.
class FrmBoardTest : public MonthFixture {
 protected:
  void Open(Date day = MakeDate(2014, 3, 16).value()) {
    Start({"Pool", "Hall"});
    board_ = std::make_unique<frmBoard>(*session_, board_view_, windows_, clock_);
    board_->Form_Load(day);
  }

  std::string At(std::size_t column, std::size_t slot) const {
    return board_view_.Board.Columns.at(column).Grid.Guest[slot];
  }

  FakeBoardView board_view_;
  std::unique_ptr<frmBoard> board_;
};

TEST_F(FrmBoardTest, ItShowsTheDayOfAllFacilities) {
  folder_.AddBooking(2, "2014-03-16", 19, 21, "Smith");
  Open();
  EXPECT_EQ("Sunday, 3/16/2014", board_view_.Day);
  EXPECT_EQ("Hall", board_view_.Board.Columns.at(1).Facility);
  EXPECT_EQ("Smith", At(1, 20));
  EXPECT_EQ("", At(0, 20));
}

TEST_F(FrmBoardTest, DaysAreTurnedAndTodayIsFound) {
  folder_.AddBooking(1, "2014-03-17", 1, 1, "Smith");
  Open();
  board_->Command1_Click();
  EXPECT_EQ("Monday, 3/17/2014", board_view_.Day);
  EXPECT_EQ("Smith", At(0, 1));
  board_->Command2_Click();
  EXPECT_EQ("Sunday, 3/16/2014", board_view_.Day);
  board_->TodayKey();
  EXPECT_EQ("Saturday, 3/15/2014", board_view_.Day);
}

TEST_F(FrmBoardTest, ThereIsNoDayAfterTheLastOrBeforeTheFirst) {
  Open(MakeDate(9999, 12, 31).value());
  board_->Command1_Click();
  EXPECT_EQ("Friday, 12/31/9999", board_view_.Day);
  board_->Form_Load(MakeDate(100, 1, 1).value());
  board_->Command2_Click();
  EXPECT_EQ("Friday, 1/1/100", board_view_.Day);
}

TEST_F(FrmBoardTest, ACellLeadsToTheDayOfItsFacilityAndBackToWhatIsStoredThen) {
  Open();
  board_->Cell_Chosen(19, 1);
  EXPECT_EQ("hide\n", board_view_.Log);
  EXPECT_EQ("enable month\nopen 3/16/2014 of Hall\nchoose 19-19\n", windows_.Log);
  windows_.Log.clear();
  folder_.AddBooking(2, "2014-03-16", 19, 19, "Smith");
  board_->DayClosed();
  EXPECT_EQ("disable month\n", windows_.Log);
  EXPECT_EQ("hide\nshow\n", board_view_.Log);
  EXPECT_EQ("Smith", At(1, 19));
}

TEST_F(FrmBoardTest, ADayThatItDidNotLeadToDoesNotBringItBack) {
  Open();
  board_->DayClosed();
  board_->Cell_Chosen(19, 1);
  board_->DayClosed();
  board_->DayClosed();
  EXPECT_EQ("hide\nshow\n", board_view_.Log);
}

TEST_F(FrmBoardTest, WhenTheDayCannotBeOpenedTheMonthIsLeft) {
  Open();
  windows_.DayMayBeOpened = false;
  board_->Cell_Chosen(19, 1);
  EXPECT_EQ("enable month\nopen 3/16/2014 of Hall\n", windows_.Log);
  board_->DayClosed();
  EXPECT_EQ("hide\n", board_view_.Log);
}

TEST_F(FrmBoardTest, ABoardThatCannotBeReadLeavesTheOldOneStanding) {
  folder_.AddBooking(2, "2014-03-16", 19, 21, "Smith");
  Open();
  BreakCalendar();
  EXPECT_THROW(board_->Command1_Click(), DatabaseError);
  EXPECT_EQ("Sunday, 3/16/2014", board_view_.Day);
  board_->Cell_Chosen(1, 0);
  EXPECT_NE(std::string::npos, windows_.Log.find("open 3/16/2014 of Pool"));
}

TEST_F(FrmBoardTest, ClosingGivesTheMonthBack) {
  Open();
  board_->Form_Unload();
  EXPECT_EQ("enable month\n", windows_.Log);
}

TEST_F(FrmBoardTest, TheDeskOpensTheBoardOfTheChosenDay) {
  Start();
  DeskActions desk(*calendar_, windows_, dialogs_, clock_);
  calendar_->ShowDay(MakeDate(2014, 12, 22).value());
  desk.ShowDayBoard();
  EXPECT_EQ("disable month\nopen board \"12/22/2014\"\n", windows_.Log);
}

}  // namespace
}  // namespace veyra
