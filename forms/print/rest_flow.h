#pragma once

#include <cstddef>
#include <optional>
#include <vector>

namespace veyra {

/// What a day leaves to the pages that follow the first.
struct RestOfDay {
  std::size_t Day = 0;  ///< Among those of the sheet.
  std::vector<std::size_t> Lines;
  std::vector<int> Rows;  ///< That each of these lines takes.
};

/// The columns of those pages; heights in points.
struct RestColumns {
  int PerPage = 1;
  double Height = 0;
  double DateHeight = 0;  ///< Of a date that stands over lines.
  double RowHeight = 0;
  double Gap = 0;  ///< After the lines of a day.
};

/// A date, or rows of a line, in its place.
struct RestPiece {
  std::size_t Day = 0;
  std::optional<std::size_t> Line;  ///< Nothing for a date.
  int FirstRow = 0;                 ///< Of the line; counted from 0.
  int Rows = 0;
  bool IsContinued = false;  ///< A date that stands over what its column before had no room for.
  int Page = 0;              ///< Counted from 0, as is the column.
  int Column = 0;
  double Top = 0;
};

/// Fills the columns one after the other. No date stands at a column's foot without a line below
/// it, and none is missing over a column's first row. A line is broken only where it would not fit
/// in a column of its own. A column holds at least one row. REQUIRES: every day has a line.
std::vector<RestPiece> FlowRest(const std::vector<RestOfDay>& rest, const RestColumns& columns);

}  // namespace veyra
