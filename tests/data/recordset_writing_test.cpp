#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <stdexcept>

#include "data/errors.h"
#include "tests/data/recordset_fixture.h"

namespace veyra {
namespace {

TEST_F(RecordsetTest, AddsARow) {
  Add(*OpenStatic(), "Pool");
  EXPECT_EQ("Pool;", Names());
}

TEST_F(RecordsetTest, StandsOnTheNewRowWithItsKey) {
  AddRooms({"Pool"});
  const auto rows = OpenStatic();
  Add(*rows, "Hall");
  EXPECT_EQ(Value(std::int64_t{2}), rows->Field("ID"));
}

TEST_F(RecordsetTest, FindsTheNewRowLast) {
  AddRooms({"Pool"});
  const auto rows = OpenStatic();
  Add(*rows, "Hall");
  rows->MoveLast();
  EXPECT_EQ(Value(std::int64_t{2}), rows->Field("ID"));
}

TEST_F(RecordsetTest, ReadsNoneOfTheTableToAddRowsToIt) {
  AddRooms({"Pool"});
  const auto rows = OpenStatic();
  Add(*rows, "Hall");
  Add(*rows, "Bar");
  rows->MoveLast();
  EXPECT_EQ("Bar", Name(*rows));
  rows->Close();
  EXPECT_EQ(0, counts_.Selects);
}

TEST_F(RecordsetTest, ReadsTheTableOnceHoweverMuchItMoves) {
  AddRooms({"Pool", "Hall"});
  const auto rows = OpenStatic();
  NamesFrom(*rows);
  rows->RecordCount();
  rows->MoveFirst();
  NamesFrom(*rows);
  EXPECT_EQ(1, counts_.Selects);
}

TEST_F(RecordsetTest, ListsNewRowsAfterThoseRead) {
  AddRooms({"Pool"});
  const auto rows = OpenStatic("SELECT * FROM Rooms Order By Name");
  Add(*rows, "Bar");
  rows->MoveFirst();
  EXPECT_EQ("Pool;Bar;", NamesFrom(*rows));
}

TEST_F(RecordsetTest, StaysOnTheNewRowWhenTheOthersAreReadLater) {
  AddRooms({"Pool", "Hall"});
  const auto rows = OpenStatic();
  Add(*rows, "Bar");
  EXPECT_EQ(3u, rows->RecordCount());
  EXPECT_EQ("Bar", Name(*rows));
}

TEST_F(RecordsetTest, ListsANewRowThatTheQueryWouldNotFind) {
  const auto rows = OpenStatic("SELECT * FROM Rooms Where Name = 'Pool'");
  Add(*rows, "Bar");
  EXPECT_FALSE(rows->IsEmpty());
}

TEST_F(RecordsetTest, MovesFromTheNewRowToTheEnd) {
  AddRooms({"Pool"});
  const auto rows = OpenStatic();
  Add(*rows, "Bar");
  rows->MoveNext();
  EXPECT_TRUE(rows->AtEnd());
}

TEST_F(RecordsetTest, ReadsNullInAFieldOfANewRowThatWasNotSet) {
  AddRooms({"Pool"});
  const auto rows = OpenStatic();
  rows->AddNew();
  EXPECT_TRUE(IsNull(rows->Field("Name")));
}

TEST_F(RecordsetTest, AddsARowWithoutFields) {
  const auto rows = OpenStatic();
  rows->AddNew();
  rows->Update();
  EXPECT_EQ(1u, rows->RecordCount());
}

TEST_F(RecordsetTest, ChangesTheRowItAdded) {
  const auto rows = OpenStatic();
  Add(*rows, "Pool");
  rows->SetField("Name", "Lagoon");
  rows->Update();
  EXPECT_EQ("Lagoon;", Names());
}

TEST_F(RecordsetTest, DeletesTheRowItAdded) {
  AddRooms({"Pool"});
  const auto rows = OpenStatic();
  Add(*rows, "Bar");
  rows->Delete();
  EXPECT_EQ("Pool;", Names());
}

TEST_F(RecordsetTest, ChangesTheRowUnderTheCursor) {
  AddRooms({"Pool", "Hall"});
  const auto rows = OpenStatic();
  rows->MoveNext();
  rows->SetField("Name", "Ballroom");
  rows->Update();
  EXPECT_EQ("Pool;Ballroom;", Names());
}

TEST_F(RecordsetTest, StaysOnTheChangedRow) {
  AddRooms({"Pool", "Hall"});
  const auto rows = OpenStatic();
  rows->SetField("Name", "Lagoon");
  rows->Update();
  EXPECT_EQ("Lagoon;Hall;", NamesFrom(*rows));
}

TEST_F(RecordsetTest, ChangesEachRowInALoop) {
  AddRooms({"Pool", "Hall"});
  const auto rows = OpenStatic();
  for (; !rows->AtEnd(); rows->MoveNext()) {
    rows->SetField("Name", Name(*rows) + "!");
    rows->Update();
  }
  EXPECT_EQ("Pool!;Hall!;", Names());
}

TEST_F(RecordsetTest, WritesOnlyTheFieldsThatDiffer) {
  AddRooms({"Pool"});
  const auto rows = OpenStatic();
  rows->SetField("Name", "Pool");
  rows->SetField("Active", std::int64_t{1});
  rows->Update();
  EXPECT_EQ((FieldValues{{"Active", std::int64_t{1}}}), store_->LastUpdate());
}

TEST_F(RecordsetTest, WritesNothingWhenNoFieldDiffers) {
  AddRooms({"Pool"});
  const auto rows = OpenStatic();
  rows->SetField("Name", "Pool");
  rows->SetField("Active", std::int64_t{0});
  rows->Update();
  EXPECT_EQ(0, counts_.Updates);
}

TEST_F(RecordsetTest, TakesADateForTheTextItIsStoredAs) {
  const Date day = DateFromIsoText("2014-04-06").value();
  Other()->Insert("Reserv", {{"DateOfRes", day}});
  const auto rows = OpenStatic("SELECT * FROM Reserv");
  rows->SetField("DateOfRes", day);
  rows->Update();
  EXPECT_EQ(0, counts_.Updates);
}

TEST_F(RecordsetTest, TakesAWholeNumberForTheSameDouble) {
  Other()->Insert("Reserv", {{"MultKey", 20140406153012.0}});
  const auto rows = OpenStatic("SELECT * FROM Reserv");
  rows->SetField("MultKey", std::int64_t{20140406153012});
  rows->Update();
  EXPECT_EQ(0, counts_.Updates);
}

TEST_F(RecordsetTest, TellsNullFromZeroAndFromAnEmptyText) {
  Other()->Insert("Rooms", {});
  const auto rows = OpenStatic();
  rows->SetField("Name", "");
  rows->SetField("Active", std::int64_t{0});
  rows->Update();
  EXPECT_EQ(2u, store_->LastUpdate().size());
}

TEST_F(RecordsetTest, RefusesToChangeARowThatAnotherProgramChanged) {
  AddRooms({"Pool"});
  const auto mine = OpenStatic();
  mine->SetField("Name", "Mine");
  const auto theirs = OpenStatic();
  theirs->SetField("Name", "Theirs");
  theirs->Update();
  EXPECT_THROW(mine->Update(), RowChangedError);
  EXPECT_EQ("Theirs;", Names());
}

TEST_F(RecordsetTest, RefusesToChangeARowThatAnotherProgramRemoved) {
  AddRooms({"Pool"});
  const auto mine = OpenStatic();
  mine->SetField("Name", "Mine");
  OpenStatic()->Delete();
  EXPECT_THROW(mine->Update(), RowChangedError);
}

class RefusedUpdateTest : public RecordsetTest {
 protected:
  RefusedUpdateTest() {
    AddRooms({"Pool", "Hall"});
    rows_ = OpenStatic();
    rows_->SetField("Name", "Mine");
    const auto theirs = OpenStatic();
    theirs->SetField("Name", "Theirs");
    theirs->Update();
    EXPECT_THROW(rows_->Update(), RowChangedError);
  }

