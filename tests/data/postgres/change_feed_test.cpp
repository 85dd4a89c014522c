#include "data/change_feed.h"

#include <poll.h>

#include <functional>
#include <thread>
#include <utility>

#include "data/errors.h"
#include "data/postgres/change_listener.h"
#include "data/waiting.h"
#include "tests/data/postgres/shared_fixture.h"
#include "tests/store_kind.h"
#include "tests/temp_folder.h"

namespace veyra::postgres {
namespace {

constexpr int kPatience = 20'000;

bool CanBeRead(const ChangeFeed& feed, int milliseconds = kPatience) {
  pollfd waited_for{.fd = feed.Descriptor(), .events = POLLIN, .revents = 0};
  return ::poll(&waited_for, 1, milliseconds) > 0;
}

std::string TextOf(const SharedChange& change) {
  constexpr const char* kKinds[] = {"added", "set", "removed"};
  return change.Table + " " + kKinds[static_cast<int>(change.What)] +
         (change.Facility ? " " + std::to_string(*change.Facility) : "") +
         (change.Day ? " " + IsoText(*change.Day) : "") + (change.IsOwn ? " own" : "") + ";";
}

class ChangeFeedTest : public SharedTest {
 protected:
  ChangeFeedTest() : feed_(*desk_->Feed()) {}

  void Cut() const {
    server_.Run(
        "SELECT pg_terminate_backend(pid, 60000) FROM pg_stat_activity"
        " WHERE application_name = 'veyra-calendar' AND datname = current_database()");
  }

  /// Takes what is told until so many rows have been, and returns all of it.
  std::string Told(std::size_t rows) {
    std::string told;
    for (std::size_t count = 0; count < rows && CanBeRead(feed_);) {
      const SharedChanges changes = feed_.TakeChanges();
      count += changes.Rows.size();
      for (const SharedChange& change : changes.Rows) {
        told += TextOf(change);
      }
      told += changes.MayBeAnything ? "anything;" : "";
    }
    return told;
  }

  ChangeFeed& feed_;
};

TEST_F(ChangeFeedTest, AnotherDesksChangesAreToldByFacilityDayAndKind) {
  const Row row = Book(*other_, 10, 12, "Smith");
  const Row renamed = other_->Update("Reserv", row, {{"Event", std::string("Jones")}});
  other_->Delete("Reserv", renamed);
  EXPECT_EQ("Reserv added 1 2026-03-05;Reserv set 1 2026-03-05;Reserv removed 1 2026-03-05;",
            Told(3));
}

TEST_F(ChangeFeedTest, ABookingThatIsMovedIsToldForBothDays) {
  const Row row = Book(*other_, 10, 12, "Smith");
  other_->Update("Reserv", row, {{"DateOfRes", MakeDate(2026, 3, 6).value()}});
  EXPECT_EQ("Reserv added 1 2026-03-05;Reserv set 1 2026-03-05;Reserv set 1 2026-03-06;", Told(3));
}

TEST_F(ChangeFeedTest, FacilitiesAreToldToo) {
  other_->Insert("Rooms", {{"Name", std::string("Pool")}, {"Active", std::int64_t{0}}});
  EXPECT_EQ("Rooms added 1;", Told(1));
}

TEST_F(ChangeFeedTest, ADeskKnowsItsOwnChanges) {
  Book(*desk_, 10, 12, "Smith");
  EXPECT_EQ("Reserv added 1 2026-03-05 own;", Told(1));
}

TEST_F(ChangeFeedTest, ThereIsNothingToWaitForBeforeAndAfterAChange) {
  EXPECT_FALSE(CanBeRead(feed_, 0));
  Book(*other_, 10, 12, "Smith");
  EXPECT_NE("", Told(1));
  EXPECT_FALSE(CanBeRead(feed_, 0));
}

TEST_F(ChangeFeedTest, AChangeThatIsUndoneIsNotTold) {
  Book(*other_, 10, 12, "Smith");
  EXPECT_THROW(desk_->InsertAll("Reserv", {Booking(1, 2, "a"), Booking(11, 12, "b")}),
               TimeTakenError);
  Book(*other_, 20, 22, "Smith");
  EXPECT_EQ("Reserv added 1 2026-03-05;Reserv added 1 2026-03-05;", Told(2));
}

TEST_F(ChangeFeedTest, WhatArrivesWhileACallReadsIsNotLost) {
  Book(*other_, 10, 12, "Smith");
  ASSERT_TRUE(CanBeRead(feed_));
  Look(*desk_);
  EXPECT_TRUE(CanBeRead(feed_, 0));
  EXPECT_EQ("Reserv added 1 2026-03-05;", Told(1));
}

/// Cuts the connection in the middle of a wait and then calls the feed, as a window does whose
/// events are dealt with meanwhile.
class CuttingObserver : public WaitObserver {
 public:
  explicit CuttingObserver(std::function<void()> cut) : cut_(std::move(cut)) {}

