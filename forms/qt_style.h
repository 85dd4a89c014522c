#pragma once

#include <QProxyStyle>

namespace veyra {

/// The desktop's own style, with buttons of an even size and slender scroll bars.
/// REQUIRES: a QApplication.
class QtStyle : public QProxyStyle {
  Q_OBJECT

 public:
  QtStyle();

  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                         const QWidget* widget) const override;
};

}  // namespace veyra
