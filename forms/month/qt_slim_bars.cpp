#include "forms/month/qt_slim_bars.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOptionSlider>
#include <algorithm>

namespace veyra {
namespace {

constexpr int kWidth = 7;
constexpr int kShortestSlider = 14;
constexpr int kRestingShade = 70;
constexpr int kActiveShade = 140;

QRect SliderRect(const QStyleOptionSlider& bar) {
  const bool level = bar.orientation == Qt::Horizontal;
  const int room = level ? bar.rect.width() : bar.rect.height();
  const int span = std::max(1, bar.maximum - bar.minimum + bar.pageStep);
  const auto share = static_cast<qint64>(room) * bar.pageStep / span;
  const int length = std::min(room, std::max(kShortestSlider, static_cast<int>(share)));
  const int start = QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition,
                                                    room - length, bar.upsideDown);
  return level ? QRect(bar.rect.x() + start, bar.rect.y(), length, bar.rect.height())
               : QRect(bar.rect.x(), bar.rect.y() + start, bar.rect.width(), length);
}

QRect Before(const QStyleOptionSlider& bar, const QRect& slider) {
  return bar.orientation == Qt::Horizontal
             ? QRect(bar.rect.topLeft(), QPoint(slider.left() - 1, bar.rect.bottom()))
             : QRect(bar.rect.topLeft(), QPoint(bar.rect.right(), slider.top() - 1));
}

QRect After(const QStyleOptionSlider& bar, const QRect& slider) {
  return bar.orientation == Qt::Horizontal
             ? QRect(QPoint(slider.right() + 1, bar.rect.top()), bar.rect.bottomRight())
             : QRect(QPoint(bar.rect.left(), slider.bottom() + 1), bar.rect.bottomRight());
}

}  // namespace

QtSlimBars::QtSlimBars(QObject* parent) : QProxyStyle(QApplication::style()->name()) {
  setParent(parent);
}

int QtSlimBars::pixelMetric(PixelMetric metric, const QStyleOption* option,
                            const QWidget* widget) const {
  return metric == PM_ScrollBarExtent ? kWidth : QProxyStyle::pixelMetric(metric, option, widget);
}

QRect QtSlimBars::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                 SubControl part, const QWidget* widget) const {
  const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
  if (control != CC_ScrollBar || bar == nullptr) {
    return QProxyStyle::subControlRect(control, option, part, widget);
  }
  const QRect slider = SliderRect(*bar);
  switch (part) {
    case SC_ScrollBarSlider:
      return slider;
    case SC_ScrollBarGroove:
      return bar->rect;
    case SC_ScrollBarSubPage:
      return Before(*bar, slider);
    case SC_ScrollBarAddPage:
      return After(*bar, slider);
    default:
      return {};
  }
}

void QtSlimBars::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
  const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
  if (control != CC_ScrollBar || bar == nullptr) {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    return;
  }
  painter->fillRect(bar->rect, bar->palette.color(QPalette::Base));
  const bool active = bar->state.testFlag(State_MouseOver) || bar->state.testFlag(State_Sunken);
  QColor shade = bar->palette.color(QPalette::Text);
  shade.setAlpha(active ? kActiveShade : kRestingShade);
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(Qt::NoPen);
  painter->setBrush(shade);
  const QRectF slider = QRectF(SliderRect(*bar)).adjusted(1.5, 1.5, -1.5, -1.5);
  const double radius = std::min(slider.width(), slider.height()) / 2;
  painter->drawRoundedRect(slider, radius, radius);
}

}  // namespace veyra
