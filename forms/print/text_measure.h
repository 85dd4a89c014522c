#pragma once

#include <string>

#include "data/phrase.h"

namespace veyra {

/// What a text on a sheet is. Each kind has a font of its own.
enum class TextKind { Title, Room, Header, Number, TodaysNumber, Line, More, Heading, Footer };

/// The height of a row of text, in sizes of its type.
inline constexpr double kRowHeight = 1.18;

/// How far below the top of its row a text stands, in sizes of its type.
inline constexpr double kBaseline = 0.98;

/// What a text takes on paper. Widths and sizes are in points.
class TextMeasure {
 public:
  virtual ~TextMeasure() = default;

  /// The text as it is printed, in the operator's language.
  virtual std::string TextOf(const Phrase& phrase) const = 0;

  /// The width of the whole text in one row.
  virtual double WidthOf(TextKind kind, const std::string& text, double size) const = 0;

  /// How many rows the text takes when it is wrapped at `width`, at least 1. A word that is wider
  /// is broken.
  virtual int RowsOf(TextKind kind, const std::string& text, double width, double size) const = 0;
};

}  // namespace veyra
