#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "forms/print/sheet.h"
#include "forms/print/text_measure.h"

namespace veyra {

/// A place on a page, in points from its upper left corner.
struct Box {
  double Left = 0;
  double Top = 0;
  double Width = 0;
  double Height = 0;
};

enum class TextSide { Left, Middle, Right };

/// Rows of a text in their place.
struct PlacedText {
  TextKind Kind = TextKind::Line;
  std::string Text = {};
  double Left = 0;   ///< Of the room that it has.
  double Top = 0;    ///< Of the first of the rows to be drawn.
  double Width = 0;  ///< Of the room, at which it is wrapped.
  double Size = 0;
  TextSide Side = TextSide::Left;
  int FirstRow = 0;
  std::optional<int> Rows = {};         ///< How many of them are to be drawn; nothing is all.
  std::optional<std::size_t> Day = {};  ///< Whose colours it has; nothing for those of the head.
};

/// The cell of a day.
struct PlacedCell {
  std::size_t Day = 0;  ///< Among those of the sheet.
  Box Frame;
  Box List;
};

struct SheetPage {
  std::vector<PlacedCell> Cells;
  std::vector<PlacedText> Texts;  ///< In reading order.
};

struct SheetLayout {
  double Scale = 1;     ///< Of everything but the lines: 1 on a sheet of A4.
  double LineSize = 0;  ///< Of all lines in the cells.
  std::vector<SheetPage> Pages;
};

/// Lays the sheet out on pages of that width and height in points. Everything grows with the paper.
/// The lines of all cells have one size. What their cells have no room for comes on further pages,
/// each day's under its date, and the cell says on which.
SheetLayout LayOutSheet(const Sheet& sheet, double width, double height,
                        const TextMeasure& measure);

}  // namespace veyra
