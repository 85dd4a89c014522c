#pragma once

#include <cstddef>
#include <vector>

#include "forms/print/sheet.h"
#include "forms/print/text_measure.h"

namespace veyra {

/// No line is printed smaller than this, in points.
inline constexpr double kSmallestLine = 6;

/// The room for the lines of a sheet's days, in points.
struct LineRoom {
  int Columns = 1;
  double Width = 0;     ///< Of a line.
  double Height = 0;    ///< Of all rows of cells together.
  double Overhead = 0;  ///< What a cell takes beside its lines.
  double Largest = 0;   ///< Size of the lines where they have room enough.
};

/// How the rows of cells share the paper.
struct LineFit {
  double Size = 0;  ///< Of every line of the sheet.
  std::vector<double> RowHeights;

  /// By day, and by its lines: whether the line is so long that it goes to another page in any
  /// case, for it would take more than an even share of the height at kSmallestLine.
  std::vector<std::vector<bool>> IsLong;
};

/// Finds the largest size, in half points from kSmallestLine to `room.Largest`, at which all lines
/// but the long ones fit in their cells, the rows of cells sharing the height as they need it;
/// kSmallestLine where they never do. A row of little need keeps half of an even share.
/// REQUIRES: at least one day.
LineFit FitLines(const std::vector<SheetDay>& days, const LineRoom& room,
                 const TextMeasure& measure);

/// How many rows each line takes.
std::vector<int> RowsOfLines(const modRes::DayLines& lines, double width, double size,
                             const TextMeasure& measure);

/// The height of these lines, one below the other, of so many rows each.
double HeightOfLines(const std::vector<int>& rows, double size);

/// Shares `total` among those that need so much each. What is left over makes the smallest shares
/// larger first; what is wanting makes the largest smaller first.
std::vector<double> ShareHeight(const std::vector<double>& needs, double total);

/// The lines of a day, by their places from 0.
struct CellShare {
  std::vector<std::size_t> Shown;
  std::vector<std::size_t> Left;  ///< For another page.
};

/// Which lines, of so many rows each, a cell has room for: all of them, or the first ones with a
/// row of room for the note on the others. Long lines are passed over.
CellShare ShareCell(const std::vector<int>& rows, const std::vector<bool>& is_long, double size,
                    double height);

}  // namespace veyra
