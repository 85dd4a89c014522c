#include "forms/month/qt_plain_lines.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QWidget>
#include <algorithm>
#include <cmath>

namespace veyra {
namespace {

constexpr QChar kEllipsis(0x2026);

bool IsPlain(QChar sign) {
  return (sign >= QChar(u' ') && sign <= QChar(u'~')) || sign == kEllipsis;
}

bool IsOneWide(const QFontMetricsF& metrics, QChar sign, qreal width) {
  return metrics.inFont(sign) && metrics.horizontalAdvance(sign) == width;
}

}  // namespace

QtPlainLines::QtPlainLines(const QWidget& list) {
  const QFontMetricsF metrics(list.font());
  sign_width_ = metrics.horizontalAdvance(QChar(u'0'));
  all_equally_wide_ =
      QFontInfo(list.font()).fixedPitch() && IsOneWide(metrics, kEllipsis, sign_width_) &&
      IsOneWide(metrics, QChar(u'i'), sign_width_) && IsOneWide(metrics, QChar(u'W'), sign_width_);

  QStyleOptionViewItem line;
  line.initFrom(&list);
  line.font = list.font();
  line.fontMetrics = QFontMetrics(line.font);
  line.features = QStyleOptionViewItem::HasDisplay;
  line.displayAlignment = Qt::AlignLeft | Qt::AlignVCenter;
  line.text = QStringLiteral("0");
  line.rect = QRect();
  const QSize size = list.style()->sizeFromContents(QStyle::CT_ItemViewItem, &line, {}, &list);
  around_ = QSize(size.width() - static_cast<int>(std::ceil(sign_width_)), size.height());
  line.rect = QRect(QPoint(), size);
  const QRect text = list.style()->subElementRect(QStyle::SE_ItemViewItemText, &line, &list);
  const int margin = list.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, &line, &list) + 1;
  const int height = static_cast<int>(std::ceil(metrics.ascent() + metrics.descent()));
  const int top = text.top() + (text.height() - height) / 2;
  baseline_ = QPointF(text.left() + margin, top + metrics.ascent());
}

bool QtPlainLines::Covers(const QString& line) const {
  return all_equally_wide_ && std::all_of(line.begin(), line.end(), IsPlain);
}

QSize QtPlainLines::SizeOf(const QString& line) const {
  return {
      around_.width() + static_cast<int>(std::ceil(static_cast<qreal>(line.size()) * sign_width_)),
      around_.height()};
}

QString QtPlainLines::Cut(const QString& line, int width) const {
  if (qRound(static_cast<qreal>(line.size()) * sign_width_) <= width) {
    return line;
  }
  const auto room = static_cast<qsizetype>(width / sign_width_);
  return room == 0 ? QString() : line.left(room - 1) + kEllipsis;
}

void QtPlainLines::Draw(QPainter& painter, const QStyleOptionViewItem& option,
                        const QString& line) const {
  const bool is_active = option.state.testFlag(QStyle::State_Active);
  const QPalette::ColorGroup group = !option.state.testFlag(QStyle::State_Enabled)
                                         ? QPalette::Disabled
                                     : is_active ? QPalette::Normal
                                                 : QPalette::Inactive;
  painter.save();
  painter.setClipRect(option.rect);
  painter.setFont(option.font);
  painter.setPen(option.palette.color(group, QPalette::Text));
  painter.drawText(QPointF(option.rect.topLeft()) + baseline_, line);
  painter.restore();
}

}  // namespace veyra
