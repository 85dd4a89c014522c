#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <string>

#include "forms/widgets/qt_feed_watch.h"
#include "tests/qt/event_loop.h"

namespace veyra {
namespace {

class FeedWatchTest : public testing::Test {
 protected:
  FeedWatchTest() { EXPECT_EQ(0, ::pipe(pipe_.data())); }
  ~FeedWatchTest() override {
    watch_.Watch(-1);
    ::close(pipe_[0]);
    ::close(pipe_[1]);
  }

  void Tell(const std::string& what = "x") const {
    EXPECT_EQ(static_cast<ssize_t>(what.size()), ::write(pipe_[1], what.data(), what.size()));
  }

  bool Take() {
    char what = ' ';
    ++taken_;
    return ::read(pipe_[0], &what, 1) == 1 && what == 'x';
  }

  bool IsTaken(int times) {
    return Comes([this, times] { return taken_ == times; });
  }

  /// So that what is due by now is done.
  static void LetAllBeDone() {
    int looks = 0;
    Comes([&looks] { return ++looks > 5; });
  }

  std::array<int, 2> pipe_{};
  bool busy_ = false;
  int taken_ = 0;
  int shown_ = 0;
  QtFeedWatch watch_{{[this] { return Take(); }, [this] { return busy_; }, [this] { ++shown_; }}};
};

TEST_F(FeedWatchTest, WhatIsToldIsShown) {
  watch_.Watch(pipe_[0]);
  Tell();
  EXPECT_TRUE(Comes([this] { return shown_ == 1; }));
}

TEST_F(FeedWatchTest, NothingIsDoneWhileNothingIsTold) {
  watch_.Watch(pipe_[0]);
  LetAllBeDone();
  EXPECT_EQ(0, taken_);
  EXPECT_EQ(0, shown_);
}

TEST_F(FeedWatchTest, WhatIsNothingToBeShownIsNot) {
  watch_.Watch(pipe_[0]);
  Tell("-");
  ASSERT_TRUE(IsTaken(1));
  LetAllBeDone();
  EXPECT_EQ(0, shown_);
}

TEST_F(FeedWatchTest, ItIsShownOnce) {
  watch_.Watch(pipe_[0]);
  Tell();
  ASSERT_TRUE(Comes([this] { return shown_ == 1; }));
  LetAllBeDone();
  EXPECT_EQ(1, shown_);
}

TEST_F(FeedWatchTest, WhoIsBusyIsNotDisturbedAndSeesAllOfItAtOnceAfterwards) {
  watch_.Watch(pipe_[0]);
  busy_ = true;
  Tell("xx-");
  ASSERT_TRUE(IsTaken(3));
  LetAllBeDone();
  EXPECT_EQ(0, shown_);
  busy_ = false;
  EXPECT_TRUE(Comes([this] { return shown_ == 1; }));
  LetAllBeDone();
  EXPECT_EQ(1, shown_);
}

TEST_F(FeedWatchTest, ADescriptorThatIsNotWatchedAnyMoreIsLeftAlone) {
  watch_.Watch(pipe_[0]);
  watch_.Watch(-1);
  Tell();
  LetAllBeDone();
  EXPECT_EQ(0, taken_);
}

}  // namespace
}  // namespace veyra
