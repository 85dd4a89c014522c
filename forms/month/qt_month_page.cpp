#include "forms/month/qt_month_page.h"

#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPainter>
#include <QPolygonF>
#include <QRectF>
#include <algorithm>
#include <cmath>

#include "forms/qt_colors.h"

namespace veyra {
namespace {

using Day = QtMonthPage::Day;

constexpr int kColumns = 7;
constexpr int kCells = 42;

// Lengths and sizes of type, in points.
constexpr double kPadding = 10;  // between a coloured background's edge and what stands on it
constexpr double kGap = 3;
constexpr double kFrame = 0.5;
constexpr double kTodaysFrame = 1.4;
constexpr double kInset = 3.5;
constexpr double kTitleSize = 26;
constexpr double kRoomSize = 15;
constexpr double kWeekdaySize = 10;
constexpr double kNumberSize = 12;
constexpr double kLargestLine = 9;
constexpr double kSmallestLine = 4;

/// Room for a line, and for a title, in heights of its type.
constexpr double kLineHeight = 1.22;
constexpr double kTitleHeight = 1.25;

/// How narrow a line may become before all lines become smaller instead.
constexpr double kNarrowest = 0.8;

/// The type is measured at this size, in pixels; widths grow in proportion.
constexpr int kMeasuredSize = 1000;

QFont FontOf(const QString& family, double pixels, QFont::Weight weight = QFont::Normal) {
  QFont font(family);
  font.setStyleHint(QFont::AnyStyle, QFont::ForceOutline);
  font.setPixelSize(std::max(1, static_cast<int>(std::lround(pixels))));
  font.setWeight(weight);
  // Spacing of its own keeps the letters of "fi" apart, so that the text can be searched.
  font.setLetterSpacing(QFont::AbsoluteSpacing, pixels / kMeasuredSize);
  return font;
}

QFont LineFont(const QString& family, double pixels) {
  QFont font = FontOf(family, pixels);
  font.setStyleHint(QFont::Monospace);
  font.setFixedPitch(true);
  return font;
}

/// Draws the pages of one painter.
class PagePainter {
 public:
  PagePainter(QPainter& painter, const QRectF& area, const QtMonthPage& page)
      : painter_(painter),
        page_(page),
        point_(painter.device()->logicalDpiY() / 72.0),
        area_(Inset(area)) {}

  void Paint(const QRectF& whole) {
    painter_.fillRect(whole, page_.Background);
    PaintHead();
    PaintWeekdays();
    line_size_ = LineSize();
    for (int index = 1; index <= kCells; ++index) {
      if (const auto& day = page_.Days.at(static_cast<std::size_t>(index))) {
        PaintDay(*day, CellRect(index));
      }
    }
  }

 private:
  double Points(double points) const { return points * point_; }

  /// White paper needs no edge of its own.
  QRectF Inset(const QRectF& area) const {
    const double edge = page_.Background == QColor(Qt::white) ? 0 : kPadding * point_;
    return area.adjusted(edge, edge, -edge, -edge);
  }

  double HeadHeight() const { return Points(kTitleSize * kTitleHeight + 2 * kGap); }
  double WeekdaysHeight() const { return Points(kWeekdaySize * 1.6); }
  QRectF GridRect() const {
    return area_.adjusted(0, HeadHeight() + WeekdaysHeight(), 0, 0);
  }

  /// The weeks that hold a day.
  int Weeks() const {
    int last = 1;
    for (int index = 1; index <= kCells; ++index) {
      if (page_.Days.at(static_cast<std::size_t>(index))) last = index;
    }
    return (last - 1) / kColumns + 1;
  }

  double ColumnWidth() const {
    return (GridRect().width() - (kColumns - 1) * Points(kGap)) / kColumns;
  }

  QRectF CellRect(int index) const {
    const int row = (index - 1) / kColumns;
    const int column = (index - 1) % kColumns;
    const double gap = Points(kGap);
    const double height = (GridRect().height() - (Weeks() - 1) * gap) / Weeks();
    return {GridRect().left() + column * (ColumnWidth() + gap),
            GridRect().top() + row * (height + gap), ColumnWidth(), height};
  }

  QRectF ListRect(const QRectF& cell) const {
    const double inset = Points(kInset);
    return cell.adjusted(inset, Points(kNumberSize * 1.35) + inset / 2, -inset, -inset);
  }

  /// Draws a text on one line from `left`, or so that it ends at `right`, no wider than between
  /// the two.
  void DrawText(const QString& text, const QFont& font, double left, double right, double baseline,
                Qt::Alignment alignment = Qt::AlignLeft) {
    painter_.setFont(font);
    const double natural = QFontMetricsF(font, painter_.device()).horizontalAdvance(text);
    const double scale = natural > right - left ? (right - left) / natural : 1.0;
    const double free = right - left - natural * scale;
    const double start = alignment == Qt::AlignRight    ? left + free
                         : alignment == Qt::AlignHCenter ? left + free / 2
                                                         : left;
    painter_.save();
    painter_.translate(start, baseline);
    painter_.scale(scale, 1.0);
    painter_.drawText(QPointF(0, 0), text);
    painter_.restore();
  }

