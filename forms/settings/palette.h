#pragma once

#include <cstdint>

#include "data/one_based.h"
#include "forms/twips.h"

namespace veyra {

/// The colour numbers of the palette's squares Colors(1) to Colors(48). Squares run down the
/// columns: 1 to 6 are the first column, a ramp of greys that begins with the theme's button face.
extern const OneBased<std::int32_t, 48> kPalette;

inline constexpr int kPaletteRows = 6;
inline constexpr int kPaletteColumns = 8;

/// The side of a square, the distance from one to the next, and the left and top of the first.
inline constexpr Twips kSquareSide = 375;
inline constexpr Twips kSquareStep = 360;
inline constexpr Twips kFirstSquare = 240;

}  // namespace veyra
