#pragma once

#include <QProxyStyle>

namespace veyra {

/// Scroll bars for small lists: narrow, without arrows, hardly there until they are needed.
class QtSlimBars : public QProxyStyle {
  Q_OBJECT

 public:
  explicit QtSlimBars(QObject* parent);

  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override;
  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                       const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;
};

}  // namespace veyra
