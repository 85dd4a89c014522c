#pragma once

#include <QFontMetrics>
#include <QString>

namespace veyra {

/// As much of the line's beginning as fits into `width` in that font, with an ellipsis at its end:
/// to the left of a name that is written from the right. The whole line when that fits.
QString CutLine(const QString& line, const QFontMetrics& metrics, int width);

}  // namespace veyra
