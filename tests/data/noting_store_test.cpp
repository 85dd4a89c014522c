#include "data/noting_store.h"

#include <gtest/gtest.h>

#include "data/connection.h"
#include "data/create_store.h"
#include "data/schema.h"
#include "tests/failing_store.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

class NotingStoreTest : public testing::Test {
 protected:
  NotingStoreTest() {
    auto store = CreateStore(folder_.File("Calendar.mdb").string());
    store->CreateTable(RoomsTable());
    store->CreateTable(ReservTable());
    auto failing = std::make_unique<FailingStore>(std::move(store), faults_);
    store_ = std::make_unique<NotingStore>(std::move(failing));
  }

  /// "New series: + [ID]=1, ...\n", - and what stands after it for a row that goes.
  std::string Noted() {
    std::string noted;
    for (const NotedAction& action : store_->Notes().Actions()) {
      noted += action.Name + ":";
      for (const NotedChange& change : action.Changes) {
        noted += " " + change.Table + (change.OldValues ? " - " + *change.OldValues : "") +
                 (change.NewValues ? " + " + *change.NewValues : "");
      }
      noted += "\n";
    }
    return noted;
  }

  Row AddRoom(const std::string& name) {
    return store_->Insert("Rooms", {{"Name", name}, {"Active", std::int64_t{0}}});
  }

  TempFolder folder_;
  Faults faults_;
  std::unique_ptr<NotingStore> store_;
};

TEST_F(NotingStoreTest, WhatIsDoneUnderANameIsNoted) {
  {
    const JournalledAction action(*store_, "All of it");
    const Row room = AddRoom("Pool");
    store_->Delete("Rooms", store_->Update("Rooms", room, {{"Name", std::string("Hall")}}));
  }
  EXPECT_EQ(
      "All of it:"
      " Rooms + [ID]=1, [Name]='Pool', [Active]=0"
      " Rooms - [ID]=1, [Name]='Pool', [Active]=0 + [ID]=1, [Name]='Hall', [Active]=0"
      " Rooms - [ID]=1, [Name]='Hall', [Active]=0\n",
      Noted());
}

TEST_F(NotingStoreTest, WhatIsDoneUnderNoNameIsNot) {
  AddRoom("Pool");
  EXPECT_EQ("", Noted());
}

TEST_F(NotingStoreTest, AnActionWithinAnotherIsAPartOfIt) {
  {
    const JournalledAction outer(*store_, "Outer");
    AddRoom("Pool");
    const JournalledAction inner(*store_, "Inner");
    AddRoom("Hall");
  }
  EXPECT_EQ(1U, store_->Notes().Actions().size());
  EXPECT_EQ(2U, store_->Notes().Actions().front().Changes.size());
}

TEST_F(NotingStoreTest, RowsThatAreAddedTogetherAreNotedEach) {
  faults_.AddTogether(100);
  {
    const JournalledAction action(*store_, "Series");
    store_->InsertAll("Rooms", {{{"Name", std::string("A")}}, {{"Name", std::string("B")}}});
  }
  EXPECT_EQ(
      "Series: Rooms + [ID]=1, [Name]='A', [Active]=NULL"
      " Rooms + [ID]=2, [Name]='B', [Active]=NULL\n",
      Noted());
}

TEST_F(NotingStoreTest, OfRowsAddedOneByOneThoseThatWereAddedAreNoted) {
  faults_.Fail(Statement::Insert, 2);
  {
    const JournalledAction action(*store_, "Series");
    EXPECT_THROW(
        store_->InsertAll("Rooms", {{{"Name", std::string("A")}}, {{"Name", std::string("B")}}}),
        DatabaseBusyError);
  }
  EXPECT_EQ("Series: Rooms + [ID]=1, [Name]='A', [Active]=NULL\n", Noted());
}

TEST_F(NotingStoreTest, AnActionOfWhichTheOutcomeIsNotKnownIsForgotten) {
  faults_.FailWhenDone(Statement::Insert, 2, [] {
    throw OutcomeUnknownError({"", "The disk failed in the commit.", "Look."});
  });
  {
    const JournalledAction action(*store_, "Series");
    AddRoom("Pool");
    EXPECT_THROW(AddRoom("Hall"), OutcomeUnknownError);
  }
  EXPECT_EQ("", Noted());
  {
    const JournalledAction action(*store_, "Next");
    AddRoom("Court");
  }
  EXPECT_EQ(1U, store_->Notes().Actions().size());
}

TEST_F(NotingStoreTest, AnActionThatWasTakenBackIsForgotten) {
  for (const char* name : {"One", "Two"}) {
    const JournalledAction action(*store_, name);
    AddRoom(name);
  }
  store_->Notes().Forget(store_->Notes().Actions().back().Number);
  ASSERT_EQ(1U, store_->Notes().Actions().size());
  EXPECT_EQ("One", store_->Notes().Actions().front().Name);
}

TEST(ActionNotesTest, TheOldestAreForgottenWhenThereAreTooMany) {
  ActionNotes notes;
  for (const std::size_t count : {std::size_t{1}, ActionNotes::kMostChanges - 1, std::size_t{1}}) {
    notes.Begin("Of " + std::to_string(count));
    for (std::size_t i = 0; i < count; ++i) {
      notes.Add({"Rooms", {}, {}});
    }
    notes.End();
  }
  ASSERT_EQ(2U, notes.Actions().size());
  EXPECT_EQ(ActionNotes::kMostChanges - 1, notes.Actions().front().Changes.size());
}

TEST(ActionNotesTest, TheLastIsKeptWhateverItsSize) {
  ActionNotes notes;
  notes.Begin("Facility deleted");
  for (std::size_t i = 0; i <= ActionNotes::kMostChanges; ++i) {
    notes.Add({"Reserv", {}, {}});
  }
  notes.End();
  ASSERT_EQ(1U, notes.Actions().size());
  EXPECT_EQ(ActionNotes::kMostChanges + 1, notes.Actions().front().Changes.size());
}

TEST_F(NotingStoreTest, AConnectionNotesWhatItsRecordSetsDo) {
  Connection connection(OpenStore(folder_.File("Calendar.mdb").string(), StoreAccess::ReadWrite));
  {
    const JournalledAction action(connection, "New facility");
    const auto rooms = connection.Open("SELECT * FROM Rooms", CursorType::StaticOptimistic);
    rooms->AddNew();
    rooms->SetField("Name", std::string("Pool"));
    rooms->Update();
  }
  ASSERT_EQ(1U, connection.Notes().Actions().size());
  EXPECT_EQ("New facility", connection.Notes().Actions().front().Name);
}

}  // namespace
}  // namespace veyra
