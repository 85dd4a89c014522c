#include "forms/print/sheet_layout.h"

#include <algorithm>
#include <cmath>

#include "forms/print/line_fit.h"
#include "forms/print/rest_flow.h"

namespace veyra {
namespace {

/// The shorter side of a sheet of A4 within its margins.
constexpr double kCommonWidth = 538;
constexpr double kSmallestScale = 0.7;
constexpr double kLargestScale = 2;

// Lengths and sizes of type on a sheet of A4, in points.
constexpr double kTitleSize = 24;
constexpr double kRoomSize = 14;
constexpr double kHeaderSize = 10;
constexpr double kNumberSize = 11;
constexpr double kDateSize = 11;
constexpr double kFooterSize = 8;
constexpr double kRestSize = 9;
constexpr double kRestColumn = 175;
constexpr double kGap = 3;
constexpr double kInset = 2.5;
constexpr double kLineInset = 1.5;

/// Leaves a text that was made smaller a little less than its room: sizes are rounded.
constexpr double kSpare = 0.98;

constexpr double kTitleShare = 0.6;
constexpr int kRoomRows = 2;
constexpr double kHighestRoom = 1.0 / 3;  ///< Of the page.

/// The places of the cells.
struct Grid {
  int Columns = 1;
  double Top = 0;
  double ColumnWidth = 0;
  double Gap = 0;
  LineFit Fit = {};
};

class Layouter {
 public:
  Layouter(const Sheet& sheet, double width, double height, const TextMeasure& measure)
      : sheet_(sheet),
        measure_(measure),
        width_(width),
        height_(height),
        columns_(width < height ? sheet.UprightColumns : sheet.Columns) {
    title_ = measure_.TextOf(sheet_.Title);
    layout_.Scale =
        std::clamp(std::min(width, height) / kCommonWidth, kSmallestScale, kLargestScale);
  }

  SheetLayout LayOut() {
    layout_.Pages.emplace_back();
    const double top = PlaceHead();
    grid_ = GridBelow(PlaceHeaders(top));
    layout_.LineSize = grid_.Fit.Size;
    std::vector<RestOfDay> rest;
    for (std::size_t day = 0; day < sheet_.Days.size(); ++day) {
      PlaceDay(day, rest);
    }
    PlaceRest(rest, top);
    PlaceFooters();
    return std::move(layout_);
  }

 private:
  double Points(double length) const { return length * layout_.Scale; }

  SheetPage& LastPage() { return layout_.Pages.back(); }

  void Place(PlacedText text) { LastPage().Texts.push_back(std::move(text)); }

  /// Returns the height of the head: the title, and the facility's name beside it on one foot.
  double PlaceHead() {
    const double title_room = sheet_.Room.empty() ? width_ : width_ * kTitleShare;
    const double natural = measure_.WidthOf(TextKind::Title, title_, Points(kTitleSize));
    const double size = Points(kTitleSize) * std::min(1.0, title_room / natural);
    const double taken = std::min(natural, title_room) + Points(kTitleSize);
    PlacedText room = RoomWithin(width_ - taken);
    const double room_height = room.Size * kRowHeight * room.Rows.value_or(0);
    const double title_height = Points(kTitleSize) * kRowHeight;
    const double height = std::max(room_height, title_height);
    const double foot = height - title_height + Points(kTitleSize) * kBaseline;
    Place({.Kind = TextKind::Title,
           .Text = title_,
           .Top = foot - size * kBaseline,
           .Width = width_,
           .Size = size});
    if (!sheet_.Room.empty()) {
      room.Left = taken;
      room.Top = foot - room_height + room.Size * (kRowHeight - kBaseline);
      Place(room);
    }
    return height + Points(kGap);
  }

  /// The facility's name: in one row, in two, then smaller; at last in more rows, and smaller
  /// still.
  PlacedText RoomWithin(double width) const {
    PlacedText room{.Kind = TextKind::Room,
                    .Text = sheet_.Room,
                    .Width = width,
                    .Size = Points(kRoomSize),
                    .Side = TextSide::Right,
                    .Rows = 0};
    if (sheet_.Room.empty()) {
      return room;
    }
    const auto count = [&] { return measure_.RowsOf(room.Kind, room.Text, width, room.Size); };
    room.Rows = count();
    while (*room.Rows > kRoomRows && room.Size > kSmallestLine) {
      room.Size = std::max(kSmallestLine, room.Size - 0.5);
      room.Rows = count();
    }
    while (*room.Rows * room.Size * kRowHeight > height_ * kHighestRoom) {
      room.Size *= 0.9;
      room.Rows = count();
    }
    return room;
  }

  double ColumnLeft(int column) const { return column * (ColumnWidth() + Points(kGap)); }

  double ColumnWidth() const { return (width_ - (columns_ - 1) * Points(kGap)) / columns_; }

