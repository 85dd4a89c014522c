#pragma once

namespace veyra {

/// A length on the screen: 1/1440 inch.
using Twips = int;

/// The nearest whole number of pixels, for a screen of that many pixels to the inch (96 gives 15
/// twips to a pixel).
int PixelsFromTwips(Twips twips, double dots_per_inch);

/// The nearest whole number of twips.
Twips TwipsFromPixels(int pixels, double dots_per_inch);

}  // namespace veyra
