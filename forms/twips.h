#pragma once

namespace veyra {

/// A length on the screen: 1/1440 inch.
using Twips = int;

/// The nearest whole number of pixels, the middle rounded away from zero, for a screen of that many
/// pixels to the inch (96 gives 15 twips to a pixel). REQUIRES: dots_per_inch > 0.
int PixelsFromTwips(Twips twips, double dots_per_inch);

/// The nearest whole number of twips, rounded likewise. REQUIRES: dots_per_inch > 0.
Twips TwipsFromPixels(int pixels, double dots_per_inch);

}  // namespace veyra
