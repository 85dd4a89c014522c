#include "forms/qt_style.h"

#include <algorithm>

namespace veyra {
namespace {

constexpr int kScrollBarWidth = 12;
constexpr int kButtonWidth = 86;
constexpr int kButtonHeight = 27;

}  // namespace

int QtStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                         const QWidget* widget) const {
  const int usual = QProxyStyle::pixelMetric(metric, option, widget);
  return metric == PM_ScrollBarExtent ? std::min(usual, kScrollBarWidth) : usual;
}

QSize QtStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                const QSize& contents, const QWidget* widget) const {
  const QSize usual = QProxyStyle::sizeFromContents(type, option, contents, widget);
  return type == CT_PushButton ? usual.expandedTo({kButtonWidth, kButtonHeight}) : usual;
}

}  // namespace veyra
