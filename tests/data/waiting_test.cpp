#include "data/waiting.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "data/access/pages/file_lock.h"
#include "data/errors.h"
#include "data/open_store.h"
#include "data/posix_file.h"
#include "data/schema.h"
#include "tests/data/sqlite/foreign_program.h"
#include "tests/store_kind.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

/// Somebody who watches the waits, and ends them when told to.
class Watcher : public WaitObserver {
 public:
  bool StillWaiting(const std::string& file, milliseconds) override {
    File = file;
    ++Calls;
    if (OnCall) {
      OnCall();
    }
    return Calls < EndsAt;
  }
  void WaitEnded() override { ++Ends; }

  std::string File;
  int Calls = 0;
  int EndsAt = 1'000'000;
  int Ends = 0;
  std::function<void()> OnCall;
};

TEST(WaitTest, LastsAsLongAsItsTime) {
  Watcher watcher;
  Wait wait({milliseconds(200), &watcher});
  const auto begun = steady_clock::now();
  while (wait.GoOn()) {
  }
  EXPECT_GE(steady_clock::now() - begun, milliseconds(200));
  EXPECT_FALSE(wait.WasCancelled());
  EXPECT_GT(watcher.Calls, 1);
}

TEST(WaitTest, EndsAtOnceWhenTheObserverSaysSo) {
  Watcher watcher;
  watcher.EndsAt = 2;
  Wait wait({milliseconds(100'000), &watcher});
  EXPECT_TRUE(wait.GoOn());
  EXPECT_FALSE(wait.GoOn());
  EXPECT_TRUE(wait.WasCancelled());
}

TEST(WaitTest, IsNotTakenUpAgainOnceItWasEnded) {
  Watcher watcher;
  watcher.EndsAt = 1;
  Wait wait({milliseconds(100'000), &watcher});
  EXPECT_FALSE(wait.GoOn());
  EXPECT_FALSE(wait.GoOn());
  EXPECT_EQ(1, watcher.Calls);
}

TEST(WaitTest, TellsItsEndOnceAndOnlyWhenItHadBegun) {
  Watcher watcher;
  {
    Wait wait({milliseconds(10), &watcher});
    wait.End();
    EXPECT_EQ(0, watcher.Ends);
    wait.GoOn();
    wait.End();
    EXPECT_EQ(1, watcher.Ends);
  }
  EXPECT_EQ(1, watcher.Ends);
}

TEST(WaitTest, BeginsAnewAfterItsEnd) {
  Wait wait(milliseconds(20));
  while (wait.GoOn()) {
  }
  wait.End();
  EXPECT_TRUE(wait.GoOn());
}

/// Another program in the middle of a change of the file.
class OtherWriter {
 public:
  OtherWriter(StoreKind kind, const std::string& file) {
    if (kind == StoreKind::Sqlite) {
      program_.emplace(file).Run("BEGIN IMMEDIATE");
    } else {
      file_.emplace(file, PosixFile::Use::ReadWrite);
      lock_.emplace(file_->Descriptor(), access::FileLock::Kind::Writing,
                    WaitPolicy(milliseconds(0)));
    }
  }

 private:
  std::optional<ForeignProgram> program_;
  std::optional<PosixFile> file_;
  std::optional<access::FileLock> lock_;
};

/// A calendar that another program holds.
class HeldStoreTest : public testing::TestWithParam<StoreKind> {
 protected:
  HeldStoreTest() {
    CreateStoreOfKind(GetParam(), File())->CreateTable(RoomsTable());
    watcher_.EndsAt = 3;
  }

  std::string File() const { return folder_.File("Calendar.mdb").string(); }

  std::unique_ptr<Store> Open(StoreAccess access = StoreAccess::ReadWrite) {
    return OpenStore(File(), access, {milliseconds(100'000), &watcher_});
  }

  TempFolder folder_;
  Watcher watcher_;
};

TEST_P(HeldStoreTest, IsNotWaitedForAnyLongerThanTheOperatorLikes) {
  const auto other = OpenStore(File(), StoreAccess::Exclusive, milliseconds(0));
  EXPECT_THROW(Open(), WaitCancelledError);
  EXPECT_EQ(3, watcher_.Calls);
  EXPECT_EQ(1, watcher_.Ends);
  EXPECT_EQ(File(), watcher_.File);
}

TEST_P(HeldStoreTest, IsUsedAsSoonAsItIsFree) {
  auto other = OpenStore(File(), StoreAccess::Exclusive, milliseconds(0));
  watcher_.EndsAt = 1'000'000;
  watcher_.OnCall = [&] { other.reset(); };
  EXPECT_EQ(1U, Open()->TableNames().size());
  EXPECT_GE(watcher_.Calls, 1);
  EXPECT_EQ(1, watcher_.Ends);
}

TEST_P(HeldStoreTest, TroublesNobodyWhenItIsFree) {
  Open()->Insert("Rooms", {{"Name", "Hall"}});
  EXPECT_EQ(0, watcher_.Calls);
  EXPECT_EQ(0, watcher_.Ends);
}

TEST_P(HeldStoreTest, ReportsThatNothingWasSaved) {
  const auto store = OpenStore(File(), StoreAccess::ReadWrite, milliseconds(0));
  const OtherWriter other(GetParam(), File());
  try {
    store->Insert("Rooms", {{"Name", "Hall"}});
    FAIL() << "no report";
  } catch (const DatabaseBusyError& failure) {
    EXPECT_EQ("Nothing was saved.", failure.report().Effect);
  }
}

TEST_P(HeldStoreTest, ReportsThatNothingWasSavedWhenTheOperatorEndsTheWait) {
  const auto store = Open();
  const OtherWriter other(GetParam(), File());
  try {
    store->Insert("Rooms", {{"Name", "Hall"}});
    FAIL() << "no report";
  } catch (const WaitCancelledError& failure) {
    EXPECT_EQ("Nothing was saved.", failure.report().Effect);
  }
}

INSTANTIATE_TEST_SUITE_P(Stores, HeldStoreTest, testing::ValuesIn(kFileKinds),
                         [](const auto& kind) { return NameOf(kind.param); });

class HeldSqliteTest : public HeldStoreTest {};

TEST_P(HeldSqliteTest, BookingEndsWithTheWait) {
  const auto store = Open();
  ForeignProgram other(File());
  other.Run("BEGIN IMMEDIATE");
  EXPECT_THROW(store->Insert("Rooms", {{"Name", "Hall"}}), WaitCancelledError);
  other.Run("COMMIT");
  EXPECT_NO_THROW(store->Insert("Rooms", {{"Name", "Hall"}}));
}

TEST_P(HeldSqliteTest, ReadingEndsWithTheWait) {
  ForeignProgram other(File());
  other.Run("PRAGMA journal_mode = DELETE");
  other.Run("PRAGMA locking_mode = EXCLUSIVE");
  other.Run("BEGIN EXCLUSIVE");
  EXPECT_THROW(Open(StoreAccess::ReadOnly), DatabaseBusyError);
  EXPECT_EQ(3, watcher_.Calls);
  EXPECT_EQ(watcher_.Ends, 1);
}

TEST_P(HeldSqliteTest, IsWaitedForOnce) {
  ForeignProgram other(File());
  other.Run("PRAGMA journal_mode = DELETE");
  other.Run("PRAGMA locking_mode = EXCLUSIVE");
  other.Run("BEGIN EXCLUSIVE");
  watcher_.EndsAt = 1'000'000;
  EXPECT_THROW(OpenStore(File(), StoreAccess::ReadWrite, {milliseconds(400), &watcher_}),
               DatabaseBusyError);
  EXPECT_EQ(1, watcher_.Ends);
}

INSTANTIATE_TEST_SUITE_P(Stores, HeldSqliteTest, testing::Values(StoreKind::Sqlite),
                         [](const auto& kind) { return NameOf(kind.param); });

}  // namespace
}  // namespace veyra
