#include <gtest/gtest.h>

#include <stdexcept>

#include "data/errors.h"
#include "tests/data/recordset_fixture.h"

namespace veyra {
namespace {

TEST_F(RecordsetTest, ForwardCursorReadsEachRowOnce) {
  AddRooms({"Pool", "Hall", "Bar"});
  EXPECT_EQ("Pool;Hall;Bar;", NamesFrom(*OpenForward()));
}

TEST_F(RecordsetTest, StaticCursorReadsEachRowOnce) {
  AddRooms({"Pool", "Hall", "Bar"});
  EXPECT_EQ("Pool;Hall;Bar;", NamesFrom(*OpenStatic()));
}

TEST_F(RecordsetTest, ForwardCursorOfNoRowsIsEmptyAndAtItsEnd) {
  const auto rows = OpenForward();
  EXPECT_TRUE(rows->IsEmpty());
  EXPECT_TRUE(rows->AtEnd());
}

TEST_F(RecordsetTest, StaticCursorOfNoRowsIsEmptyAndAtItsEnd) {
  const auto rows = OpenStatic();
  EXPECT_TRUE(rows->IsEmpty());
  EXPECT_TRUE(rows->AtEnd());
}

TEST_F(RecordsetTest, IsNotEmptyAtItsEnd) {
  AddRooms({"Pool"});
  const auto rows = OpenForward();
  rows->MoveNext();
  EXPECT_TRUE(rows->AtEnd());
  EXPECT_FALSE(rows->IsEmpty());
}

TEST_F(RecordsetTest, StandsOnItsFirstRowWhenOpened) {
  AddRooms({"Pool", "Hall"});
  EXPECT_EQ("Pool", Name(*OpenStatic()));
}

TEST_F(RecordsetTest, MoveFirstGoesBack) {
  AddRooms({"Pool", "Hall"});
  const auto rows = OpenStatic();
  NamesFrom(*rows);
  rows->MoveFirst();
  EXPECT_EQ("Pool", Name(*rows));
}

TEST_F(RecordsetTest, MoveFirstOfNoRowsGoesToTheEnd) {
  const auto rows = OpenStatic();
  rows->MoveFirst();
  EXPECT_TRUE(rows->AtEnd());
}

TEST_F(RecordsetTest, MoveLastStandsOnTheLastRow) {
  AddRooms({"Pool", "Hall", "Bar"});
  const auto rows = OpenStatic();
  rows->MoveLast();
  EXPECT_EQ("Bar;", NamesFrom(*rows));
}

TEST_F(RecordsetTest, MoveLastOfNoRowsGoesToTheEnd) {
  const auto rows = OpenStatic();
  rows->MoveLast();
  EXPECT_TRUE(rows->AtEnd());
}

TEST_F(RecordsetTest, CountsItsRows) {
  AddRooms({"Pool", "Hall", "Bar"});
  EXPECT_EQ(3u, OpenStatic()->RecordCount());
}

TEST_F(RecordsetTest, CountsOnlyTheRowsFound) {
  AddRooms({"Pool", "Hall", "Bar"});
  EXPECT_EQ(2u, OpenStatic("SELECT * FROM Rooms Where ID >= 2")->RecordCount());
}

TEST_F(RecordsetTest, CountingMovesNothing) {
  AddRooms({"Pool", "Hall"});
  const auto rows = OpenStatic();
  rows->MoveNext();
  rows->RecordCount();
  EXPECT_EQ("Hall", Name(*rows));
}

TEST_F(RecordsetTest, KeepsWhatItReadWhenAnotherProgramAddsARow) {
  AddRooms({"Pool"});
  const auto rows = OpenStatic();
  EXPECT_EQ(1u, rows->RecordCount());
  AddRooms({"Hall"});
  EXPECT_EQ("Pool;", NamesFrom(*rows));
}

TEST_F(RecordsetTest, FindsAFieldInAnyLetterCase) {
  AddRooms({"Pool"});
  EXPECT_EQ(Value("Pool"), OpenForward()->Field("nAmE"));
}

TEST_F(RecordsetTest, ReportsAMissingField) {
  AddRooms({"Pool"});
  try {
    OpenForward()->Field("Colour");
    FAIL() << "no report";
  } catch (const DatabaseError& error) {
    EXPECT_EQ("The table Rooms has no column Colour.", error.report().Cause);
    EXPECT_EQ(File(), error.report().File);
  }
}

TEST_F(RecordsetTest, ReportsAMissingFieldThatIsSet) {
  AddRooms({"Pool"});
  EXPECT_THROW(OpenStatic()->SetField("Colour", "red"), DatabaseError);
}

TEST_F(RecordsetTest, ReportsAMissingTableWhenOpened) {
  EXPECT_THROW(OpenStatic("SELECT * FROM Settings"), DatabaseError);
  EXPECT_THROW(OpenForward("SELECT * FROM Settings"), DatabaseError);
}

TEST_F(RecordsetTest, ReportsAMissingColumnOfTheConditionWhenOpened) {
  EXPECT_THROW(OpenStatic("SELECT * FROM Rooms Where ID = 1 And Colour = 2"), DatabaseError);
  EXPECT_THROW(OpenForward("SELECT * FROM Rooms Where ID = 1 And Colour = 2"), DatabaseError);
}

TEST_F(RecordsetTest, ReportsAMissingColumnOfTheOrderWhenOpened) {
  EXPECT_THROW(OpenStatic("SELECT * FROM Rooms Order By Colour"), DatabaseError);
  EXPECT_THROW(OpenForward("SELECT * FROM Rooms Order By Colour"), DatabaseError);
}

TEST_F(RecordsetTest, ReportsATextThatIsNoQueryWhenOpened) {
  EXPECT_THROW(OpenStatic("DELETE FROM Rooms"), DatabaseError);
}

TEST_F(RecordsetTest, ReadsAColumnThatAnotherProgramAddedMeanwhile) {
  AddRooms({"Pool"});
  const auto rows = OpenStatic();
  Other()->AddColumn("Rooms", {.Name = "Note", .Default = "new"});
  EXPECT_EQ(Value("new"), rows->RecordCount() == 1 ? rows->Field("Note") : Value());
}

TEST_F(RecordsetTest, ShowsAFieldAsItWasSetBeforeItIsWritten) {
  AddRooms({"Pool"});
  const auto rows = OpenStatic();
  rows->SetField("name", "Lagoon");
  EXPECT_EQ("Lagoon", Name(*rows));
}

TEST_F(RecordsetTest, TakesTheLastValueOfAFieldSetTwice) {
  AddRooms({"Pool"});
  const auto rows = OpenStatic();
  rows->SetField("Name", "a");
  rows->SetField("NAME", "b");
  rows->Update();
  EXPECT_EQ("b;", Names());
}

TEST_F(RecordsetTest, ForwardCursorRefusesToChangeAnything) {
  AddRooms({"Pool"});
  const auto rows = OpenForward();
  EXPECT_THROW(rows->AddNew(), std::logic_error);
  EXPECT_THROW(rows->SetField("Name", "x"), std::logic_error);
  EXPECT_THROW(rows->Update(), std::logic_error);
  EXPECT_THROW(rows->Delete(), std::logic_error);
}

TEST_F(RecordsetTest, ForwardCursorRefusesToJump) {
  AddRooms({"Pool"});
  const auto rows = OpenForward();
  EXPECT_THROW(rows->MoveFirst(), std::logic_error);
  EXPECT_THROW(rows->MoveLast(), std::logic_error);
  EXPECT_THROW(rows->RecordCount(), std::logic_error);
}

TEST_F(RecordsetTest, RefusesToReadAtTheEnd) {
  EXPECT_THROW(OpenStatic()->Field("Name"), std::logic_error);
  EXPECT_THROW(OpenForward()->Field("Name"), std::logic_error);
}

TEST_F(RecordsetTest, RefusesToMoveBeyondTheEnd) {
  EXPECT_THROW(OpenStatic()->MoveNext(), std::logic_error);
  EXPECT_THROW(OpenForward()->MoveNext(), std::logic_error);
}

TEST_F(RecordsetTest, RefusesToMoveWhileFieldsArePending) {
  AddRooms({"Pool"});
  const auto rows = OpenStatic();
  rows->SetField("Name", "x");
  EXPECT_THROW(rows->MoveNext(), std::logic_error);
  EXPECT_THROW(rows->AddNew(), std::logic_error);
  EXPECT_THROW(rows->Delete(), std::logic_error);
}

TEST_F(RecordsetTest, RefusesToWriteWhenNothingIsPending) {
  AddRooms({"Pool"});
  EXPECT_THROW(OpenStatic()->Update(), std::logic_error);
}

TEST_F(RecordsetTest, RefusesToDeleteARowTwice) {
  AddRooms({"Pool"});
  const auto rows = OpenStatic();
  rows->Delete();
  EXPECT_THROW(rows->Delete(), std::logic_error);
}

TEST_F(RecordsetTest, RefusesEachCallOnceClosed) {
  AddRooms({"Pool"});
  for (const auto& rows : {OpenStatic(), OpenForward()}) {
    rows->Close();
    EXPECT_THROW(rows->AtEnd(), std::logic_error);
    EXPECT_THROW(rows->IsEmpty(), std::logic_error);
    EXPECT_THROW(rows->Field("Name"), std::logic_error);
    EXPECT_THROW(rows->MoveNext(), std::logic_error);
    EXPECT_THROW(rows->AddNew(), std::logic_error);
  }
}

TEST_F(RecordsetTest, MayBeClosedTwice) {
  const auto rows = OpenStatic();
  rows->Close();
  EXPECT_NO_THROW(rows->Close());
}

TEST_F(RecordsetTest, DropsFieldsThatArePendingWhenClosed) {
  AddRooms({"Pool"});
  const auto rows = OpenStatic();
  rows->SetField("Name", "x");
  rows->Close();
  EXPECT_EQ("Pool;", Names());
}

}  // namespace
}  // namespace veyra
