#include "forms/colors.h"

#include <array>

namespace veyra {
namespace {

constexpr std::array<ThemeColor, 31> kThemeColors = {
    ThemeColor::ScrollBar,              // 0
    ThemeColor::Desktop,                // 1
    ThemeColor::ActiveTitle,            // 2
    ThemeColor::InactiveTitle,          // 3
    ThemeColor::Menu,                   // 4
    ThemeColor::Window,                 // 5
    ThemeColor::WindowFrame,            // 6
    ThemeColor::MenuText,               // 7
    ThemeColor::WindowText,             // 8
    ThemeColor::ActiveTitleText,        // 9
    ThemeColor::ActiveBorder,           // 10
    ThemeColor::InactiveBorder,         // 11
    ThemeColor::ApplicationWorkspace,   // 12
    ThemeColor::Highlight,              // 13
    ThemeColor::HighlightText,          // 14
    ThemeColor::ButtonFace,             // 15
    ThemeColor::ButtonShadow,           // 16
    ThemeColor::GrayText,               // 17
    ThemeColor::ButtonText,             // 18
    ThemeColor::InactiveTitleText,      // 19
    ThemeColor::ButtonHighlight,        // 20
    ThemeColor::ButtonDarkShadow,       // 21
    ThemeColor::ButtonLight,            // 22
    ThemeColor::TooltipText,            // 23
    ThemeColor::Tooltip,                // 24
    ThemeColor::Window,                 // 25 has no meaning
    ThemeColor::HotTrack,               // 26
    ThemeColor::ActiveTitleGradient,    // 27
    ThemeColor::InactiveTitleGradient,  // 28
    ThemeColor::MenuHighlight,          // 29
    ThemeColor::MenuBar,                // 30
};

ThemeColor ThemeColorOf(std::uint32_t index) {
  return index < kThemeColors.size() ? kThemeColors[index] : ThemeColor::Window;
}

std::uint8_t Byte(std::uint32_t bits, int position) {
  return static_cast<std::uint8_t>(bits >> (8 * position) & 0xFF);
}

}  // namespace

std::variant<Rgb, ThemeColor> ColorOf(std::int32_t number) {
  const auto bits = static_cast<std::uint32_t>(number);
  if (number < 0) {
    return ThemeColorOf(Byte(bits, 0));
  }
  return Rgb{Byte(bits, 0), Byte(bits, 1), Byte(bits, 2)};
}

}  // namespace veyra
