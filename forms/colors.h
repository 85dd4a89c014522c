#pragma once

#include <cstdint>
#include <variant>

namespace veyra {

/// A colour of the screen.
struct Rgb {
  std::uint8_t Red = 0;
  std::uint8_t Green = 0;
  std::uint8_t Blue = 0;

  bool operator==(const Rgb&) const = default;
};

/// A part of the desktop's theme, whose colour only the toolkit knows.
enum class ThemeColor {
  ScrollBar,
  Desktop,
  ActiveTitle,
  InactiveTitle,
  Menu,
  Window,
  WindowFrame,
  MenuText,
  WindowText,
  ActiveTitleText,
  ActiveBorder,
  InactiveBorder,
  ApplicationWorkspace,
  Highlight,
  HighlightText,
  ButtonFace,
  ButtonShadow,
  GrayText,
  ButtonText,
  InactiveTitleText,
  ButtonHighlight,
  ButtonDarkShadow,
  ButtonLight,
  TooltipText,
  Tooltip,
  HotTrack,
  ActiveTitleGradient,
  InactiveTitleGradient,
  MenuHighlight,
  MenuBar,
};

/// What a colour number stands for: with the top bit set a part of the theme, by the classic
/// index 0 to 30 in its low byte (an index without a meaning is the window background); otherwise a
/// direct colour with red in the lowest byte, then green, then blue.
std::variant<Rgb, ThemeColor> ColorOf(std::int32_t number);

}  // namespace veyra
