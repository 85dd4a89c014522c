#include "data/access/pages/page_file.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <utility>

#include "data/access/read/snapshot.h"
#include "tests/data/access/access_folder.h"

namespace veyra {
namespace {

using access::Bytes;
using access::PageFile;

constexpr std::chrono::milliseconds kLessThanATick{4};
constexpr std::chrono::milliseconds kMoreThanATick{40};
constexpr access::PageNumber kPage = 3;

/// A calendar on a file system whose clock stands still, and another program that writes to it.
class StandingClock : public testing::Test {
 protected:
  PageFile Open() {
    access::FileClock clock;
    clock.Now = [this] { return now_; };
    clock.Changed = [this](int) { return Changed(); };
    clock.SetChanged = [this](int, access::TimePoint changed) {
      if (may_set_) {
        changed_ = changed;
      }
    };
    return PageFile(folder_.Calendar(), true, clock);
  }

  /// Writes as a program that knows nothing of this one.
  void WriteAsAnother(const Bytes& page) {
    PageFile other(folder_.Calendar(), true);
    Write(other, page);
  }

  static void Write(PageFile& file, Bytes page) {
    page.back() = static_cast<access::Byte>(page.back() + 1);
    file.Write({{kPage, page}});
  }

  static Bytes PageOf(PageFile& file) { return *file.ReadPage(kPage); }

  AccessFolder folder_;
  access::TimePoint now_ = std::chrono::system_clock::now();
  access::TimePoint tick_ = now_;  ///< The time that whoever writes leaves.
  access::TimePoint changed_ = tick_;
  bool may_set_ = true;

 private:
  access::TimePoint Changed() {
    std::ifstream file(folder_.Calendar(), std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (bytes != seen_) {
      changed_ = tick_;
      seen_ = std::move(bytes);
    }
    return changed_;
  }

  std::string seen_ = {};
};

/// The same, and this program has written last.
class OwnChange : public StandingClock {
 protected:
  OwnChange() : file_(Open()) {
    now_ += kMoreThanATick;
    file_.Refresh();
    tick_ = now_;
  }

  void WriteOwn() { Write(file_, PageOf(file_)); }

  /// Another program changes a page that this one has read, and then this one another page.
  void ExpectSeenThoughAnOwnChangeFollows() {
    const Bytes read = *file_.ReadPage(kPage + 1);
    PageFile other(folder_.Calendar(), true);
    Bytes changed = read;
    changed.back() = static_cast<access::Byte>(changed.back() + 1);
    other.Write({{kPage + 1, changed}});
    WriteOwn();
    EXPECT_TRUE(file_.Refresh());
    EXPECT_NE(read, *file_.ReadPage(kPage + 1));
  }

