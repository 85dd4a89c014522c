#include "forms/print/qt_sheet_text.h"

#include <QFontMetricsF>
#include <QGlyphRun>
#include <QGuiApplication>
#include <QPainter>
#include <QTextLayout>
#include <QTextOption>
#include <algorithm>
#include <cmath>
#include <numeric>

#include "forms/widgets/qt_text.h"

namespace veyra {
namespace {

/// How far the rows after a line's first are moved in, in sizes of its type.
constexpr double kHang = 0.6;

constexpr double kSpacing = 1.0 / 1000;

/// A fixed-pitch type is wide: drawn narrower, more of a name has room.
constexpr double kNarrowLine = 0.82;

double NarrownessOf(TextKind kind) {
  return kind == TextKind::Line ? kNarrowLine : 1;
}

QFont::Weight WeightOf(TextKind kind) {
  switch (kind) {
    case TextKind::TodaysNumber:
    case TextKind::More:
      return QFont::Bold;
    case TextKind::Title:
    case TextKind::Header:
    case TextKind::Heading:
      return QFont::DemiBold;
    case TextKind::Room:
    case TextKind::Number:
    case TextKind::Line:
    case TextKind::Footer:
      break;
  }
  return QFont::Normal;
}

QFont FontOf(TextKind kind, double size) {
  const bool is_line = kind == TextKind::Line;
  QFont font = is_line ? QFont(QStringLiteral("Courier New")) : QGuiApplication::font();
  font.setStyleHint(is_line ? QFont::Monospace : QFont::AnyStyle, QFont::ForceOutline);
  font.setFixedPitch(is_line);
  font.setHintingPreference(QFont::PreferNoHinting);
  const double units = size * QtSheetText::kUnitsPerPoint;
  font.setPixelSize(std::max(1, static_cast<int>(std::lround(units))));
  font.setWeight(WeightOf(kind));
  // Spacing of its own keeps the letters of "fi" apart, so that the text can be searched.
  font.setLetterSpacing(QFont::AbsoluteSpacing, units * kSpacing);
  return font;
}

/// A text that is wrapped at a width in points, as it is before it is made narrow.
class WrappedText {
 public:
  WrappedText(TextKind kind, const std::string& text, double width, double size)
      : layout_(OneLine(text), FontOf(kind, size)) {
    const double hang = kind == TextKind::Line ? kHang * size * QtSheetText::kUnitsPerPoint : 0;
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout_.setTextOption(option);
    layout_.beginLayout();
    const double room = width * QtSheetText::kUnitsPerPoint / NarrownessOf(kind);
    double left = 0;
    for (QTextLine row = layout_.createLine(); row.isValid(); row = layout_.createLine()) {
      row.setLineWidth(std::max(1.0, room - left));
      row.setPosition({left, 0});
      left = hang;
    }
    layout_.endLayout();
  }

  int Rows() const { return std::max(1, layout_.lineCount()); }

  QTextLine Row(int index) const { return layout_.lineAt(index); }

 private:
  QTextLayout layout_;
};

/// Draws the glyphs from left to right, whichever way their script runs: so do readers of PDF files
/// expect them.
void DrawLeftToRight(QPainter& painter, const QGlyphRun& run, const QPointF& start) {
  const QList<quint32> glyphs = run.glyphIndexes();
  const QList<QPointF> places = run.positions();
  QList<qsizetype> order(glyphs.size());
  std::iota(order.begin(), order.end(), 0);
  std::stable_sort(order.begin(), order.end(), [&places](qsizetype one, qsizetype other) {
    return places[one].x() < places[other].x();
  });
  QList<quint32> sorted_glyphs;
  QList<QPointF> sorted_places;
  for (const qsizetype index : order) {
    sorted_glyphs.append(glyphs[index]);
    sorted_places.append(places[index]);
  }
  QGlyphRun sorted = run;
  sorted.setGlyphIndexes(sorted_glyphs);
  sorted.setPositions(sorted_places);
  painter.drawGlyphRun(start, sorted);
}

/// `start` is where the row would begin.
void DrawRow(QPainter& painter, const QTextLine& row, const QPointF& start) {
  QList<QGlyphRun> runs = row.glyphRuns();
  std::stable_sort(runs.begin(), runs.end(), [](const QGlyphRun& one, const QGlyphRun& other) {
    return one.boundingRect().left() < other.boundingRect().left();
  });
  for (const QGlyphRun& run : runs) {
    DrawLeftToRight(painter, run, start);
  }
}

double ShareLeftOf(TextSide side) {
  switch (side) {
    case TextSide::Left:
      return 0;
    case TextSide::Middle:
      return 0.5;
    case TextSide::Right:
      break;
  }
  return 1;
}

}  // namespace

std::string QtSheetText::TextOf(const Phrase& phrase) const {
  return ToUtf8(ToQString(phrase));
}

double QtSheetText::WidthOf(TextKind kind, const std::string& text, double size) const {
  const double natural = QFontMetricsF(FontOf(kind, size)).horizontalAdvance(OneLine(text));
  return natural * NarrownessOf(kind) / kUnitsPerPoint;
}

int QtSheetText::RowsOf(TextKind kind, const std::string& text, double width, double size) const {
  return WrappedText(kind, text, width, size).Rows();
}

void QtSheetText::Draw(QPainter& painter, const PlacedText& text) const {
  const WrappedText wrapped(text.Kind, text.Text, text.Width, text.Size);
  const double narrowness = NarrownessOf(text.Kind);
  const double width = text.Width * kUnitsPerPoint / narrowness;
  const int end = text.Rows ? std::min(text.FirstRow + *text.Rows, wrapped.Rows()) : wrapped.Rows();
  painter.save();
  painter.translate(text.Left * kUnitsPerPoint,
                    (text.Top + text.Size * kBaseline) * kUnitsPerPoint);
  painter.scale(narrowness, 1);
  for (int index = text.FirstRow; index < end && wrapped.Row(index).isValid(); ++index) {
    const QTextLine row = wrapped.Row(index);
    const double free = std::max(0.0, width - row.x() - row.naturalTextWidth());
    DrawRow(painter, row, {free * ShareLeftOf(text.Side), -row.ascent()});
    painter.translate(0, text.Size * kRowHeight * kUnitsPerPoint);
  }
  painter.restore();
}

}  // namespace veyra
