#include "forms/contrast.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace veyra {
namespace {

constexpr Rgb kBlack{0, 0, 0};
constexpr Rgb kWhite{255, 255, 255};
constexpr int kSteps = 255;

double Linear(std::uint8_t channel) {
  const double share = channel / 255.0;
  return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double Luminance(Rgb color) {
  return 0.2126 * Linear(color.Red) + 0.7152 * Linear(color.Green) + 0.0722 * Linear(color.Blue);
}

/// The shade after so many of kSteps steps.
Rgb Shade(Rgb from, Rgb to, int step) {
  const auto mix = [step](std::uint8_t first, std::uint8_t last) {
    return static_cast<std::uint8_t>(first + (last - first) * step / kSteps);
  };
  return {mix(from.Red, to.Red), mix(from.Green, to.Green), mix(from.Blue, to.Blue)};
}

/// After how many steps towards `end` the shade can be read; nothing when none of them can.
std::optional<int> StepsTowards(Rgb end, Rgb wanted, Rgb background) {
  for (int step = 0; step <= kSteps; ++step) {
    if (Contrast(Shade(wanted, end, step), background) >= kReadableContrast) {
      return step;
    }
  }
  return std::nullopt;
}

}  // namespace

double Contrast(Rgb one, Rgb other) {
  const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

/// On any background black or white can be read.
Rgb Readable(Rgb wanted, Rgb background) {
  const auto lighter = StepsTowards(kWhite, wanted, background);
  const auto darker = StepsTowards(kBlack, wanted, background);
  if (!lighter || (darker && *darker < *lighter)) {
    return Shade(wanted, kBlack, darker.value_or(kSteps));
  }
  return Shade(wanted, kWhite, *lighter);
}

}  // namespace veyra
