#include "forms/widgets/qt_style.h"

#include <QApplication>
#include <algorithm>

namespace veyra {
namespace {

constexpr int kScrollBarWidth = 12;
constexpr int kButtonWidth = 86;
constexpr int kButtonHeight = 27;
constexpr int kButtonPadding = 24;
constexpr int kToolTipDelay = 500;

}  // namespace

QtStyle::QtStyle() : QProxyStyle(QApplication::style()->name()) {}

int QtStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                         const QWidget* widget) const {
  const int usual = QProxyStyle::pixelMetric(metric, option, widget);
  return metric == PM_ScrollBarExtent ? std::min(usual, kScrollBarWidth) : usual;
}

int QtStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                       QStyleHintReturn* more) const {
  switch (hint) {
    case SH_DialogButtonBox_ButtonsHaveIcons:
      return 0;
    case SH_ToolTip_WakeUpDelay:
      return kToolTipDelay;
    default:
      return QProxyStyle::styleHint(hint, option, widget, more);
  }
}

QSize QtStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                const QSize& contents, const QWidget* widget) const {
  const QSize usual = QProxyStyle::sizeFromContents(type, option, contents, widget);
  if (type != CT_PushButton) {
    return usual;
  }
  return usual.expandedTo(
      {std::max(kButtonWidth, contents.width() + kButtonPadding), kButtonHeight});
}

}  // namespace veyra
