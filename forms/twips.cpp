#include "forms/twips.h"

#include <cmath>

namespace veyra {
namespace {

constexpr double kTwipsPerInch = 1440;

}  // namespace

int PixelsFromTwips(Twips twips, double dots_per_inch) {
  return static_cast<int>(std::lround(twips * dots_per_inch / kTwipsPerInch));
}

Twips TwipsFromPixels(int pixels, double dots_per_inch) {
  return static_cast<Twips>(std::lround(pixels * kTwipsPerInch / dots_per_inch));
}

}  // namespace veyra
