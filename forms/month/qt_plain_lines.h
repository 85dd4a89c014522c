#pragma once

#include <QPointF>
#include <QSize>
#include <QString>

class QPainter;
class QStyleOptionViewItem;
class QWidget;

namespace veyra {

/// Lines of a list that can be measured and drawn without being laid out: those of ASCII's
/// printable signs and the ellipsis, in a font where all of these are equally wide. They come out
/// as the list's style draws them.
class QtPlainLines {
 public:
  /// Measures the font and the style of `list`.
  explicit QtPlainLines(const QWidget& list);

  /// Whether the line is one of these.
  bool Covers(const QString& line) const;

  /// The room that a line takes. REQUIRES of this and the others: Covers(line).
  QSize SizeOf(const QString& line) const;

  /// As much of the line's beginning as fits into `width` pixels, with an ellipsis at its end; the
  /// whole line when that fits.
  QString Cut(const QString& line, int width) const;

  /// Draws the line into `option`'s place, in its font and colour.
  void Draw(QPainter& painter, const QStyleOptionViewItem& option, const QString& line) const;

 private:
  bool all_equally_wide_ = false;
  qreal sign_width_ = 0;
  QSize around_;      ///< What a line takes beside its signs.
  QPointF baseline_;  ///< From the top left corner of a line.
};

}  // namespace veyra
