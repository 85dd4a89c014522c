#include "forms/colors.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <ostream>
#include <string>
#include <variant>

namespace veyra {
namespace {

using Color = std::variant<Rgb, ThemeColor>;

constexpr std::int32_t kSystemColor = std::numeric_limits<std::int32_t>::min();

struct Direct {
  std::string Name;
  std::int32_t Number;
  Rgb Expected;
};

void PrintTo(const Direct& value, std::ostream* out) {
  *out << value.Name;
}

class DirectColorTest : public testing::TestWithParam<Direct> {};

TEST_P(DirectColorTest, HasRedInTheLowestByte) {
  EXPECT_EQ(Color(GetParam().Expected), ColorOf(GetParam().Number));
}

INSTANTIATE_TEST_SUITE_P(, DirectColorTest,
                         testing::Values(Direct{"Black", 0, {0, 0, 0}},
                                         Direct{"Red", 255, {255, 0, 0}},
                                         Direct{"Green", 0x00FF00, {0, 255, 0}},
                                         Direct{"Blue", 0xFF0000, {0, 0, 255}},
                                         Direct{"DarkBlue", 12582912, {0, 0, 0xC0}},
                                         Direct{"White", 16777215, {255, 255, 255}},
                                         Direct{"Mixed", 0x302010, {0x10, 0x20, 0x30}},
                                         Direct{"BitsAbove24", 0x1FFFFFF, {255, 255, 255}},
                                         Direct{"Largest", 0x7F302010, {0x10, 0x20, 0x30}}),
                         [](const auto& test) { return test.param.Name; });

struct Theme {
  int Index;
  ThemeColor Expected;
};

void PrintTo(const Theme& value, std::ostream* out) {
  *out << value.Index;
}

class ThemeColorTest : public testing::TestWithParam<Theme> {};

TEST_P(ThemeColorTest, IsNamedByItsIndex) {
  EXPECT_EQ(Color(GetParam().Expected), ColorOf(kSystemColor + GetParam().Index));
}

INSTANTIATE_TEST_SUITE_P(
    , ThemeColorTest,
    testing::Values(Theme{0, ThemeColor::ScrollBar}, Theme{1, ThemeColor::Desktop},
                    Theme{2, ThemeColor::ActiveTitle}, Theme{3, ThemeColor::InactiveTitle},
                    Theme{4, ThemeColor::Menu}, Theme{5, ThemeColor::Window},
                    Theme{6, ThemeColor::WindowFrame}, Theme{7, ThemeColor::MenuText},
                    Theme{8, ThemeColor::WindowText}, Theme{9, ThemeColor::ActiveTitleText},
                    Theme{10, ThemeColor::ActiveBorder}, Theme{11, ThemeColor::InactiveBorder},
                    Theme{12, ThemeColor::ApplicationWorkspace}, Theme{13, ThemeColor::Highlight},
                    Theme{14, ThemeColor::HighlightText}, Theme{15, ThemeColor::ButtonFace},
                    Theme{16, ThemeColor::ButtonShadow}, Theme{17, ThemeColor::GrayText},
                    Theme{18, ThemeColor::ButtonText}, Theme{19, ThemeColor::InactiveTitleText},
                    Theme{20, ThemeColor::ButtonHighlight}, Theme{21, ThemeColor::ButtonDarkShadow},
                    Theme{22, ThemeColor::ButtonLight}, Theme{23, ThemeColor::TooltipText},
                    Theme{24, ThemeColor::Tooltip}, Theme{26, ThemeColor::HotTrack},
                    Theme{27, ThemeColor::ActiveTitleGradient},
                    Theme{28, ThemeColor::InactiveTitleGradient},
                    Theme{29, ThemeColor::MenuHighlight}, Theme{30, ThemeColor::MenuBar}),
    [](const auto& test) { return "Index" + std::to_string(test.param.Index); });

class MeaninglessColorTest : public testing::TestWithParam<int> {};

TEST_P(MeaninglessColorTest, IsTheWindowBackground) {
  EXPECT_EQ(Color(ThemeColor::Window), ColorOf(kSystemColor + GetParam()));
}

INSTANTIATE_TEST_SUITE_P(, MeaninglessColorTest, testing::Values(25, 31, 32, 127, 128, 255),
                         [](const auto& test) { return "Index" + std::to_string(test.param); });

TEST(ColorOfTest, TakesTheDefaultBackgroundForTheWindow) {
  EXPECT_EQ(Color(ThemeColor::Window), ColorOf(-2147483643));
}

TEST(ColorOfTest, TakesMinusOneForTheWindow) {
  EXPECT_EQ(Color(ThemeColor::Window), ColorOf(-1));
}

TEST(ColorOfTest, TakesTheIndexFromTheLowByteOnly) {
  EXPECT_EQ(Color(ThemeColor::Highlight), ColorOf(kSystemColor + 0x12340D));
}

}  // namespace
}  // namespace veyra
