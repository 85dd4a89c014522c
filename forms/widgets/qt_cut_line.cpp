#include "forms/widgets/qt_cut_line.h"

namespace veyra {
namespace {

constexpr QChar kRightToLeftMark(0x200F);

bool IsFromTheRight(QChar sign) {
  return sign.direction() == QChar::DirR || sign.direction() == QChar::DirAL;
}

/// Whether the text ends within a name that is written from the right.
bool EndsFromTheRight(const QString& text) {
  for (auto sign = text.crbegin(); sign != text.crend(); ++sign) {
    if (IsFromTheRight(*sign)) {
      return true;
    }
    if (sign->direction() == QChar::DirL) {
      return false;
    }
  }
  return false;
}

}  // namespace

/// The mark makes the ellipsis part of the name.
QString CutLine(const QString& line, const QFontMetrics& metrics, int width) {
  if (metrics.horizontalAdvance(line) <= width) {
    return line;
  }
  const QString cut = metrics.elidedText(line, Qt::ElideRight, width);
  return EndsFromTheRight(cut) ? cut + kRightToLeftMark : cut;
}

}  // namespace veyra
