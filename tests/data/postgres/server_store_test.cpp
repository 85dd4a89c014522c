#include "data/errors.h"
#include "data/postgres/session.h"
#include "tests/data/postgres/shared_fixture.h"

namespace veyra::postgres {
namespace {

class ServerStoreTest : public SharedTest {};

TEST_F(ServerStoreTest, ATextThatTheServerCannotHoldIsRefused) {
  for (const std::string& text : {std::string("a\0b", 3), std::string("a\xFF")}) {
    EXPECT_EQ(1U, desk_->FittingCharacters("Rooms", "Name", text));
    EXPECT_THROW(desk_->Insert("Rooms", {{"Name", text}}), ValueRefusedError);
    EXPECT_THROW(desk_->Insert("Reserv", {{"Event", text}}), ValueRefusedError);
  }
  EXPECT_TRUE(Look(*desk_, "SELECT * FROM Rooms").empty());
}

TEST_F(ServerStoreTest, AValueOfAnotherKindIsRefused) {
  EXPECT_THROW(desk_->Insert("Reserv", {{"TimeFrom", std::string("noon")}}), ValueRefusedError);
  EXPECT_THROW(desk_->Insert("Reserv", {{"DateOfRes", std::string("soon")}}), ValueRefusedError);
  EXPECT_THROW(desk_->Insert("Reserv", {{"TimeFrom", 1.5}}), ValueRefusedError);
}

TEST_F(ServerStoreTest, NullsComeFirstInAnOrder) {
  for (const Value& slot : {Value(std::int64_t{2}), Value(Null{}), Value(std::int64_t{1})}) {
    desk_->Insert("Reserv", {{"TimeFrom", slot}});
  }
  const auto order = [&](const std::string& by) {
    std::string found;
    for (const Row& row : Look(*desk_, "SELECT * FROM Reserv Order By TimeFrom" + by)) {
      found += ToText(row.Values.at(3)) + ";";
    }
    return found;
  };
  EXPECT_EQ(";1;2;", order(""));
  EXPECT_EQ("2;1;;", order(" DESC"));
}

TEST_F(ServerStoreTest, TextsAreComparedByteByByte) {
  for (const char* name : {"b", "B", "a", "\xC3\xA4"}) {
    desk_->Insert("Rooms", {{"Name", std::string(name)}});
  }
  std::string found;
  for (const Row& row : Look(*desk_, "SELECT * FROM Rooms Order By Name")) {
    found += ToText(row.Values.at(1)) + ";";
  }
  EXPECT_EQ("B;a;b;\xC3\xA4;", found);
  EXPECT_EQ(1U, Look(*desk_, "SELECT * FROM Rooms Where Name = 'B'").size());
}

TEST_F(ServerStoreTest, WhoeverNeedsItAloneWaitsForTheOthers) {
  EXPECT_THROW(Open(StoreAccess::Exclusive, std::chrono::milliseconds(30)), DatabaseBusyError);
  EXPECT_NO_THROW(Open(StoreAccess::ReadOnly));
  desk_.reset();
  other_.reset();
  const auto alone = Open(StoreAccess::Exclusive, std::chrono::milliseconds(30'000));
  EXPECT_THROW(Open(StoreAccess::ReadWrite, std::chrono::milliseconds(30)), DatabaseBusyError);
  EXPECT_NO_THROW(Open(StoreAccess::ReadOnly));
}

TEST_F(ServerStoreTest, AnotherProgramsChangesAreEnteredInTheJournal) {
  dynamic_cast<FileStore&>(*desk_).KeepJournal(true);
  server_.Run("INSERT INTO " + In("Reserv") +
              "(\"Event\", \"MultKey\", \"DateOfRes\") VALUES ('O''Hara', 20260305093000,"
              " '0100-01-02')");
  const std::vector<Row> entries = Look(*desk_, "SELECT * FROM ChangeJournal");
  ASSERT_EQ(1U, entries.size());
  EXPECT_TRUE(IsNull(entries[0].Values.at(1)));
  EXPECT_EQ(
      "[RmID]=NULL, [Event]='O''Hara', [DateOfRes]='0100-01-02', [TimeFrom]=NULL, "
      "[TimeTo]=NULL, [MultKey]=20260305093000.0",
      ToText(entries[0].Values.at(6)));
}

TEST_F(ServerStoreTest, ASchemaThatIsNotThereIsNamed) {
  const CalendarLink elsewhere{.Server = link_.Server, .Schema = "nowhere"};
  try {
    OpenPostgres(elsewhere, kFile, StoreAccess::ReadOnly, {});
    FAIL() << "opened";
  } catch (const DatabaseError& error) {
    EXPECT_EQ("The server has no calendar in the schema \"nowhere\".", error.report().Cause);
  }
}

TEST_F(ServerStoreTest, WaitsForAnotherDeskNoLongerThanItIsTold) {
  const auto hasty = Open(StoreAccess::ReadWrite, std::chrono::milliseconds(30));
  const std::string lock = "BEGIN; LOCK TABLE " + In("Reserv") + " IN EXCLUSIVE MODE";
  Session holder(link_, kFile, {}, [] {});
  holder.RunScript(lock);
  EXPECT_THROW(Book(*hasty, 1, 2, "Smith"), DatabaseBusyError);
  holder.Rollback();
  EXPECT_NO_THROW(Book(*hasty, 1, 2, "Smith"));
}

/// Ends a wait as soon as it is told of it, once it has lost its patience.
class Operator : public WaitObserver {
 public:
  bool StillWaiting(const std::string&, std::chrono::milliseconds) override { return IsPatient; }
  void WaitEnded() override { ++Ended; }

  bool IsPatient = true;
  int Ended = 0;
};

TEST_F(ServerStoreTest, TheOperatorEndsAWait) {
  Operator waiting;
  const auto desk =
      Open(StoreAccess::ReadWrite, WaitPolicy(std::chrono::milliseconds(100'000), &waiting));
  Session holder(link_, kFile, {}, [] {});
  holder.RunScript("BEGIN; LOCK TABLE " + In("Reserv") + " IN EXCLUSIVE MODE");
  waiting.IsPatient = false;
  waiting.Ended = 0;
  try {
    Book(*desk, 1, 2, "Smith");
    FAIL() << "not ended";
  } catch (const WaitCancelledError& error) {
    EXPECT_EQ("Nothing was saved.", error.report().Effect);
  }
  EXPECT_LE(1, waiting.Ended);
  waiting.IsPatient = true;
  holder.Rollback();
  Book(*desk, 1, 2, "Smith");
  EXPECT_EQ("Smith;", Names(*desk));
}

}  // namespace
}  // namespace veyra::postgres
