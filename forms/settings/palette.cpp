#include "forms/settings/palette.h"

namespace veyra {
namespace {

constexpr std::int32_t kButtonFace = static_cast<std::int32_t>(0x8000000FU);

/// The colour number of #RRGGBB, which has red in its lowest byte.
constexpr std::int32_t Web(std::int32_t rrggbb) {
  return ((rrggbb & 0xFF) << 16) | (rrggbb & 0xFF00) | ((rrggbb >> 16) & 0xFF);
}

}  // namespace

// Column by column, each from light to dark. 0x804040 breaks the pattern of its column by design.
const OneBased<std::int32_t, 48> kPalette(
    {kButtonFace,   Web(0xE0E0E0), Web(0xC0C0C0), Web(0x808080), Web(0x404040), Web(0x000000),
     Web(0xFFC0C0), Web(0xFF8080), Web(0xFF0000), Web(0xC00000), Web(0x800000), Web(0x400000),
     Web(0xFFE0C0), Web(0xFFC080), Web(0xFF8000), Web(0xC04000), Web(0x804000), Web(0x804040),
     Web(0xFFFFC0), Web(0xFFFF80), Web(0xFFFF00), Web(0xC0C000), Web(0x808000), Web(0x404000),
     Web(0xC0FFC0), Web(0x80FF80), Web(0x00FF00), Web(0x00C000), Web(0x008000), Web(0x004000),
     Web(0xC0FFFF), Web(0x80FFFF), Web(0x00FFFF), Web(0x00C0C0), Web(0x008080), Web(0x004040),
     Web(0xC0C0FF), Web(0x8080FF), Web(0x0000FF), Web(0x0000C0), Web(0x000080), Web(0x000040),
     Web(0xFFC0FF), Web(0xFF80FF), Web(0xFF00FF), Web(0xC000C0), Web(0x800080), Web(0x400040)});

}  // namespace veyra
