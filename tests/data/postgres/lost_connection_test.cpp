#include <unistd.h>

#include <atomic>
#include <thread>

#include "data/errors.h"
#include "tests/data/postgres/shared_fixture.h"

namespace veyra::postgres {
namespace {

class LostConnectionTest : public SharedTest {
 protected:
  /// As when the network fails: all connections that have this calendar open are cut.
  void Cut() const {
    server_.Run(
        "SELECT pg_terminate_backend(pid, 60000) FROM pg_stat_activity"
        " WHERE application_name = 'veyra-calendar' AND datname = current_database()");
  }
};

TEST_F(LostConnectionTest, ACallThatFindsItDeadSaysSoAndTheNextConnectsAgain) {
  Cut();
  try {
    Book(*desk_, 1, 2, "Smith");
    FAIL() << "no report";
  } catch (const DatabaseError& error) {
    EXPECT_EQ(kFile, error.report().File);
    EXPECT_NE(std::string::npos, error.report().Cause.English().find("connection")) << error.what();
    EXPECT_EQ("Nothing was saved.", error.report().Effect);
  }
  Book(*desk_, 1, 2, "Smith");
  EXPECT_EQ("Smith;", Names(*desk_));
}

TEST_F(LostConnectionTest, ReadingSaysSoTooButNothingOfSaving) {
  Cut();
  try {
    Look(*desk_);
    FAIL() << "no report";
  } catch (const DatabaseError& error) {
    EXPECT_NE(std::string::npos, error.report().Cause.English().find("connection")) << error.what();
    EXPECT_EQ("", error.report().Effect);
  }
  EXPECT_NO_THROW(Look(*desk_));
}

TEST_F(LostConnectionTest, SoDoesReadingAMonth) {
  Book(*desk_, 1, 2, "Smith");
  const std::vector<Query> days(31, ParseQuery("SELECT * FROM Reserv"));
  Cut();
  EXPECT_THROW(desk_->SelectAll(days), DatabaseError);
  EXPECT_EQ(31U, desk_->SelectAll(days).size());
}

TEST_F(LostConnectionTest, RowsThatWereReadBeforeAreGivenToTheEnd) {
  Book(*desk_, 1, 2, "Smith");
  Book(*desk_, 3, 4, "Jones");
  const auto rows = desk_->Select(ParseQuery("SELECT * FROM Reserv"));
  Row row;
  ASSERT_TRUE(rows->Next(row));
  Cut();
  EXPECT_TRUE(rows->Next(row));
  EXPECT_FALSE(rows->Next(row));
}

TEST_F(LostConnectionTest, WhatTheDeskHasSeenItStillKnows) {
  Book(*other_, 1, 4, "Smith");
  Look(*desk_);
  Cut();
  EXPECT_THROW(Look(*desk_), DatabaseError);
  EXPECT_NO_THROW(Book(*desk_, 2, 3, "Jones"));
}

TEST_F(LostConnectionTest, AChangeThatIsUndoneInItsLastStepIsReportedAsNotSaved) {
  server_.Run("CREATE FUNCTION \"" + link_.Schema +
              "\".cut() RETURNS trigger LANGUAGE plpgsql AS 'BEGIN PERFORM "
              "pg_terminate_backend(pg_backend_pid()); PERFORM pg_sleep(60); RETURN NULL; END';"
              "CREATE CONSTRAINT TRIGGER cut AFTER INSERT ON " +
              In("Reserv") + " DEFERRABLE INITIALLY DEFERRED FOR EACH ROW EXECUTE FUNCTION \"" +
              link_.Schema + "\".cut()");
  try {
    Book(*desk_, 1, 2, "Smith");
    FAIL() << "no report";
  } catch (const OutcomeUnknownError& error) {
    FAIL() << error.what();
  } catch (const DatabaseError& error) {
    EXPECT_EQ("Nothing was saved.", error.report().Effect);
  }
  EXPECT_EQ("", Names(*desk_));
}

/// A server of its own, that is as durable as any, for what nobody else's server may suffer.
class OwnServer {
 public:
  OwnServer() : folder_(NewName()) {
    Do("start " + folder_ + " " + std::to_string(::getpid()));
    link_ = {.Server = "postgresql://veyra@/postgres?host=" + folder_};
    const auto making = CreateSharedCalendar(link_, kFile);
    for (const TableDefinition& table : CalendarTables()) {
      making->Rows().CreateTable(table);
    }
    making->Save();
  }
  // A server that cannot be stopped ends the tests.
  ~OwnServer() { Do("stop " + folder_); }  // NOLINT(bugprone-exception-escape)
  OwnServer(const OwnServer&) = delete;
  OwnServer& operator=(const OwnServer&) = delete;

  /// As a loss of power does it.
  void Stop() const { Do("stop " + folder_); }
  void StartAgain() const { Do("again " + folder_); }