  bool StillWaiting(const std::string&, std::chrono::milliseconds) override {
    if (Feed != nullptr && ++Times == 1) {
      cut_();
      for (int look = 0; look < 10; ++look) {
        EXPECT_TRUE(Feed->TakeChanges().Rows.empty());
      }
    }
    return true;
  }
  void WaitEnded() override {}

  ChangeFeed* Feed = nullptr;
  int Times = 0;

 private:
  std::function<void()> cut_;
};

TEST_F(ChangeFeedTest, ToLookInTheMiddleOfACallDisturbsNothing) {
  CuttingObserver observer([this] { Cut(); });
  const auto desk = Open(StoreAccess::ReadWrite, WaitPolicy(kStoreTimeout, &observer));
  observer.Feed = desk->Feed();
  std::thread slow(
      [&] { server_.Run("BEGIN; LOCK TABLE " + In("Reserv") + "; SELECT pg_sleep(0.5); COMMIT"); });
  while (server_.Run("SELECT count(*) FROM pg_locks WHERE mode = 'AccessExclusiveLock' AND "
                     "relation = '" +
                     In("Reserv") + "'::regclass") == "0") {
    std::this_thread::yield();
  }
  EXPECT_THROW(Book(*desk, 10, 12, "Smith"), DatabaseError);
  slow.join();
  EXPECT_GT(observer.Times, 0);
  EXPECT_EQ("", Names(*desk));
  EXPECT_TRUE(desk->Feed()->TakeChanges().MayBeAnything);
}

TEST_F(ChangeFeedTest, AConnectionThatBreaksInIdleTimeIsQuietAndTheNextCallListensAgain) {
  Cut();
  for (int look = 0; look < 100 && CanBeRead(feed_, 0); ++look) {
    const SharedChanges changes = feed_.TakeChanges();
    EXPECT_TRUE(changes.Rows.empty());
    EXPECT_FALSE(changes.MayBeAnything);
  }
  EXPECT_FALSE(CanBeRead(feed_, 0)) << "it would be read again and again";
  other_ = Open();
  Book(*other_, 10, 12, "Smith");
  EXPECT_FALSE(CanBeRead(feed_, 0));
  EXPECT_EQ("Smith;", Names(*desk_));
  ASSERT_TRUE(CanBeRead(feed_, 0));
  EXPECT_TRUE(feed_.TakeChanges().MayBeAnything);
  Book(*other_, 20, 22, "Jones");
  EXPECT_EQ("Reserv added 1 2026-03-05;", Told(1));
}

TEST_F(ChangeFeedTest, TheDescriptorStaysTheSame) {
  const int before = feed_.Descriptor();
  Cut();
  EXPECT_THROW(Look(*desk_), DatabaseError);
  Look(*desk_);
  EXPECT_EQ(before, desk_->Feed()->Descriptor());
}

TEST(NoticeTest, WhatIsNotUnderstoodIsNoChange) {
  EXPECT_TRUE(ReadNotice("b7e10a Reserv INSERT 3 2026-03-05"));
  EXPECT_TRUE(ReadNotice("- Settings UPDATE - -"));
  EXPECT_FALSE(ReadNotice("b7e10a Reserv TRUNCATE 3 2026-03-05"));
  EXPECT_FALSE(ReadNotice("b7e10a Reserv INSERT 3x 2026-03-05"));
  EXPECT_FALSE(ReadNotice("b7e10a Reserv INSERT 3 2026-13-05"));
  EXPECT_FALSE(ReadNotice("b7e10a Reserv"));
  EXPECT_FALSE(ReadNotice(""));
}

TEST(NoticeQueueTest, MoreThanItKeepsCountAsMissed) {
  NoticeQueue queue("/data/Calendar.mdb");
  for (std::size_t i = 0; i <= NoticeQueue::kMost; ++i) {
    queue.Add({.Sender = 1, .Text = "text"});
  }
  const NoticeQueue::Content content = queue.Take();
  EXPECT_TRUE(content.WereMissed);
  EXPECT_EQ(1U, content.Notices.size());
  EXPECT_FALSE(queue.Take().WereMissed);
}

TEST(FileFeedTest, OfAFileNobodyTells) {
  const TempFolder folder;
  for (const StoreKind kind : kFileKinds) {
    const auto file = folder.File(NameOf(kind)).string();
    EXPECT_EQ(nullptr, CreateStoreOfKind(kind, file)->Feed());
  }
}

}  // namespace
}  // namespace veyra::postgres
