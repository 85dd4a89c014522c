#pragma once

#include <QProxyStyle>

namespace veyra {

/// The desktop's own style, with buttons of an even size that bear texts only, slender scroll
/// bars, tooltips after half a second, a mark on what has the focus whichever way it has come
/// there, and the rims of boxes and options plain to see on a dark desktop too.
/// REQUIRES: a QApplication.
class QtStyle : public QProxyStyle {
  Q_OBJECT

 public:
  QtStyle();

  using QProxyStyle::polish;
  void polish(QApplication* application) override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* more) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                         const QWidget* widget) const override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace veyra
