#pragma once

#include <QProxyStyle>

namespace veyra {

/// The desktop's own style, with buttons of an even size that bear texts only, slender scroll
/// bars, and tooltips after half a second.
/// REQUIRES: a QApplication.
class QtStyle : public QProxyStyle {
  Q_OBJECT

 public:
  QtStyle();

  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* more) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                         const QWidget* widget) const override;
};

}  // namespace veyra
