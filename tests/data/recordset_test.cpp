#include "data/recordset.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "data/connection.h"
#include "data/errors.h"
#include "data/open_store.h"
#include "data/schema.h"
#include "tests/forwarding_store.h"
#include "tests/store_kind.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

constexpr const char* kAll = "SELECT * FROM Rooms";

/// A real store that counts what is asked of it.
class CountingStore : public ForwardingStore {
 public:
  struct Counts {
    int Selects = 0;
    int Inserts = 0;
    int Updates = 0;
  };

  CountingStore(std::unique_ptr<Store> store, Counts& counts)
      : ForwardingStore(std::move(store)), counts_(counts) {}

  std::unique_ptr<RowSource> Select(const Query& query) override {
    ++counts_.Selects;
    return ForwardingStore::Select(query);
  }
  Row Insert(const std::string& table, const FieldValues& fields) override {
    ++counts_.Inserts;
    return ForwardingStore::Insert(table, fields);
  }
  Row Update(const std::string& table, const Row& before, const FieldValues& fields) override {
    ++counts_.Updates;
    last_update_ = fields;
    return ForwardingStore::Update(table, before, fields);
  }

  const FieldValues& LastUpdate() const { return last_update_; }

 private:
  Counts& counts_;
  FieldValues last_update_;
};

class RecordsetTest : public testing::Test {
 protected:
  RecordsetTest() : connection_(MakeStore()) {}

  std::string File() const { return folder_.File("Calendar.mdb").string(); }

  std::unique_ptr<Store> MakeStore() {
    auto store = CreateStoreOfKind(TestedStoreKind(), File());
    store->CreateTable(RoomsTable());
    store->CreateTable(ReservTable());
    auto counting = std::make_unique<CountingStore>(std::move(store), counts_);
    store_ = counting.get();
    return counting;
  }

  /// Adds facilities by another way than the record set under test.
  void AddRooms(const std::vector<std::string>& names) {
    const auto other = Other();
    for (const std::string& name : names) {
      other->Insert("Rooms", {{"Name", name}, {"Active", std::int64_t{0}}});
    }
  }

  std::unique_ptr<Store> Other() const { return OpenStore(File(), StoreAccess::ReadWrite); }

  std::unique_ptr<Recordset> OpenStatic(const std::string& sql = kAll) {
    return connection_.Open(sql, CursorType::StaticOptimistic);
  }

  std::unique_ptr<Recordset> OpenForward(const std::string& sql = kAll) {
    return connection_.Open(sql, CursorType::ForwardOnlyReadOnly);
  }

  static void Add(Recordset& rows, const std::string& name) {
    rows.AddNew();
    rows.SetField("Name", name);
    rows.Update();
  }

  static std::string Name(Recordset& row) { return ToText(row.Field("Name")); }

  /// The names from the cursor to the end, each followed by a semicolon.
  static std::string NamesFrom(Recordset& rows) {
    std::string names;
    for (; !rows.AtEnd(); rows.MoveNext()) names += Name(rows) + ";";
    return names;
  }

  /// The names that the file holds.
  std::string Names() { return NamesFrom(*OpenForward()); }

  TempFolder folder_;
  CountingStore::Counts counts_;
  CountingStore* store_ = nullptr;
  Connection connection_;
};

// Moving

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

// Fields

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

// Adding

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

// Changing

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

// Deleting

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
  for (; !rows->AtEnd(); rows->MoveNext()) rows->Delete();
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

// What must not be called

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
