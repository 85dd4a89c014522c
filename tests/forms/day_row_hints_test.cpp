#include "data/errors.h"
#include "tests/failing_store.h"
#include "tests/forms/day_fixture.h"

namespace veyra {
namespace {

/// What the day window tells of its rows beside their fixed texts.
class DayRowHintsTest : public DayFixture {};

TEST_F(DayRowHintsTest, WhileRowsAreDraggedOverItIsSaidWhatTheyAre) {
  folder_.AddBooking(1, "2014-04-06", 22, 23, "Smith");
  OpenDay();
  day_->MSFlexGrid1_Stretch(19, 21);
  EXPECT_EQ("9:00A-10:30A, 1 h 30 min, free", view_.RangeHint);
  day_->MSFlexGrid1_Stretch(23, 19);
  EXPECT_EQ("9:00A-11:30A, 2 h 30 min, taken by Smith", view_.RangeHint);
}

TEST_F(DayRowHintsTest, ARowTellsOfItsBooking) {
  folder_.AddBooking(1, "2014-04-06", 22, 23, "Smith");
  OpenDay();
  EXPECT_EQ("Smith\n10:30A-11:30A, 1 h", day_->RowHint(22));
  EXPECT_EQ("", day_->RowHint(24));
}

TEST_F(DayRowHintsTest, ARowOfASeriesTellsOfItsDatesInThisFacility) {
  const double key = 20140401120000.0;
  for (const char* day : {"2014-04-06", "2014-12-22", "2014-04-13"}) {
    folder_.AddBooking(1, day, 22, 23, "Choir", key);
  }
  folder_.AddBooking(2, "2014-12-29", 22, 23, "Choir", key);
  OpenDay();
  EXPECT_EQ("Choir\n10:30A-11:30A, 1 h\none of 3 dates until 12/22", day_->RowHint(23));
}

TEST_F(DayRowHintsTest, TheDatesAreAskedForAnewOnceTheGridIsFilledAnew) {
  const double key = 20140401120000.0;
  folder_.AddBooking(1, "2014-04-06", 22, 23, "Choir", key);
  folder_.AddBooking(1, "2014-04-13", 22, 23, "Choir", key);
  OpenDay();
  day_->RowHint(22);
  folder_.AddBooking(1, "2014-04-20", 22, 23, "Choir", key);
  EXPECT_EQ("Choir\n10:30A-11:30A, 1 h\none of 2 dates until 4/13", day_->RowHint(22));
  day_->FillGrid();
  EXPECT_EQ("Choir\n10:30A-11:30A, 1 h\none of 3 dates until 4/20", day_->RowHint(22));
}

TEST_F(DayRowHintsTest, ASeriesThatCannotBeReadIsReportedOnce) {
  folder_.AddBooking(1, "2014-04-06", 22, 23, "Choir", 20140401120000.0);
  OpenDay();
  Faults faults;
  session_->ResCon =
      std::make_unique<Connection>(std::make_unique<FailingStore>(folder_.Calendar(), faults));
  faults.Fail(Statement::Select, 1, 1000);
  EXPECT_THROW(day_->RowHint(22), DatabaseBusyError);
  EXPECT_NO_THROW(day_->RowHint(22));
}

TEST_F(DayRowHintsTest, NeighboursOfOneNameAreToldApart) {
  folder_.AddBooking(1, "2014-04-06", 19, 20, "Choir");
  folder_.AddBooking(1, "2014-04-06", 21, 22, "Choir", 20140401120000.0);
  OpenDay();
  const DayGrid& grid = view_.MSFlexGrid1;
  EXPECT_EQ(grid.Number[19], grid.Number[20]);
  EXPECT_NE(grid.Number[20], grid.Number[21]);
  EXPECT_FALSE(grid.At(20)->Group);
  EXPECT_EQ(20140401120000.0, grid.At(21)->Group);
  EXPECT_EQ(nullptr, grid.At(23));
}

TEST_F(DayRowHintsTest, WhatWasJustBookedIsABookingOfItsOwn) {
  folder_.AddBooking(1, "2014-04-06", 19, 20, "Ann");
  OpenDay();
  day_->Combo1_Change("Ann");
  AnswerNext(Answer::Ok);
  Drag(21, 22);
  const DayGrid& grid = view_.MSFlexGrid1;
  EXPECT_NE(0, grid.Number[21]);
  EXPECT_EQ(grid.Number[21], grid.Number[22]);
  EXPECT_NE(grid.Number[20], grid.Number[21]);
  EXPECT_EQ("Ann\n10:00A-11:00A, 1 h", day_->RowHint(22));
}

TEST_F(DayRowHintsTest, TheNameOfABookingIsOfferedFirstTheNextTime) {
  OpenDay();
  for (const auto& [name, row] : {std::pair{"Ann", 19}, {"Bob", 20}}) {
    day_->Combo1_Change(name);
    AnswerNext(Answer::Ok);
    Click(row);
  }
  EXPECT_EQ((std::vector<std::string>{"Bob", "Ann"}), view_.Combo1.Used);
  OpenDay();
  EXPECT_EQ((std::vector<std::string>{"Bob", "Ann"}), view_.Combo1.Used);
}

}  // namespace
}  // namespace veyra
