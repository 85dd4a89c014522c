#pragma once

#include <QColor>
#include <QPageLayout>
#include <QSizeF>
#include <QString>
#include <QStringList>
#include <array>
#include <optional>

class QPainter;
class QRectF;

#include "data/one_based.h"

namespace veyra {

/// What the month window shows but for its controls: all that a printed page needs to know.
struct QtMonthPage {
  /// A day cell.
  struct Day {
    QString Number;
    QColor NumberColor;
    QColor Frame;
    QColor ListBackground;
    QColor ListText;
    bool IsToday = false;
    QStringList Lines;     ///< The lines that are to be seen, each as far as it is to be seen.
    bool HasMore = false;  ///< Whether there are lines that are not to be seen.
  };

  QString Title;  ///< "March 2014"
  QString Room;   ///< The facility's name; may be empty.
  std::array<QString, 7> Weekdays;
  OneBased<std::optional<Day>, 42> Days;  ///< By cell 1 to 42; nothing where there is no day.
  QColor Background;
  QColor Header;       ///< Colour of the title, the facility's name and the weekdays.
  QString TextFamily;  ///< The font of all but the lines.
  QString ListFamily;  ///< The font of the lines.
  QSizeF Shape;        ///< Size of what the window shows; only the proportions count.
};

/// What the page is called where it has to have a name: title and facility.
QString TitleOf(const QtMonthPage& page);

/// The paper of `layout` turned as it fits the page better, with even margins, or wider ones where
/// the printer needs them.
QPageLayout LayoutFor(const QtMonthPage& page, QPageLayout layout);

/// Paints the page so that it fills `area`, in pixels of the painter's device. Every text is drawn
/// as text, once and whole; a line that is too long for its cell is drawn narrower.
/// REQUIRES: the painter is active, and its device knows its resolution.
void PaintMonthPage(QPainter& painter, const QRectF& area, const QtMonthPage& page);

}  // namespace veyra
