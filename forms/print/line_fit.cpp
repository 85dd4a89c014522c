#include "forms/print/line_fit.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace veyra {
namespace {

constexpr double kStep = 0.5;
constexpr double kGapOfLines = 0.2;  ///< Between two lines, in sizes of their type.
constexpr double kLeastShare = 0.5;
constexpr double kRounding = 1e-6;

bool Fits(const std::vector<double>& needs, double height) {
  return std::accumulate(needs.begin(), needs.end(), 0.0) <= height + kRounding;
}

/// The share of those who do not get just what they need. `most_first` where that is more.
double LevelOf(std::vector<double> needs, double total, bool most_first) {
  std::sort(needs.begin(), needs.end());
  if (most_first) {
    std::reverse(needs.begin(), needs.end());
  }
  auto left = static_cast<double>(needs.size());
  for (const double need : needs) {
    const bool is_settled = most_first ? need > total / left : need < total / left;
    if (!is_settled) {
      break;
    }
    total -= need;
    left -= 1;
  }
  return left > 0 ? total / left : 0;
}

/// Tries sizes for the lines of all days.
class Trial {
 public:
  Trial(const std::vector<SheetDay>& days, const LineRoom& room, const TextMeasure& measure)
      : days_(days),
        room_(room),
        measure_(measure),
        rows_(static_cast<std::size_t>(days.back().Place / room.Columns + 1)) {
    for (const SheetDay& day : days) {
      IsLong.push_back(LongOnes(day));
    }
  }

  /// What each row of cells needs at that size.
  std::vector<double> NeedsAt(double size) const {
    std::vector<double> needs(rows_, kLeastShare * EvenShare());
    for (std::size_t index = 0; index < days_.size(); ++index) {
      double& need = needs.at(static_cast<std::size_t>(days_[index].Place / room_.Columns));
      need = std::max(need, room_.Overhead + HeightAt(size, index));
    }
    return needs;
  }

  std::vector<std::vector<bool>> IsLong;

 private:
  double EvenShare() const { return room_.Height / static_cast<double>(rows_); }

  /// The note on them must have its row beside the longest line that is not.
  std::vector<bool> LongOnes(const SheetDay& day) const {
    const double tallest = EvenShare() - room_.Overhead - kRowHeight * kSmallestLine;
    std::vector<bool> is_long;
    for (const int rows : RowsOfLines(day.Lines, room_.Width, kSmallestLine, measure_)) {
      is_long.push_back(HeightOfLines({rows}, kSmallestLine) > tallest);
    }
    return is_long;
  }

  double HeightAt(double size, std::size_t index) const {
    std::vector<int> rows = RowsOfLines(days_[index].Lines, room_.Width, size, measure_);
    for (std::size_t line = 0; line < rows.size(); ++line) {
      rows[line] = IsLong[index][line] ? 0 : rows[line];
    }
    if (std::erase(rows, 0) > 0) {
      rows.push_back(1);
    }
    return HeightOfLines(rows, size);
  }

  const std::vector<SheetDay>& days_;
  const LineRoom& room_;
  const TextMeasure& measure_;
  const std::size_t rows_;
};

}  // namespace

LineFit FitLines(const std::vector<SheetDay>& days, const LineRoom& room,
                 const TextMeasure& measure) {
  const Trial trial(days, room, measure);
  const auto size_of = [](int step) { return kSmallestLine + kStep * step; };
  int low = 0;
  int high = std::max(0, static_cast<int>((room.Largest - kSmallestLine) / kStep));
  while (low < high) {
    const int middle = (low + high + 1) / 2;
    if (Fits(trial.NeedsAt(size_of(middle)), room.Height)) {
      low = middle;
    } else {
      high = middle - 1;
    }
  }
  const double size = size_of(low);
  return {size, ShareHeight(trial.NeedsAt(size), room.Height), trial.IsLong};
}

std::vector<int> RowsOfLines(const modRes::DayLines& lines, double width, double size,
                             const TextMeasure& measure) {
  std::vector<int> rows;
  for (const std::string& line : lines) {
    rows.push_back(measure.RowsOf(TextKind::Line, line, width, size));
  }
  return rows;
}

double HeightOfLines(const std::vector<int>& rows, double size) {
  if (rows.empty()) {
    return 0;
  }
  const double gaps = kGapOfLines * static_cast<double>(rows.size() - 1);
  return size * (kRowHeight * std::accumulate(rows.begin(), rows.end(), 0) + gaps);
}

std::vector<double> ShareHeight(const std::vector<double>& needs, double total) {
  const bool has_room = Fits(needs, total);
  const double level = LevelOf(needs, total, has_room);
  std::vector<double> shares;
  for (const double need : needs) {
    shares.push_back(has_room ? std::max(need, level) : std::min(need, level));
  }
  return shares;
}

CellShare ShareCell(const std::vector<int>& rows, const std::vector<bool>& is_long, double size,
                    double height) {
  const bool has_long = std::find(is_long.begin(), is_long.end(), true) != is_long.end();
  const bool fits = !has_long && HeightOfLines(rows, size) <= height + kRounding;
  const double room = fits ? height : height - kRowHeight * size;
  CellShare share;
  std::vector<int> shown;
  bool is_full = false;
  for (std::size_t line = 0; line < rows.size(); ++line) {
    shown.push_back(rows[line]);
    is_full = is_full || (!is_long[line] && HeightOfLines(shown, size) > room + kRounding);
    if (is_full || is_long[line]) {
      shown.pop_back();
      share.Left.push_back(line);
    } else {
      share.Shown.push_back(line);
    }
  }
  return share;
}

}  // namespace veyra
