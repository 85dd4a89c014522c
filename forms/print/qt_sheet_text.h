#pragma once

#include <QFont>
#include <QString>

#include "forms/print/sheet_layout.h"
#include "forms/print/text_measure.h"

class QPainter;

namespace veyra {

/// The fonts of a sheet. Texts are measured and drawn in twentieths of a point, so that they take
/// the same rows on every device.
class QtSheetText : public TextMeasure {
 public:
  static constexpr double kUnitsPerPoint = 20;

  std::string TextOf(const Phrase& phrase) const override;
  double WidthOf(TextKind kind, const std::string& text, double size) const override;
  int RowsOf(TextKind kind, const std::string& text, double width, double size) const override;

  /// Draws the rows of the text in the painter's pen, as text.
  /// REQUIRES: a unit of the painter is one of ours.
  void Draw(QPainter& painter, const PlacedText& text) const;
};

}  // namespace veyra
