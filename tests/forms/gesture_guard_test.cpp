#include "forms/gesture_guard.h"

#include <gtest/gtest.h>

namespace veyra {
namespace {

constexpr int kReturn = 13;
constexpr int kSpace = 32;
constexpr int kLeft = 1;
constexpr int kRight = 2;
constexpr GestureGuard::DoubleClick kLimits{400, 5};

/// Times in ms, on a clock that the tests set.
class GestureGuardTest : public testing::Test {
 protected:
  bool Press(int key, GestureGuard::Time at) { return guard_.KeyPressed(key, at); }
  bool Release(int key, GestureGuard::Time at) { return guard_.KeyReleased(key, at); }

  /// Sends the repeats of a held key as pairs, 40 ms apart, and counts the presses that pass.
  int Repeat(int key, GestureGuard::Time from, GestureGuard::Time to) {
    int passed = 0;
    for (GestureGuard::Time at = from; at < to; at += 40) {
      Release(key, at);
      passed += Press(key, at) ? 1 : 0;
    }
    return passed;
  }

  bool Click(int button, int x, int y, GestureGuard::Time at) {
    return guard_.ButtonPressed({button, x, y, at}, kLimits);
  }

  GestureGuard guard_;
};

TEST_F(GestureGuardTest, APressIsMeant) {
  EXPECT_TRUE(Press(kReturn, 1000));
  EXPECT_TRUE(Release(kReturn, 1060));
}

TEST_F(GestureGuardTest, RepeatsPassWhileNoWindowComesOrGoes) {
  Press(kReturn, 1000);
  EXPECT_EQ(25, Repeat(kReturn, 1660, 2660));
}

TEST_F(GestureGuardTest, NoRepeatPassesOnceAWindowHasCome) {
  Press(kReturn, 1000);
  guard_.WindowsChanged();
  EXPECT_EQ(0, Repeat(kReturn, 1660, 3500));
  EXPECT_FALSE(Release(kReturn, 3500));
}

TEST_F(GestureGuardTest, ARepeatMayBringTheWindowThatStopsTheOthers) {
  Press(kReturn, 1000);
  EXPECT_EQ(3, Repeat(kReturn, 1660, 1780));
  guard_.WindowsChanged();
  EXPECT_EQ(0, Repeat(kReturn, 1780, 3500));
}

TEST_F(GestureGuardTest, TheReleaseOfThePressThatBroughtTheWindowIsKept) {
  Press(kReturn, 1000);
  guard_.WindowsChanged();
  EXPECT_FALSE(Release(kReturn, 1060));
}

TEST_F(GestureGuardTest, APressAfterTheReleaseIsMeantAtOnce) {
  Press(kReturn, 1000);
  guard_.WindowsChanged();
  Repeat(kReturn, 1660, 2660);
  Release(kReturn, 2660);
  EXPECT_TRUE(Press(kReturn, 2740));
  EXPECT_TRUE(Release(kReturn, 2800));
}

TEST_F(GestureGuardTest, TwoPressesCloserThanAHandCanAreOne) {
  Press(kReturn, 1000);
  guard_.WindowsChanged();
  Release(kReturn, 1020);
  EXPECT_FALSE(Press(kReturn, 1040));
  EXPECT_FALSE(Release(kReturn, 1060));
  EXPECT_FALSE(Press(kReturn, 1139));
}

TEST_F(GestureGuardTest, QuickPressesOfOneKeyPassWhileNoWindowComesOrGoes) {
  for (GestureGuard::Time at = 1000; at < 1200; at += 20) {
    EXPECT_TRUE(Press(kSpace, at));
    EXPECT_TRUE(Release(kSpace, at + 10));
  }
}

TEST_F(GestureGuardTest, AnotherKeyIsAnotherGesture) {
  Press(kReturn, 1000);
  guard_.WindowsChanged();
  EXPECT_TRUE(Press(kSpace, 1010));
  EXPECT_FALSE(Release(kReturn, 1060));
}

TEST_F(GestureGuardTest, OnePressMayBeToldTwice) {
  EXPECT_TRUE(Press(kReturn, 1000));
  EXPECT_TRUE(Press(kReturn, 1000));
  guard_.WindowsChanged();
  EXPECT_FALSE(Press(kReturn, 1000));
  Release(kReturn, 1660);
  EXPECT_FALSE(Press(kReturn, 1660));
  EXPECT_FALSE(Press(kReturn, 1660));
}

TEST_F(GestureGuardTest, AKeyThatIsHeldFromAnotherProgramIsNotMeant) {
  Release(kReturn, 1000);
  EXPECT_FALSE(Press(kReturn, 1000));
  EXPECT_EQ(0, Repeat(kReturn, 1040, 2000));
  Release(kReturn, 2000);
  EXPECT_TRUE(Press(kReturn, 2100));
}

TEST_F(GestureGuardTest, APressIsMeantThoughNobodyHeardTheRelease) {
  Press(kReturn, 1000);
  guard_.WindowsChanged();
  EXPECT_FALSE(Press(kReturn, 1040));
  EXPECT_TRUE(Press(kReturn, 1120));
}

TEST_F(GestureGuardTest, AClockThatStartsAgainDoesNotHoldAKey) {
  Press(kReturn, 4294967000);
  guard_.WindowsChanged();
  EXPECT_TRUE(Press(kReturn, 5));
}

TEST_F(GestureGuardTest, TheSecondPressOfADoubleClickThatBroughtAWindowIsKept) {
  EXPECT_TRUE(Click(kLeft, 100, 100, 1000));
  guard_.WindowsChanged();
  EXPECT_TRUE(guard_.ButtonReleased(kLeft));
  EXPECT_FALSE(Click(kLeft, 105, 95, 1399));
  EXPECT_FALSE(guard_.ButtonReleased(kLeft));
}

TEST_F(GestureGuardTest, ADoubleClickPassesWhileNoWindowComesOrGoes) {
  EXPECT_TRUE(Click(kLeft, 100, 100, 1000));
  EXPECT_TRUE(guard_.ButtonReleased(kLeft));
  EXPECT_TRUE(Click(kLeft, 100, 100, 1100));
  EXPECT_TRUE(guard_.ButtonReleased(kLeft));
}

TEST_F(GestureGuardTest, AnyOtherClickIsMeantAtOnce) {
  const GestureGuard::Click others[] = {{kLeft, 100, 100, 1400},
                                        {kLeft, 106, 100, 1100},
                                        {kLeft, 100, 94, 1100},
                                        {kRight, 100, 100, 1100}};
  for (const GestureGuard::Click& other : others) {
    GestureGuard guard;
    guard.ButtonPressed({kLeft, 100, 100, 1000}, kLimits);
    guard.WindowsChanged();
    guard.ButtonReleased(kLeft);
    EXPECT_TRUE(guard.ButtonPressed(other, kLimits))
        << other.X << "," << other.Y << "@" << other.At;
    EXPECT_TRUE(guard.ButtonReleased(other.Button));
  }
}

TEST_F(GestureGuardTest, TheClickAfterADoubleClickIsMeant) {
  Click(kLeft, 100, 100, 1000);
  guard_.WindowsChanged();
  Click(kLeft, 100, 100, 1100);
  guard_.ButtonReleased(kLeft);
  EXPECT_TRUE(Click(kLeft, 100, 100, 1450));
  EXPECT_TRUE(guard_.ButtonReleased(kLeft));
}

TEST_F(GestureGuardTest, ASecondPressThatBringsTheWindowBeginsANewDoubleClick) {
  Click(kLeft, 100, 100, 1000);
  Click(kLeft, 100, 100, 1200);
  guard_.WindowsChanged();
  EXPECT_FALSE(Click(kLeft, 100, 100, 1500));
}

}  // namespace
}  // namespace veyra