  std::unique_ptr<Store> Open(std::chrono::milliseconds patience) const {
    return OpenPostgres(link_, kFile, StoreAccess::ReadWrite, patience);
  }

  std::string Run(const std::string& sql) const {
    return OutputOf("psql -X -q -A -t -h " + folder_ + " -U veyra -d postgres -c \"" + sql + "\"");
  }

  static constexpr const char* kFile = "/data/Calendar.mdb";

 private:
  static std::string NewName() { return OutputOf("mktemp -u /tmp/veyra-pg-XXXXXX"); }
  static void Do(const std::string& what) { OutputOf(std::string(VEYRA_TEST_SERVER) + " " + what); }

  std::string folder_;
  CalendarLink link_;
};

class OwnServerTest : public testing::Test {
 protected:
  static FieldValues Booking(int day, const std::string& name) {
    return {{"RmID", std::int64_t{1}},
            {"Event", name},
            {"DateOfRes", AddDays(MakeDate(2026, 1, 1).value(), day)},
            {"TimeFrom", std::int64_t{1}},
            {"TimeTo", std::int64_t{2}}};
  }

  static int Count(Store& desk) {
    int count = 0;
    const auto rows = desk.Select(ParseQuery("SELECT * FROM Reserv"));
    for (Row row; rows->Next(row);) {
      ++count;
    }
    return count;
  }

  /// From now on no change is done before another server has it, and there is none.
  void HoldChangesInTheirLastStep() {
    server_.Run("ALTER SYSTEM SET synchronous_standby_names = 'nobody'");
    server_.Run("SELECT pg_reload_conf()");
    while (server_.Run("SHOW synchronous_standby_names") != "nobody") {
    }
  }

  /// Books until a booking is held in its last step, then does that. Returns how many were made
  /// before; `outcome` is what became of the held one.
  template <typename Work>
  int WhileHeld(const Work& work, std::chrono::milliseconds patience, std::exception_ptr& outcome) {
    const auto desk = server_.Open(patience);
    for (int made = 0;; ++made) {
      std::atomic<bool> is_done = false;
      std::thread booking([&] {
        try {
          desk->Insert("Reserv", Booking(made, "held"));
        } catch (...) {
          outcome = std::current_exception();
        }
        is_done = true;
      });
      bool is_held = false;
      while (!is_done && !is_held) {
        is_held = server_.Run(
                      "SELECT count(*) FROM pg_stat_activity WHERE wait_event = 'SyncRep'"
                      " AND application_name = 'veyra-calendar'") == "1";
      }
      if (is_held) {
        work();
      }
      booking.join();
      if (is_held) {
        return made;
      }
    }
  }

  OwnServer server_;
};

TEST_F(OwnServerTest, AChangeThatWasMadeWhenTheConnectionBrokeIsReportedAsMade) {
  HoldChangesInTheirLastStep();
  std::exception_ptr outcome;
  const int before = WhileHeld(
      [&] {
        server_.Run(
            "SELECT pg_terminate_backend(pid) FROM pg_stat_activity"
            " WHERE wait_event = 'SyncRep'");
      },
      std::chrono::milliseconds(60'000), outcome);
  EXPECT_EQ(nullptr, outcome);
  EXPECT_EQ(before + 1, Count(*server_.Open(std::chrono::milliseconds(5000))));
}

TEST_F(OwnServerTest, OfAChangeOfWhichTheServerCannotBeAskedNothingIsKnown) {
  HoldChangesInTheirLastStep();
  std::exception_ptr outcome;
  WhileHeld([&] { server_.Stop(); }, std::chrono::milliseconds(100), outcome);
  ASSERT_NE(nullptr, outcome);
  EXPECT_THROW(std::rethrow_exception(outcome), OutcomeUnknownError);
}

TEST_F(OwnServerTest, AServerThatComesBackIsAskedThen) {
  HoldChangesInTheirLastStep();
  std::exception_ptr outcome;
  const int before = WhileHeld(
      [&] {
        server_.Stop();
        server_.StartAgain();
      },
      std::chrono::milliseconds(120'000), outcome);
  EXPECT_EQ(nullptr, outcome);
  EXPECT_EQ(before + 1, Count(*server_.Open(std::chrono::milliseconds(5000))));
}

TEST_F(OwnServerTest, WhatWasReportedAsSavedIsThereAfterALossOfPower) {
  const auto desk = server_.Open(std::chrono::milliseconds(5000));
  for (int day = 0; day < 20; ++day) {
    desk->Insert("Reserv", Booking(day, "saved"));
  }
  server_.Stop();
  EXPECT_THROW(Count(*desk), DatabaseError);
  EXPECT_THROW(desk->Insert("Reserv", Booking(20, "not saved")), DatabaseError);
  server_.StartAgain();
  EXPECT_EQ(20, Count(*desk));
  desk->Insert("Reserv", Booking(20, "again"));
  EXPECT_EQ(21, Count(*desk));
}

}  // namespace
}  // namespace veyra::postgres
