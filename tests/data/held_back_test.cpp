#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>

#include "data/color_settings.h"
#include "data/errors.h"
#include "data/schema.h"
#include "tests/data/schema_fixture.h"
#include "tests/data/sqlite/foreign_program.h"

namespace veyra {
namespace {

namespace fs = std::filesystem;

class CountedWaits : public WaitObserver {
 public:
  bool StillWaiting(const std::string&, std::chrono::milliseconds) override { return true; }
  void WaitEnded() override { ++Ended; }

  int Ended = 0;
};

/// Another program in the middle of a change of a calendar, of the kind that is tested.
class OtherWriter {
 public:
  explicit OtherWriter(const std::string& file) {
    if (TestedStoreKind() == StoreKind::Access) {
      std::ofstream(fs::path(file).replace_extension(".ldb")) << std::string(64, 'x');
    } else {
      sqlite_.emplace(file);
      sqlite_->Run("BEGIN IMMEDIATE");
    }
  }

 private:
  std::optional<ForeignProgram> sqlite_;
};

/// What the operator is told when the colours are then read.
class HeldBackTest : public SchemaTest {
 protected:
  Report ReportOfColors() {
    ColorSettings current;
    ColorSettings stored;
    try {
      LoadColorSettings(*databases_.ResCon, current, stored);
    } catch (const MissingItemError& error) {
      return error.report();
    }
    ADD_FAILURE() << "nothing is missing";
    return {};
  }

  static bool Has(const Phrase& text, const std::string& part) {
    return text.English().find(part) != std::string::npos;
  }

  void MakeReadOnly() {
    databases_.ResCon =
        std::make_unique<Connection>(OpenStore(File("Calendar.mdb"), StoreAccess::ReadOnly));
    EnsureSettingsRow(databases_);
    EnsureMultKeyColumn(databases_);
    EnsureTodayBColorColumn(databases_);
  }

  CountedWaits waits_;
};

TEST_F(HeldBackTest, AMissingTableIsReportedWithTheReasonForIt) {
  MakeCalendar();
  MakeReadOnly();
  const Report report = ReportOfColors();
  EXPECT_TRUE(Has(report.Cause, "no table Settings")) << report.Cause;
  EXPECT_TRUE(Has(report.Cause, "opened for reading only")) << report.Cause;
  EXPECT_FALSE(Has(report.Advice, "backup")) << report.Advice;
  EXPECT_TRUE(Has(report.Advice, "next start")) << report.Advice;
}

TEST_F(HeldBackTest, AMissingColumnIsReportedWithTheReasonForIt) {
  TableDefinition settings = CalendarTables().back();
  settings.Columns.pop_back();
  Make("Calendar.mdb", {RoomsTable(), ReservTable(), settings})
      ->Insert("Settings", {{"BkGrnd", "1"}});
  MakeReadOnly();
  const Report report = ReportOfColors();
  EXPECT_TRUE(Has(report.Cause, "no column TodayBColor")) << report.Cause;
  EXPECT_TRUE(Has(report.Cause, "opened for reading only")) << report.Cause;
}

TEST_F(HeldBackTest, AGroupKeyThatIsMissingIsReportedWhenItIsWritten) {
  Make("Calendar.mdb", {RoomsTable(), OldReservTable()});
  MakeReadOnly();
  const auto rows = databases_.ResCon->Open("SELECT * FROM Reserv", CursorType::StaticOptimistic);
  rows->AddNew();
  try {
    rows->SetField("MultKey", 1.0);
    rows->Update();
    FAIL() << "the column is there";
  } catch (const Error& error) {
    EXPECT_TRUE(Has(error.what(), "opened for reading only")) << error.what();
  }
}

TEST_F(HeldBackTest, ATableThatNoUpgradeMakesIsReportedAsBefore) {
  Make("Calendar.mdb", {ReservTable()});
  MakeReadOnly();
  try {
    databases_.ResCon->Open("SELECT * FROM Rooms", CursorType::ForwardOnlyReadOnly);
    FAIL() << "the table is there";
  } catch (const MissingItemError& error) {
    EXPECT_EQ("The file has no table Rooms.", error.report().Cause);
  }
}

TEST_F(HeldBackTest, OneWaitIsEnoughForAllUpgrades) {
  if (TestedStoreKind() == StoreKind::Postgres) {
    GTEST_SKIP() << "on a server an upgrade waits for nothing but the table that it changes";
  }
  Make("Calendar.mdb", {RoomsTable(), OldReservTable()});
  databases_.Waiting = {std::chrono::milliseconds(300), &waits_};
  CreateResCon(databases_);
  const OtherWriter other(File("Calendar.mdb"));
  EnsureSettingsRow(databases_);
  EnsureMultKeyColumn(databases_);
  EnsureTodayBColorColumn(databases_);
  EXPECT_LE(waits_.Ended, 1);
  EXPECT_TRUE(Has(ReportOfColors().Cause, "nother program")) << ReportOfColors().Cause;
  EXPECT_FALSE(Has(ReportOfColors().Advice, "backup copy")) << ReportOfColors().Advice;
}

TEST_F(HeldBackTest, ACalendarThatNeedsNoUpgradeIsNotWaitedFor) {
  if (TestedStoreKind() == StoreKind::Postgres) {
    GTEST_SKIP() << "on a server an upgrade waits for nothing but the table that it changes";
  }
  MakeCalendar();
  Start();
  databases_.Waiting = {std::chrono::milliseconds(300), &waits_};
  CreateResCon(databases_);
  const OtherWriter other(File("Calendar.mdb"));
  EnsureSettingsRow(databases_);
  EnsureMultKeyColumn(databases_);
  EnsureTodayBColorColumn(databases_);
  EXPECT_EQ(0, waits_.Ended);
}

}  // namespace
}  // namespace veyra
