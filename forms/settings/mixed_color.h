#pragma once

namespace veyra {

/// The colour that is mixed in the colour settings window, which outlives it. Its parts are 0 to
/// 255 each.
struct MixedColor {
  int CustomRed = 0;
  int CustomGreen = 0;
  int CustomBlue = 0;
};

}  // namespace veyra
