#pragma once

#include "forms/colors.h"

namespace veyra {

/// The least ratio of contrast at which text of any size reads well: WCAG 2.1, level AA.
inline constexpr double kReadableContrast = 4.5;

/// The ratio of contrast of two colours as WCAG 2.1 has it: 1 for equal ones to 21 for black and
/// white, whichever comes first.
double Contrast(Rgb one, Rgb other);

/// The colour in which text is drawn on that background: `wanted` where it can be read there,
/// otherwise the nearest shade on its way to white or to black that can be.
Rgb Readable(Rgb wanted, Rgb background);

}  // namespace veyra
