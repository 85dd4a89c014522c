#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>

#include "data/errors.h"
#include "data/sqlite/delayed_flush.h"
#include "data/sqlite/wal_file.h"
#include "tests/faults/disk.h"
#include "tests/faults/office.h"
#include "tests/temp_folder.h"

namespace veyra::faults {
namespace {

std::ptrdiff_t CountOf(Change::Kind what, const std::vector<Change>& changes) {
  return std::count_if(changes.begin(), changes.end(),
                       [what](const Change& change) { return change.What == what; });
}

/// How often the disk is waited for by an action on many rows.
class FlushesTest : public testing::TestWithParam<StoreKind> {
 protected:
  /// Between the first change that is made and the last that is reported as saved.
  std::ptrdiff_t FlushesOf(const Action& action) {
    const ReadyFolder ready(GetParam(), action);
    const TempFolder folder;
    ready.CopyTo(folder.path().string());
    Office office(folder.path().string(), {.Made = MarkMade, .Saved = Mark});
    office.Start();
    Watch({.Folder = folder.path().string(), .Record = true});
    action.Do(office);
    std::vector<Change> changes = EndWatch().Changes;
    rows_ = CountOf(Change::Kind::Mark, changes);
    while (!changes.empty() && changes.back().What != Change::Kind::Mark) {
      changes.pop_back();
    }
    return CountOf(Change::Kind::Sync, changes) + CountOf(Change::Kind::SyncFolder, changes);
  }

  std::ptrdiff_t rows_ = 0;
};

/// A slow machine may flush each second.
TEST_P(FlushesTest, AreFewOfASeries) {
  const std::ptrdiff_t flushes = FlushesOf(DailySeries());
  EXPECT_EQ(153, rows_);
  EXPECT_LT(flushes, rows_ / 5);
}

TEST_P(FlushesTest, AreFewOfItsDeletionAndItsNewName) {
  const auto prepare = [](Office& office) { office.BookDays("Choir"); };
  EXPECT_LT(
      FlushesOf({"Deletion", prepare, [](Office& office) { office.Delete(5, 1, Answer::Yes); }}),
      153 / 5);
  EXPECT_EQ(153, rows_);
  EXPECT_LT(FlushesOf({"NewName", prepare,
                       [](Office& office) { office.Rename(5, 1, "Band", Answer::Yes); }}),
            153 / 5);
  EXPECT_EQ(153, rows_);
}

INSTANTIATE_TEST_SUITE_P(Faults, FlushesTest, testing::ValuesIn(kFileKinds),
                         [](const auto& one) { return NameOf(one.param); });

/// Changes of a file with a log that are flushed together.
class DelayedFlushTest : public testing::Test {
 protected:
  DelayedFlushTest() {
    database_.Execute("PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL");
    database_.Execute("CREATE TABLE Reserv (ID INTEGER PRIMARY KEY, Event)");
  }

  void WatchDisk(const std::optional<Failure>& failure = {}) const {
    Watch({.Folder = folder_.path().string(), .Fail = failure, .Record = true});
  }

  void Add() {
    database_.Execute("INSERT INTO Reserv (Event) VALUES ('Choir')");
    flush_.AfterChange();
  }

  /// As a system that has thrown away what it could not write.
  void LoseLastFrame() const {
    const int log = open((file_ + "-wal").c_str(), O_RDWR | O_CLOEXEC);
    const off_t end = lseek(log, 0, SEEK_END);
    EXPECT_EQ(4, pwrite(log, "lost", 4, end - 4));
    close(log);
  }

  const TempFolder folder_;
  const std::string file_ = [this] {
    folder_.Write("Calendar.mdb", "");
    return folder_.File("Calendar.mdb").string();
  }();
  sqlite::Database database_{file_, file_, sqlite::OpenMode::ReadWrite, {}};
  std::chrono::steady_clock::time_point now_;
  sqlite::DelayedFlush flush_{database_, [this] { return now_; }};
};

TEST_F(DelayedFlushTest, AChangeIsFlushedByItselfBeforeAndAfter) {
  WatchDisk();
  Add();
  EXPECT_EQ(1, EndWatch().CallsOf(Call::Sync));
  flush_.Delay();
  flush_.Flush();
  WatchDisk();
  Add();
  EXPECT_EQ(1, EndWatch().CallsOf(Call::Sync));
}

TEST_F(DelayedFlushTest, ManyWaitForTheLast) {
  flush_.Delay();
  WatchDisk();
  Add();
  Add();
  EXPECT_EQ(0, CountOf(Change::Kind::Sync, EndWatch().Changes));
  WatchDisk();
  flush_.Flush();
  flush_.Flush();
  EXPECT_EQ(1, EndWatch().CallsOf(Call::Sync));
}

TEST_F(DelayedFlushTest, AChangeWaitsASecondAtTheMostWhileOthersAreMade) {
  using namespace std::chrono_literals;
  flush_.Delay();
  WatchDisk();
  now_ += 999ms;
  Add();
  EXPECT_EQ(0, EndWatch().CallsOf(Call::Sync));
  now_ += 1ms;
  WatchDisk();
  Add();
  Add();
  EXPECT_EQ(1, EndWatch().CallsOf(Call::Sync));
}

TEST_F(DelayedFlushTest, WhatTheDiskRefusedOnceIsWrittenOnceMore) {
  flush_.Delay();
  Add();
  WatchDisk(Failure{.What = Call::Sync, .Error = EIO});
  flush_.Flush();
  const std::vector<Change> changes = EndWatch().Changes;
  ASSERT_EQ(2U, changes.size());
  EXPECT_EQ(Change::Kind::Write, changes[0].What);
  EXPECT_EQ(folder_.Read("Calendar.mdb-wal").size(), changes[0].Bytes.size());
  EXPECT_EQ(Change::Kind::Sync, changes[1].What);
}

TEST_F(DelayedFlushTest, ADiskThatGoesOnFailingIsTold) {
  flush_.Delay();
  Add();
  WatchDisk(Failure{.What = Call::Sync, .Error = EIO, .Lasting = true});
  EXPECT_THROW(flush_.Flush(), OutcomeUnknownError);
  EXPECT_THROW(Add(), OutcomeUnknownError);
  EXPECT_THROW(flush_.Flush(), OutcomeUnknownError);
  EndWatch();
  EXPECT_NO_THROW(flush_.Flush());
}

TEST_F(DelayedFlushTest, WhatTheSystemHasLostIsNotCalledFlushed) {
  flush_.Delay();
  Add();
  LoseLastFrame();
  WatchDisk(Failure{.What = Call::Sync, .Error = EIO});
  EXPECT_THROW(flush_.Flush(), OutcomeUnknownError);
  EndWatch();
}

}  // namespace
}  // namespace veyra::faults
