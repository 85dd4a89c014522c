#pragma once

#include <QPageLayout>
#include <functional>

#include "forms/print/sheet.h"

class QPainter;
class QRectF;

namespace veyra {

/// What is dark on the screen would cost ink, so backgrounds can be left out.
enum class PrintedBackground { AsShown, White };

/// Whether the sheet has a dark background, in the colours of the desktop's theme.
bool HasDarkBackground(const Sheet& sheet);

/// The paper of `layout` with even margins, or wider ones where the printer needs them.
QPageLayout WithMargins(QPageLayout layout);

/// Paints the sheet, as many pages as it takes, each of them over `area`, in pixels of the
/// painter's device. Calls `next_page` before every page but the first. Every text is drawn as
/// text, once and whole. On white, texts that could not be read there become black.
/// REQUIRES: the painter is active, and its device knows its resolution.
void PaintSheet(QPainter& painter, const QRectF& area, const Sheet& sheet,
                PrintedBackground background, const std::function<void()>& next_page);

}  // namespace veyra
