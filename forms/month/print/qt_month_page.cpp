#include "forms/month/print/qt_month_page.h"

#include <QFontMetricsF>
#include <QPageLayout>
#include <QPaintDevice>
#include <QPainter>
#include <QPolygonF>
#include <QRectF>
#include <algorithm>
#include <cmath>
#include <utility>

#include "forms/widgets/qt_colors.h"

namespace veyra {
namespace {

using Day = QtMonthPage::Day;

constexpr int kColumns = 7;
constexpr int kCells = 42;

constexpr double kMarginMillimetres = 10;

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
constexpr double kComfortableLine = 7;
constexpr double kSmallestLine = 4;

/// Room for a line, and for a title, in heights of its type.
constexpr double kLineHeight = 1.22;
constexpr double kTitleHeight = 1.25;

/// How narrow all lines may become before they become smaller instead.
constexpr double kNarrowest = 0.75;

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

/// From one place to another across the page.
struct Span {
  double Left;
  double Right;
};

/// Draws the page of one painter.
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
    ChooseLineSize();
    for (int index = 1; index <= kCells; ++index) {
      if (const auto& day = page_.Days[index]) {
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
  QRectF GridRect() const { return area_.adjusted(0, HeadHeight() + WeekdaysHeight(), 0, 0); }

  /// The weeks that hold a day.
  int Weeks() const {
    int last = 1;
    for (int index = 1; index <= kCells; ++index) {
      if (page_.Days[index]) {
        last = index;
      }
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

  QRectF LineRect(const QRectF& list) const {
    return list.adjusted(Points(1.5), 0, -Points(1), -Points(1));
  }

  double WidthOf(const QString& text, const QFont& font) const {
    return QFontMetricsF(font, painter_.device()).horizontalAdvance(text);
  }

  void DrawNarrowed(const QString& text, const QFont& font, QPointF start, double scale) {
    painter_.save();
    painter_.setFont(font);
    painter_.translate(start);
    painter_.scale(scale, 1.0);
    painter_.drawText(QPointF(0, 0), text);
    painter_.restore();
  }

  /// Draws a text on one line, no wider than the span.
  void DrawText(const QString& text, const QFont& font, Span span, double baseline,
                Qt::Alignment alignment = Qt::AlignLeft) {
    const double natural = WidthOf(text, font);
    const double room = span.Right - span.Left;
    const double scale = natural > room ? room / natural : 1.0;
    const double free = room - natural * scale;
    const double share = alignment == Qt::AlignRight     ? 1.0
                         : alignment == Qt::AlignHCenter ? 0.5
                                                         : 0;
    DrawNarrowed(text, font, {span.Left + free * share, baseline}, scale);
  }

  void PaintHead() {
    painter_.setPen(page_.Header);
    const QFont title = FontOf(page_.TextFamily, Points(kTitleSize), QFont::DemiBold);
    const QFont room = FontOf(page_.TextFamily, Points(kRoomSize));
    const double baseline = area_.top() + Points(kTitleSize);
    DrawText(page_.Title, title, {area_.left(), area_.right()}, baseline);
    if (page_.Room.isEmpty()) {
      return;
    }
    const double taken = WidthOf(page_.Title, title) + Points(kTitleSize);
    DrawText(page_.Room, room, {area_.left() + taken, area_.right()}, baseline, Qt::AlignRight);
  }

  void PaintWeekdays() {
    painter_.setPen(page_.Header);
    const QFont font = FontOf(page_.TextFamily, Points(kWeekdaySize), QFont::DemiBold);
    const double baseline = area_.top() + HeadHeight() + Points(kWeekdaySize);
    for (int column = 0; column < kColumns; ++column) {
      const QRectF cell = CellRect(column + 1);
      DrawText(page_.Weekdays.at(static_cast<std::size_t>(column)), font,
               {cell.left(), cell.right()}, baseline, Qt::AlignHCenter);
    }
  }

  /// The width of the longest line at one pixel of size, and the number of lines of the fullest
  /// cell.
  std::pair<double, qsizetype> MeasureLines() const {
    const QFontMetricsF metrics(LineFont(page_.ListFamily, kMeasuredSize), painter_.device());
    double longest = 0;
    qsizetype most = 1;
    for (const auto& day : page_.Days) {
      if (!day) {
        continue;
      }
      most = std::max(most, day->Lines.size());
      for (const QString& line : day->Lines) {
        longest = std::max(longest, metrics.horizontalAdvance(line) / kMeasuredSize);
      }
    }
    return {longest, most};
  }

  /// One size for all lines of the page, as large as the longest line and the fullest cell allow.
  /// Below a comfortable size the lines become narrower first, then smaller.
  void ChooseLineSize() {
    const QRectF room = LineRect(ListRect(CellRect(1)));
    const auto [longest, most] = MeasureLines();
    const double fitting = longest > 0 ? room.width() / longest : Points(kLargestLine);
    const double narrowed = std::min(fitting / kNarrowest, Points(kComfortableLine));
    line_size_ =
        std::clamp(std::max(fitting, narrowed), Points(kSmallestLine), Points(kLargestLine));
    line_size_ = std::min(line_size_, room.height() / (kLineHeight * static_cast<double>(most)));
    line_scale_ = std::clamp(fitting / line_size_, kNarrowest, 1.0);
  }

  void PaintDay(const Day& day, const QRectF& cell) {
    painter_.fillRect(ListRect(cell), day.ListBackground);
    PaintFrame(day, cell);
    PaintNumber(day, cell);
    PaintLines(day, ListRect(cell));
    if (day.HasMore) {
      PaintMoreMark(day, cell);
    }
  }

  void PaintFrame(const Day& day, const QRectF& cell) {
    const double width = Points(day.IsToday ? kTodaysFrame : kFrame);
    painter_.setPen(QPen(day.Frame, width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawRect(cell.adjusted(width / 2, width / 2, -width / 2, -width / 2));
  }

  void PaintNumber(const Day& day, const QRectF& cell) {
    painter_.setPen(day.NumberColor);
    const QFont font =
        FontOf(page_.TextFamily, Points(kNumberSize), day.IsToday ? QFont::Bold : QFont::Normal);
    DrawText(day.Number, font, {cell.left() + Points(kInset + 1), cell.right()},
             cell.top() + Points(kNumberSize * 1.2));
  }

  void PaintLines(const Day& day, const QRectF& list) {
    painter_.setPen(day.ListText);
    const QFont font = LineFont(page_.ListFamily, line_size_);
    const QRectF room = LineRect(list);
    double baseline = room.top() + line_size_;
    for (const QString& line : day.Lines) {
      const double scale = std::min(line_scale_, room.width() / WidthOf(line, font));
      DrawNarrowed(line, font, {room.left(), baseline}, scale);
      baseline += line_size_ * kLineHeight;
    }
  }

  /// A small triangle beside the number: this day has more than its cell shows.
  void PaintMoreMark(const Day& day, const QRectF& cell) {
    const double half = Points(2.6);
    const QPointF tip(cell.right() - Points(kInset) - half,
                      cell.top() + Points(kNumberSize * 1.15));
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(day.Frame);
    painter_.drawPolygon(
        QPolygonF{{tip, tip + QPointF(-half, -half * 1.3), tip + QPointF(half, -half * 1.3)}});
  }

  QPainter& painter_;
  const QtMonthPage& page_;
  const double point_;  ///< Pixels of the device.
  const QRectF area_;
  double line_size_ = 0;   ///< Pixels of the device.
  double line_scale_ = 1;  ///< How narrow the lines are.
};

}  // namespace

QString TitleOf(const QtMonthPage& page) {
  return page.Room.isEmpty() ? page.Title : page.Title + QLatin1Char(' ') + page.Room;
}

QPageLayout LayoutFor(const QtMonthPage& page, QPageLayout layout) {
  layout.setOrientation(page.Shape.width() < page.Shape.height() ? QPageLayout::Portrait
                                                                 : QPageLayout::Landscape);
  layout.setUnits(QPageLayout::Millimeter);
  const QMarginsF least = layout.minimumMargins();
  const auto at_least = [](double margin) { return std::max(margin, kMarginMillimetres); };
  layout.setMargins({at_least(least.left()), at_least(least.top()), at_least(least.right()),
                     at_least(least.bottom())});
  return layout;
}

void PaintMonthPage(QPainter& painter, const QRectF& area, const QtMonthPage& page) {
  painter.save();
  PagePainter(painter, area, page).Paint(area);
  painter.restore();
}

}  // namespace veyra
