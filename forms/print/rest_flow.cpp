#include "forms/print/rest_flow.h"

#include <algorithm>

namespace veyra {
namespace {

constexpr double kRounding = 1e-6;

/// Fills one column after the other from the top.
class Flow {
 public:
  explicit Flow(const RestColumns& columns) : columns_(columns) {}

  void Add(const RestOfDay& rest) {
    if (top_ > 0 && !HasRoomFor(columns_.DateHeight, Together(rest.Rows.front()))) {
      NextColumn();
    }
    AddDate(rest.Day, false);
    for (std::size_t line = 0; line < rest.Lines.size(); ++line) {
      AddLine(rest.Day, rest.Lines[line], rest.Rows[line]);
    }
    top_ += columns_.Gap;
  }

  std::vector<RestPiece> Pieces;

 private:
  void NextColumn() {
    top_ = 0;
    rows_ = 0;
    column_ = (column_ + 1) % columns_.PerPage;
    page_ += column_ == 0 ? 1 : 0;
  }

  void AddDate(std::size_t day, bool is_continued) {
    Pieces.push_back({.Day = day,
                      .Line = std::nullopt,
                      .Rows = 1,
                      .IsContinued = is_continued,
                      .Page = page_,
                      .Column = column_,
                      .Top = top_});
    top_ += columns_.DateHeight;
  }

  bool HasRoomFor(double height, int rows) const {
    return top_ + height + rows * columns_.RowHeight <= columns_.Height + kRounding;
  }

  int RowsBelow(double top) const {
    return static_cast<int>((columns_.Height - top) / columns_.RowHeight + kRounding);
  }

  /// How many of a line's rows must stand in one column.
  int Together(int rows) const { return rows <= RowsBelow(columns_.DateHeight) ? rows : 1; }

  void AddLine(std::size_t day, std::size_t line, int rows) {
    for (int first = 0; first < rows;) {
      if (rows_ > 0 && !HasRoomFor(0, Together(rows))) {
        NextColumn();
        AddDate(day, true);
      }
      const int taken = std::min(rows - first, std::max(1, RowsBelow(top_)));
      Pieces.push_back({.Day = day,
                        .Line = line,
                        .FirstRow = first,
                        .Rows = taken,
                        .Page = page_,
                        .Column = column_,
                        .Top = top_});
      first += taken;
      rows_ += taken;
      top_ += taken * columns_.RowHeight;
    }
  }

  const RestColumns& columns_;
  int page_ = 0;
  int column_ = 0;
  double top_ = 0;
  int rows_ = 0;  ///< In this column.
};

}  // namespace

std::vector<RestPiece> FlowRest(const std::vector<RestOfDay>& rest, const RestColumns& columns) {
  Flow flow(columns);
  for (const RestOfDay& day : rest) {
    flow.Add(day);
  }
  return flow.Pieces;
}

}  // namespace veyra