  /// Returns where the cells begin.
  double PlaceHeaders(double top) {
    if (sheet_.Headers.empty()) {
      return top + Points(kGap);
    }
    for (int column = 0; column < columns_; ++column) {
      Place(Fitted({.Kind = TextKind::Header,
                    .Text = sheet_.Headers.at(static_cast<std::size_t>(column)),
                    .Left = ColumnLeft(column),
                    .Top = top,
                    .Width = ColumnWidth(),
                    .Size = Points(kHeaderSize),
                    .Side = TextSide::Middle}));
    }
    return top + Points(kHeaderSize) * kRowHeight + Points(kGap);
  }

  /// The text in one row, smaller where it would not fit.
  PlacedText Fitted(PlacedText text) const {
    const double natural = measure_.WidthOf(text.Kind, text.Text, text.Size);
    if (natural > text.Width) {
      text.Size *= kSpare * text.Width / natural;
    }
    return text;
  }

  double NumberHeight() const {
    const bool has_numbers = std::any_of(sheet_.Days.begin(), sheet_.Days.end(),
                                         [](const SheetDay& day) { return !day.Number.IsEmpty(); });
    return Points(has_numbers ? kNumberSize * 1.3 : 2 * kInset);
  }

  Grid GridBelow(double top) const {
    Grid grid{.Columns = columns_, .Top = top, .ColumnWidth = ColumnWidth(), .Gap = Points(kGap)};
    const int rows = sheet_.Days.back().Place / columns_ + 1;
    const double inset = 2 * Points(kInset + kLineInset);
    grid.Fit = FitLines(sheet_.Days,
                        {.Columns = columns_,
                         .Width = grid.ColumnWidth - inset,
                         .Height = height_ - top - (rows - 1) * grid.Gap,
                         .Overhead = NumberHeight() + Points(kInset + kLineInset),
                         .Largest = std::max(kSmallestLine, Points(sheet_.LargestLine))},
                        measure_);
    return grid;
  }

  Box FrameOf(const SheetDay& day) const {
    const int row = day.Place / columns_;
    double top = grid_.Top;
    for (int above = 0; above < row; ++above) {
      top += grid_.Fit.RowHeights.at(static_cast<std::size_t>(above)) + grid_.Gap;
    }
    return {ColumnLeft(day.Place % columns_), top, grid_.ColumnWidth,
            grid_.Fit.RowHeights.at(static_cast<std::size_t>(row))};
  }

  Box ListWithin(const Box& frame) const {
    const double inset = Points(kInset);
    return {frame.Left + inset, frame.Top + NumberHeight(), frame.Width - 2 * inset,
            frame.Height - NumberHeight() - inset};
  }

  void PlaceDay(std::size_t index, std::vector<RestOfDay>& rest) {
    const SheetDay& day = sheet_.Days[index];
    const PlacedCell cell{index, FrameOf(day), ListWithin(FrameOf(day))};
    LastPage().Cells.push_back(cell);
    if (!day.Number.IsEmpty()) {
      Place(Fitted({.Kind = day.IsToday ? TextKind::TodaysNumber : TextKind::Number,
                    .Text = measure_.TextOf(day.Number),
                    .Left = cell.Frame.Left + Points(kInset + 1),
                    .Top = cell.Frame.Top + Points(kNumberSize * 0.12),
                    .Width = cell.Frame.Width - 2 * Points(kInset + 1),
                    .Size = Points(kNumberSize),
                    .Day = index}));
    }
    PlaceLines(cell, rest);
  }

  void PlaceLines(const PlacedCell& cell, std::vector<RestOfDay>& rest) {
    const SheetDay& day = sheet_.Days[cell.Day];
    const double size = grid_.Fit.Size;
    const double inset = Points(kLineInset);
    const double width = cell.List.Width - 2 * inset;
    const std::vector<int> rows = RowsOfLines(day.Lines, width, size, measure_);
    const CellShare share =
        ShareCell(rows, grid_.Fit.IsLong[cell.Day], size, cell.List.Height - inset);
    std::vector<int> above;
    for (const std::size_t line : share.Shown) {
      above.push_back(rows[line]);
      const double height = HeightOfLines({rows[line]}, size);
      Place({.Text = day.Lines[line],
             .Left = cell.List.Left + inset,
             .Top = cell.List.Top + HeightOfLines(above, size) - height,
             .Width = width,
             .Size = size,
             .Day = cell.Day});
    }
    if (!share.Left.empty()) {
      NoteRest(cell, share.Left, rest);
    }
  }

  /// What the sheet itself does not say, in its language.
  std::string Added(const Phrase& words) const {
    return sheet_.IsEnglish ? words.English() : measure_.TextOf(words);
  }

