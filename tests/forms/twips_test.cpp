#include "forms/twips.h"

#include <gtest/gtest.h>

namespace veyra {
namespace {

TEST(PixelsFromTwipsTest, TakesFifteenForAPixelAt96Dpi) {
  EXPECT_EQ(25, PixelsFromTwips(375, 96));
}

TEST(PixelsFromTwipsTest, GivesNoPixelForNoTwips) {
  EXPECT_EQ(0, PixelsFromTwips(0, 96));
}

TEST(PixelsFromTwipsTest, RoundsDownBelowTheMiddle) {
  EXPECT_EQ(1, PixelsFromTwips(22, 96));
}

TEST(PixelsFromTwipsTest, RoundsUpAboveTheMiddle) {
  EXPECT_EQ(2, PixelsFromTwips(23, 96));
}

TEST(PixelsFromTwipsTest, RoundsNegativeLengthsToTheNearestToo) {
  EXPECT_EQ(-1, PixelsFromTwips(-22, 96));
}

TEST(PixelsFromTwipsTest, RoundsNegativeLengthsAwayFromZeroAboveTheMiddle) {
  EXPECT_EQ(-2, PixelsFromTwips(-23, 96));
}

TEST(PixelsFromTwipsTest, GrowsWithTheScreen) {
  EXPECT_EQ(50, PixelsFromTwips(375, 192));
}

TEST(PixelsFromTwipsTest, TakesScreensBetween) {
  EXPECT_EQ(38, PixelsFromTwips(375, 144));
}

TEST(PixelsFromTwipsTest, RoundsTheMiddleAwayFromZero) {
  EXPECT_EQ(-38, PixelsFromTwips(-375, 144));
}

TEST(TwipsFromPixelsTest, GivesFifteenForAPixelAt96Dpi) {
  EXPECT_EQ(375, TwipsFromPixels(25, 96));
}

TEST(TwipsFromPixelsTest, RoundsToTheNearest) {
  EXPECT_EQ(13, TwipsFromPixels(1, 110));
}

TEST(TwipsFromPixelsTest, TakesNegativeLengths) {
  EXPECT_EQ(-375, TwipsFromPixels(-25, 96));
}

TEST(TwipsFromPixelsTest, IsUndoneByPixelsFromTwips) {
  for (const double dpi : {72.0, 96.0, 110.0, 120.0, 144.0, 192.0, 288.0}) {
    for (int pixels = -4000; pixels <= 4000; ++pixels) {
      ASSERT_EQ(pixels, PixelsFromTwips(TwipsFromPixels(pixels, dpi), dpi)) << dpi;
    }
  }
}

}  // namespace
}  // namespace veyra