  std::unique_ptr<Recordset> rows_;
};

TEST_F(RefusedUpdateTest, StaysOnItsRowAsItWasRead) {
  EXPECT_EQ("Pool", Name(*rows_));
}

TEST_F(RefusedUpdateTest, DropsThePendingFields) {
  EXPECT_THROW(rows_->Update(), std::logic_error);
}

TEST_F(RefusedUpdateTest, MovesOn) {
  rows_->MoveNext();
  EXPECT_EQ("Hall", Name(*rows_));
}

TEST_F(RefusedUpdateTest, RefusesToDeleteTheRowToo) {
  EXPECT_THROW(rows_->Delete(), RowChangedError);
  EXPECT_EQ("Theirs;Hall;", Names());
}

TEST_F(RecordsetTest, DropsANewRowThatCouldNotBeAdded) {
  const auto rows = OpenStatic();
  Add(*rows, "Pool");
  rows->AddNew();
  rows->SetField("ID", std::int64_t{1});
  EXPECT_THROW(rows->Update(), DatabaseError);
  EXPECT_EQ("Pool", Name(*rows));
}

TEST_F(RecordsetTest, DeletesTheRowUnderTheCursor) {
  AddRooms({"Pool", "Hall", "Bar"});
  const auto rows = OpenStatic();
  rows->MoveNext();
  rows->Delete();
  EXPECT_EQ("Pool;Bar;", Names());
}

TEST_F(RecordsetTest, StandsOnNoRowAfterADeletion) {
  AddRooms({"Pool", "Hall"});
  const auto rows = OpenStatic();
  rows->Delete();
  EXPECT_FALSE(rows->AtEnd());
  EXPECT_THROW(rows->Field("Name"), std::logic_error);
}

TEST_F(RecordsetTest, GoesToTheRowThatFollowedTheDeletedOne) {
  AddRooms({"Pool", "Hall"});
  const auto rows = OpenStatic();
  rows->Delete();
  rows->MoveNext();
  EXPECT_EQ("Hall", Name(*rows));
}

TEST_F(RecordsetTest, GoesToTheEndFromADeletedLastRow) {
  AddRooms({"Pool"});
  const auto rows = OpenStatic();
  rows->Delete();
  rows->MoveNext();
  EXPECT_TRUE(rows->AtEnd());
}

TEST_F(RecordsetTest, DeletesEachRowInALoop) {
  AddRooms({"Pool", "Hall", "Bar"});
  const auto rows = OpenStatic();
  for (; !rows->AtEnd(); rows->MoveNext()) {
    rows->Delete();
  }
  EXPECT_EQ("", Names());
}

TEST_F(RecordsetTest, IsEmptyWhenAllAreDeleted) {
  AddRooms({"Pool"});
  const auto rows = OpenStatic();
  rows->Delete();
  EXPECT_TRUE(rows->IsEmpty());
}

TEST_F(RecordsetTest, CountsNoDeletedRows) {
  AddRooms({"Pool", "Hall"});
  const auto rows = OpenStatic();
  rows->Delete();
  EXPECT_EQ(1u, rows->RecordCount());
}

TEST_F(RecordsetTest, MovesToNoDeletedRow) {
  AddRooms({"Pool", "Hall", "Bar"});
  const auto rows = OpenStatic();
  rows->Delete();
  rows->MoveLast();
  rows->Delete();
  rows->MoveFirst();
  EXPECT_EQ("Hall;", NamesFrom(*rows));
}

TEST_F(RecordsetTest, RefusesToDeleteARowThatAnotherProgramChanged) {
  AddRooms({"Pool"});
  const auto rows = OpenStatic();
  EXPECT_EQ("Pool", Name(*rows));
  const auto theirs = OpenStatic();
  theirs->SetField("Name", "Theirs");
  theirs->Update();
  EXPECT_THROW(rows->Delete(), RowChangedError);
  EXPECT_EQ("Theirs;", Names());
}

}  // namespace
}  // namespace veyra