  void PaintHead() {
    painter_.setPen(page_.Header);
    const QFont title = FontOf(page_.TextFamily, Points(kTitleSize), QFont::DemiBold);
    const QFont room = FontOf(page_.TextFamily, Points(kRoomSize));
    const double baseline = area_.top() + Points(kTitleSize);
    DrawText(page_.Title, title, area_.left(), area_.right(), baseline);
    if (page_.Room.isEmpty()) return;
    const double taken =
        QFontMetricsF(title, painter_.device()).horizontalAdvance(page_.Title) + Points(kTitleSize);
    DrawText(page_.Room, room, area_.left() + taken, area_.right(), baseline, Qt::AlignRight);
  }

  void PaintWeekdays() {
    painter_.setPen(page_.Header);
    const QFont font = FontOf(page_.TextFamily, Points(kWeekdaySize), QFont::DemiBold);
    const double baseline = area_.top() + HeadHeight() + Points(kWeekdaySize);
    for (int column = 0; column < kColumns; ++column) {
      const QRectF cell = CellRect(column + 1);
      DrawText(page_.Weekdays.at(static_cast<std::size_t>(column)), font, cell.left(), cell.right(),
               baseline, Qt::AlignHCenter);
    }
  }

  /// The size of the lines, one for the whole page: as large as the fullest cell and, but for
  /// narrowing, the longest line allow.
  double LineSize() const {
    const QRectF room = ListRect(CellRect(1));
    const QFontMetricsF metrics(LineFont(page_.ListFamily, kMeasuredSize), painter_.device());
    double size = Points(kLargestLine);
    qsizetype most = 1;
    for (const auto& day : page_.Days) {
      if (!day) continue;
      most = std::max(most, day->Lines.size());
      for (const QString& line : day->Lines) {
        const double width = metrics.horizontalAdvance(line) / kMeasuredSize;
        size = width > 0 ? std::min(size, room.width() / width / kNarrowest) : size;
      }
    }
    size = std::max(size, Points(kSmallestLine));
    return std::min(size, room.height() / (kLineHeight * static_cast<double>(most)));
  }

  void PaintDay(const Day& day, const QRectF& cell) {
    painter_.fillRect(ListRect(cell), day.ListBackground);
    PaintFrame(day, cell);
    PaintNumber(day, cell);
    PaintLines(day, ListRect(cell));
    if (day.HasMore) PaintMoreMark(day, cell);
  }

  void PaintFrame(const Day& day, const QRectF& cell) {
    const double width = Points(day.IsToday ? kTodaysFrame : kFrame);
    painter_.setPen(QPen(day.Frame, width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawRect(cell.adjusted(width / 2, width / 2, -width / 2, -width / 2));
  }

  void PaintNumber(const Day& day, const QRectF& cell) {
    painter_.setPen(day.NumberColor);
    const QFont font = FontOf(page_.TextFamily, Points(kNumberSize),
                              day.IsToday ? QFont::Bold : QFont::Normal);
    DrawText(day.Number, font, cell.left() + Points(kInset + 1), cell.right(),
             cell.top() + Points(kNumberSize * 1.2));
  }

  void PaintLines(const Day& day, const QRectF& list) {
    painter_.setPen(day.ListText);
    const QFont font = LineFont(page_.ListFamily, line_size_);
    double baseline = list.top() + line_size_;
    for (const QString& line : day.Lines) {
      DrawText(line, font, list.left() + Points(1), list.right(), baseline);
      baseline += line_size_ * kLineHeight;
    }
  }

  /// A small triangle beside the number: this day has more than its cell shows.
  void PaintMoreMark(const Day& day, const QRectF& cell) {
    const double half = Points(2.6);
    const QPointF tip(cell.right() - Points(kInset) - half, cell.top() + Points(kNumberSize * 1.15));
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(day.Frame);
    painter_.drawPolygon(QPolygonF{
        {tip, tip + QPointF(-half, -half * 1.3), tip + QPointF(half, -half * 1.3)}});
  }

  QPainter& painter_;
  const QtMonthPage& page_;
  const double point_;  ///< Pixels of the device.
  const QRectF area_;
  double line_size_ = 0;
};

}  // namespace

void PaintMonthPage(QPainter& painter, const QRectF& area, const QtMonthPage& page) {
  painter.save();
  PagePainter(painter, area, page).Paint(area);
  painter.restore();
}

}  // namespace veyra
