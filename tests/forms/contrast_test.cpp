#include "forms/contrast.h"

#include <gtest/gtest.h>

#include <cmath>

namespace veyra {
namespace {

constexpr Rgb kBlack{0, 0, 0};
constexpr Rgb kWhite{255, 255, 255};

TEST(ContrastTest, ItIsThatOfTheGuidelines) {
  EXPECT_DOUBLE_EQ(21, Contrast(kBlack, kWhite));
  EXPECT_DOUBLE_EQ(1, Contrast(kWhite, kWhite));
  EXPECT_NEAR(4.54, Contrast({0x76, 0x76, 0x76}, kWhite), 0.01);
  EXPECT_NEAR(8.59, Contrast({0, 0, 255}, kWhite), 0.01);
  EXPECT_NEAR(3.998, Contrast(kWhite, {255, 0, 0}), 0.01);
}

struct ReadableCase {
  const char* Name;
  Rgb Wanted;
  Rgb Background;
  Rgb Drawn;
};

class ReadableTest : public testing::TestWithParam<ReadableCase> {};

TEST_P(ReadableTest, IsDrawnSo) {
  const ReadableCase& each = GetParam();
  const Rgb drawn = Readable(each.Wanted, each.Background);
  EXPECT_EQ(each.Drawn, drawn) << int{drawn.Red} << " " << int{drawn.Green} << " "
                               << int{drawn.Blue};
  EXPECT_GE(Contrast(drawn, each.Background), kReadableContrast);
}

INSTANTIATE_TEST_SUITE_P(
    Colors, ReadableTest,
    testing::Values(
        ReadableCase{"BlackOnWhiteAsStored", kBlack, kWhite, kBlack},
        ReadableCase{"BlueOnLightAsStored", {0, 0, 255}, {239, 239, 239}, {0, 0, 255}},
        ReadableCase{"JustEnoughAsStored", {0x76, 0x76, 0x76}, kWhite, {0x76, 0x76, 0x76}},
        ReadableCase{"JustTooLittleDarkened", {0x77, 0x77, 0x77}, kWhite, {0x76, 0x76, 0x76}},
        ReadableCase{"BlackOnDarkLightened", kBlack, {49, 54, 59}, {158, 158, 158}},
        ReadableCase{"BlueOnDarkLightened", {0, 0, 255}, {49, 54, 59}, {146, 146, 255}},
        ReadableCase{"YellowOnLightDarkened", {255, 255, 0}, kWhite, {122, 122, 0}},
        ReadableCase{
            "LightGreyOnMiddleGreyLightened", {200, 200, 200}, {117, 117, 117}, {253, 253, 253}},
        ReadableCase{
            "TheSameColourMovesTheShorterWay", {128, 128, 128}, {128, 128, 128}, {23, 23, 23}}),
    [](const auto& each) { return each.param.Name; });

/// Of every grey, on every grey.
TEST(ContrastTest, SomethingReadableIsFoundOnEveryBackground) {
  for (int ground = 0; ground < 256; ++ground) {
    const auto grey = static_cast<std::uint8_t>(ground);
    for (const Rgb wanted : {kBlack, kWhite, Rgb{grey, grey, grey}, Rgb{255, 0, 0}}) {
      EXPECT_GE(Contrast(Readable(wanted, {grey, grey, grey}), {grey, grey, grey}),
                kReadableContrast)
          << ground;
    }
  }
}

}  // namespace
}  // namespace veyra