  PageFile file_;
};

TEST_F(StandingClock, DoesNotHideAnotherProgramsChangeAfterAnOwnOne) {
  PageFile file = Open();
  Write(file, PageOf(file));
  file.Refresh();
  const Bytes own = PageOf(file);
  WriteAsAnother(own);
  now_ += kLessThanATick;
  EXPECT_TRUE(file.Refresh());
  EXPECT_NE(own, PageOf(file));
}

TEST_F(StandingClock, DoesNotHideAChangeThatIsLookedForLongAfter) {
  PageFile file = Open();
  Write(file, PageOf(file));
  const Bytes own = PageOf(file);
  WriteAsAnother(own);
  now_ += kMoreThanATick;
  EXPECT_TRUE(file.Refresh());
  EXPECT_NE(own, PageOf(file));
}

TEST_F(StandingClock, DoesNotHideAChangeWhileATableIsRead) {
  PageFile file = Open();
  WriteAsAnother(PageOf(file));
  EXPECT_FALSE(file.IsSteady());
}

TEST_F(StandingClock, DoesNotHideAChangeWhenTheFilesClockIsBehindByMinutes) {
  tick_ = now_ - std::chrono::minutes(5);
  PageFile file = Open();
  const Bytes before = PageOf(file);
  WriteAsAnother(before);
  EXPECT_TRUE(file.Refresh());
  EXPECT_NE(before, PageOf(file));
}

TEST_F(StandingClock, LetsPagesBeKeptThatWereReadATickLater) {
  PageFile file = Open();
  now_ += kMoreThanATick;
  EXPECT_TRUE(file.Refresh());
  const auto kept = file.ReadPage(kPage);
  EXPECT_FALSE(file.Refresh());
  EXPECT_EQ(kept, file.ReadPage(kPage));
}

TEST_F(OwnChange, LetsPagesBeKeptAtOnce) {
  const auto kept = file_.ReadPage(kPage + 1);
  WriteOwn();
  EXPECT_FALSE(file_.Refresh());
  EXPECT_EQ(kept, file_.ReadPage(kPage + 1));
  EXPECT_TRUE(file_.IsSteady());
}

TEST_F(OwnChange, DoesNotHideAnotherProgramsChangeInTheSameTick) {
  WriteOwn();
  const Bytes own = PageOf(file_);
  WriteAsAnother(own);
  EXPECT_FALSE(file_.IsSteady());
  EXPECT_TRUE(file_.Refresh());
  EXPECT_NE(own, PageOf(file_));
}

TEST_F(OwnChange, DoesNotHideThatOfAnotherCopyOfThisProgramInTheSameTick) {
  WriteOwn();
  const Bytes own = PageOf(file_);
  PageFile other = Open();
  now_ += kMoreThanATick;
  other.Refresh();
  Write(other, own);
  EXPECT_TRUE(file_.Refresh());
  EXPECT_NE(own, PageOf(file_));
}

TEST_F(OwnChange, DoesNotHideWhatAnotherProgramWroteRightBeforeIt) {
  ExpectSeenThoughAnOwnChangeFollows();
}

TEST_F(OwnChange, DoesNotHideTheSecondOfTwoChangesOfAnotherProgramInTheSameTick) {
  WriteOwn();
  WriteAsAnother(PageOf(file_));
  file_.Refresh();
  const Bytes first = PageOf(file_);
  WriteAsAnother(first);
  EXPECT_TRUE(file_.Refresh());
  EXPECT_NE(first, PageOf(file_));
}

TEST_F(OwnChange, DoesNotHideWhatAnotherProgramWroteInTheTickInWhichItWasRead) {
  WriteAsAnother(PageOf(file_));
  file_.Refresh();
  ExpectSeenThoughAnOwnChangeFollows();
}

TEST_F(OwnChange, IsBelievedATickLaterWhereItsTimeCannotBeSet) {
  may_set_ = false;
  WriteOwn();
  EXPECT_TRUE(file_.Refresh());
  now_ += kMoreThanATick;
  file_.Refresh();
  EXPECT_FALSE(file_.Refresh());
}

TEST_F(StandingClock, LetsNoMarkOutliveTheTickInWhichItWasGiven) {
  PageFile file = Open();
  access::Snapshot snapshot(file);
  const auto early = snapshot.MarkOf("Reserv");
  const auto next = snapshot.MarkOf("Reserv");
  EXPECT_NE(early, next);
  now_ += kMoreThanATick;
  const auto late = snapshot.MarkOf("Reserv");
  EXPECT_NE(next, late);
  EXPECT_EQ(late, snapshot.MarkOf("Reserv"));
}

TEST_F(StandingClock, LetsAMarkEndWithTheFirstChange) {
  PageFile file = Open();
  access::Snapshot snapshot(file);
  now_ += kMoreThanATick;
  const auto mark = snapshot.MarkOf("Reserv");
  tick_ = now_;
  WriteAsAnother(PageOf(file));
  EXPECT_NE(mark, snapshot.MarkOf("Reserv"));
}

TEST_F(StandingClock, LetsPagesOfAnOldFileBeKept) {
  tick_ = now_ - std::chrono::hours(1);
  PageFile file = Open();
  EXPECT_FALSE(file.Refresh());
}

}  // namespace
}  // namespace veyra
