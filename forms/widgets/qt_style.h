#pragma once

#include <QProxyStyle>

namespace veyra {

/// The desktop's own style, with buttons of an even size that bear texts only, slender scroll
/// bars, tooltips after half a second, and a mark on what has the focus whichever way it has come
/// there. Nothing fades or slides, which some cannot bear to see. On a dark desktop, too, the rims
/// of boxes, options and fields and the lines of tables are plain to see, and links and the words
/// in an empty field can be read. REQUIRES: a QApplication.
class QtStyle : public QProxyStyle {
  Q_OBJECT

 public:
  QtStyle();

  using QProxyStyle::polish;
  void polish(QApplication* application) override;
  void polish(QPalette& colors) override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
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
