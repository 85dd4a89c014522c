#include "forms/print/qt_sheet_page.h"

#include <QGuiApplication>
#include <QPaintDevice>
#include <QPainter>
#include <QPalette>
#include <QRectF>
#include <algorithm>

#include "forms/print/qt_sheet_text.h"
#include "forms/print/sheet_layout.h"
#include "forms/widgets/qt_colors.h"

namespace veyra {
namespace {

constexpr double kMarginMillimetres = 10;

// Lengths in points.
constexpr double kPadding = 10;  // between a coloured background's edge and what stands on it
constexpr double kFrame = 0.5;
constexpr double kTodaysFrame = 1.4;

constexpr double kFrameStrength = 0.25;

QColor ListColor(const SheetDay& day, const QPalette& theme) {
  return day.ListColor ? ToQColor(*day.ListColor, theme) : theme.color(QPalette::Base);
}

/// Black or white, whichever is the easier to read on the background.
QColor InkOn(const QColor& background) {
  return ReadableOn(background, background);
}

bool IsDark(const QColor& background) {
  return InkOn(background) == QColor(Qt::white);
}

/// The colours of a sheet on paper.
class Inks {
 public:
  Inks(const Sheet& sheet, PrintedBackground background)
      : sheet_(sheet), is_white_(background == PrintedBackground::White) {}

  QColor Page() const { return Background(ToQColor(sheet_.BackColor, theme_)); }
  QColor Head() const { return Text(ToQColor(sheet_.HeaderColor, theme_)); }
  QColor List(const SheetDay& day) const { return Background(ListColor(day, theme_)); }
  QColor Line(const SheetDay& day) const {
    return ReadableOn(List(day), theme_.color(QPalette::Text));
  }
  QColor Number(const SheetDay& day) const { return Text(ToQColor(day.NumberColor, theme_)); }
  QColor Frame(const SheetDay& day) const {
    return day.IsToday ? Number(day) : Blend(Page(), InkOn(Page()), kFrameStrength);
  }

 private:
  QColor Background(const QColor& shown) const { return is_white_ ? QColor(Qt::white) : shown; }
  QColor Text(const QColor& shown) const {
    return is_white_ ? ReadableOn(Qt::white, shown) : shown;
  }

  const Sheet& sheet_;
  const QPalette theme_ = QGuiApplication::palette();
  const bool is_white_;
};

/// Paints in the units of QtSheetText.
class PagePainter {
 public:
  PagePainter(QPainter& painter, const Sheet& sheet, const Inks& inks, double scale)
      : painter_(painter), sheet_(sheet), inks_(inks), scale_(scale) {}

  void Paint(const SheetPage& page) {
    for (const PlacedCell& cell : page.Cells) {
      PaintCell(cell);
    }
    for (const PlacedText& text : page.Texts) {
      painter_.setPen(InkOf(text));
      text_.Draw(painter_, text);
    }
  }

 private:
  static double Units(double points) { return points * QtSheetText::kUnitsPerPoint; }

  static QRectF RectOf(const Box& box) {
    return {Units(box.Left), Units(box.Top), Units(box.Width), Units(box.Height)};
  }

  void PaintCell(const PlacedCell& cell) {
    const SheetDay& day = sheet_.Days.at(cell.Day);
    painter_.fillRect(RectOf(cell.List), inks_.List(day));
    const double width = Units(scale_ * (day.IsToday ? kTodaysFrame : kFrame));
    painter_.setPen(QPen(inks_.Frame(day), width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawRect(RectOf(cell.Frame).adjusted(width / 2, width / 2, -width / 2, -width / 2));
  }

  /// What no cell holds stands on the page itself.
  QColor InkOf(const PlacedText& text) const {
    if (!text.Day) {
      return text.Kind == TextKind::Line ? InkOn(inks_.Page()) : inks_.Head();
    }
    const SheetDay& day = sheet_.Days.at(*text.Day);
    const bool is_number = text.Kind == TextKind::Number || text.Kind == TextKind::TodaysNumber;
    return is_number ? inks_.Number(day) : inks_.Line(day);
  }

  QPainter& painter_;
  const Sheet& sheet_;
  const Inks& inks_;
  const double scale_;
  const QtSheetText text_;
};

}  // namespace

bool HasDarkBackground(const Sheet& sheet) {
  const QPalette theme = QGuiApplication::palette();
  return IsDark(ToQColor(sheet.BackColor, theme)) ||
         std::any_of(sheet.Days.begin(), sheet.Days.end(),
                     [&theme](const SheetDay& day) { return IsDark(ListColor(day, theme)); });
}

QPageLayout WithMargins(QPageLayout layout) {
  layout.setUnits(QPageLayout::Millimeter);
  const QMarginsF least = layout.minimumMargins();
  const auto at_least = [](double margin) { return std::max(margin, kMarginMillimetres); };
  layout.setMargins({at_least(least.left()), at_least(least.top()), at_least(least.right()),
                     at_least(least.bottom())});
  return layout;
}

void PaintSheet(QPainter& painter, const QRectF& area, const Sheet& sheet,
                PrintedBackground background, const std::function<void()>& next_page) {
  const Inks inks(sheet, background);
  const double point = painter.device()->logicalDpiY() / 72.0;
  const double edge = inks.Page() == QColor(Qt::white) ? 0 : kPadding * point;
  const QRectF inside = area.adjusted(edge, edge, -edge, -edge);
  const SheetLayout layout =
      LayOutSheet(sheet, inside.width() / point, inside.height() / point, QtSheetText());
  for (std::size_t page = 0; page < layout.Pages.size(); ++page) {
    if (page > 0) {
      next_page();
    }
    painter.save();
    painter.fillRect(area, inks.Page());
    painter.translate(inside.topLeft());
    painter.scale(point / QtSheetText::kUnitsPerPoint, point / QtSheetText::kUnitsPerPoint);
    PagePainter(painter, sheet, inks, layout.Scale).Paint(layout.Pages[page]);
    painter.restore();
  }
}

}  // namespace veyra