  /// The words of the note come when it is known which page the lines go to.
  void NoteRest(const PlacedCell& cell, const std::vector<std::size_t>& left,
                std::vector<RestOfDay>& rest) {
    const double inset = Points(kLineInset);
    rest.push_back({cell.Day, left, {}});
    Place({.Kind = TextKind::More,
           .Left = cell.List.Left + inset,
           .Top = cell.List.Top + cell.List.Height - grid_.Fit.Size * kRowHeight,
           .Width = cell.List.Width - 2 * inset,
           .Size = grid_.Fit.Size,
           .Day = cell.Day});
  }

  double RestGap() const { return Points(4 * kGap); }

  double RestWidth(int per_page) const { return (width_ - (per_page - 1) * RestGap()) / per_page; }

  /// Counts the rows of what is left in columns of that number; returns the most that a line takes.
  int CountRows(std::vector<RestOfDay>& rest, int per_page) const {
    int most = 0;
    for (RestOfDay& day : rest) {
      day.Rows.clear();
      for (const std::size_t line : day.Lines) {
        day.Rows.push_back(measure_.RowsOf(TextKind::Line, sheet_.Days[day.Day].Lines[line],
                                           RestWidth(per_page), Points(kRestSize)));
        most = std::max(most, day.Rows.back());
      }
    }
    return most;
  }

  /// As many columns as there is width for, but so few that each line fits in one.
  RestColumns ColumnsFor(std::vector<RestOfDay>& rest, double height) const {
    RestColumns columns{.PerPage = std::max(1, static_cast<int>(width_ / Points(kRestColumn))),
                        .Height = height,
                        .DateHeight = Points(kDateSize) * 1.4,
                        .RowHeight = Points(kRestSize) * kRowHeight,
                        .Gap = Points(kRestSize) * kRowHeight};
    while (columns.DateHeight + CountRows(rest, columns.PerPage) * columns.RowHeight > height &&
           columns.PerPage > 1) {
      --columns.PerPage;
    }
    return columns;
  }

  void PlaceRest(std::vector<RestOfDay>& rest, double head) {
    const double top = head + Points(2 * kGap);
    const RestColumns columns = ColumnsFor(rest, height_ - top - 2 * Points(kFooterSize));
    for (const RestPiece& piece : FlowRest(rest, columns)) {
      while (layout_.Pages.size() < static_cast<std::size_t>(piece.Page) + 2) {
        layout_.Pages.emplace_back();
        PlaceHead();
      }
      if (!piece.Line && !piece.IsContinued) {
        CompleteNote(piece, rest);
      }
      Place(TextOf(piece, top, RestWidth(columns.PerPage)));
    }
  }

  void CompleteNote(const RestPiece& date, const std::vector<RestOfDay>& rest) {
    const auto left = std::find_if(rest.begin(), rest.end(),
                                   [&date](const RestOfDay& day) { return day.Day == date.Day; });
    for (PlacedText& text : layout_.Pages.front().Texts) {
      if (text.Kind == TextKind::More && text.Day == date.Day) {
        text.Text = Added(Phrase::Tr("+%1 more, page %2", left->Lines.size(), date.Page + 2));
        text = Fitted(text);
      }
    }
  }

  PlacedText TextOf(const RestPiece& piece, double top, double width) const {
    const SheetDay& day = sheet_.Days[piece.Day];
    PlacedText text{
        .Left = piece.Column * (width + RestGap()), .Top = top + piece.Top, .Width = width};
    if (!piece.Line) {
      text.Kind = TextKind::Heading;
      text.Text = measure_.TextOf(day.Date);
      text.Text = piece.IsContinued ? Added(Phrase::Tr("%1, continued", text.Text)) : text.Text;
      text.Size = Points(kDateSize);
      return Fitted(text);
    }
    text.Kind = TextKind::Line;
    text.Text = day.Lines.at(*piece.Line);
    text.Size = Points(kRestSize);
    text.FirstRow = piece.FirstRow;
    text.Rows = piece.Rows;
    return text;
  }

  void PlaceFooters() {
    for (std::size_t page = 1; page < layout_.Pages.size(); ++page) {
      layout_.Pages[page].Texts.push_back(
          {.Kind = TextKind::Footer,
           .Text = Added(Phrase::Tr("Page %1 of %2", page + 1, layout_.Pages.size())),
           .Top = height_ - Points(kFooterSize) * kRowHeight,
           .Width = width_,
           .Size = Points(kFooterSize),
           .Side = TextSide::Right});
    }
  }

  const Sheet& sheet_;
  const TextMeasure& measure_;
  const double width_;
  const double height_;
  const int columns_;
  std::string title_;
  Grid grid_;
  SheetLayout layout_;
};

}  // namespace

SheetLayout LayOutSheet(const Sheet& sheet, double width, double height,
                        const TextMeasure& measure) {
  return Layouter(sheet, width, height, measure).LayOut();
}

}  // namespace veyra
