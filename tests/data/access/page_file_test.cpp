#include "data/access/pages/page_file.h"

#include <gtest/gtest.h>

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
    clock.Changed = [this](int) { return changed_; };
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
  access::TimePoint changed_ = now_;
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
  changed_ = now_ - std::chrono::minutes(5);
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

TEST_F(StandingClock, LetsPagesOfAnOldFileBeKept) {
  changed_ = now_ - std::chrono::hours(1);
  PageFile file = Open();
  EXPECT_FALSE(file.Refresh());
}

}  // namespace
}  // namespace veyra
