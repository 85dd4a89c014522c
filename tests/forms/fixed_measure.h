#pragma once

#include <algorithm>
#include <cmath>
#include <string>

#include "forms/print/text_measure.h"

namespace veyra {

/// A type whose letters are all half as wide as they are high, and which breaks words anywhere.
class FixedMeasure : public TextMeasure {
 public:
  std::string TextOf(const Phrase& phrase) const override { return phrase.English(); }

  double WidthOf(TextKind, const std::string& text, double size) const override {
    return 0.5 * size * static_cast<double>(text.size());
  }

  int RowsOf(TextKind kind, const std::string& text, double width, double size) const override {
    return std::max(1, static_cast<int>(std::ceil(WidthOf(kind, text, size) / width - 1e-9)));
  }
};

}  // namespace veyra
