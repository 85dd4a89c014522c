#include "forms/widgets/qt_style.h"

#include <QApplication>
#include <QEvent>
#include <QFrame>
#include <QPainter>
#include <QPen>
#include <QStyleOption>
#include <QWidget>
#include <algorithm>

#include "forms/widgets/qt_colors.h"

namespace veyra {
namespace {

constexpr int kScrollBarWidth = 12;
constexpr int kButtonWidth = 86;
constexpr int kButtonHeight = 27;
constexpr int kButtonPadding = 24;
constexpr int kToolTipDelay = 500;

constexpr int kFocusFrame = 2;

/// Of the text's colour in the colour that a rim is made from, a plain frame's too, in the lines of
/// a table, in the words that stand in an empty field, and in those of what cannot be used.
constexpr double kRim = 0.85;
constexpr double kFrameRim = 0.5;
constexpr double kLine = 0.25;
constexpr double kHintWords = 0.6;
constexpr double kDisabledWords = 0.5;

bool IsDark(const QPalette& colors) {
  return colors.color(QPalette::Window).lightness() <
         colors.color(QPalette::WindowText).lightness();
}

/// The style makes a rim by darkening what lies behind it.
QPalette WithLightRims(const QPalette& colors, double rim) {
  QPalette light = colors;
  light.setColor(QPalette::Window,
                 Blend(colors.color(QPalette::Window), colors.color(QPalette::WindowText), rim));
  return light;
}

/// A copy of `option` as its own kind, with light rims.
template <typename Option>
Option Light(const QStyleOption& option, double rim = kRim) {
  Option light;
  if (const auto* same = qstyleoption_cast<const Option*>(&option)) {
    light = *same;
  } else {
    light.QStyleOption::operator=(option);
  }
  light.palette = WithLightRims(option.palette, rim);
  return light;
}

/// A frame along the edge, so many pixels wide.
void DrawFocusMark(QPainter& painter, const QStyleOption& option, int width) {
  const double half = width / 2.0;
  painter.save();
  painter.setPen(
      QPen(option.palette.highlight(), width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(QRectF(option.rect).adjusted(half, half, -half, -half));
  painter.restore();
}

QColor LineColor(const QPalette& colors) {
  return Blend(colors.color(QPalette::Base), colors.color(QPalette::Text), kLine);
}

}  // namespace

QtStyle::QtStyle() : QProxyStyle(QApplication::style()->name()) {}

void QtStyle::polish(QApplication* application) {
  QProxyStyle::polish(application);
  application->installEventFilter(this);
}

/// Not every desktop that is dark says in which colours these are to be read.
void QtStyle::polish(QPalette& colors) {
  QProxyStyle::polish(colors);
  if (IsDark(colors)) {
    const QColor base = colors.color(QPalette::Base);
    colors.setColor(QPalette::Link, ReadableShade(base, colors.color(QPalette::Link)));
    colors.setColor(QPalette::PlaceholderText,
                    Blend(base, colors.color(QPalette::Text), kHintWords));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
      colors.setColor(QPalette::Disabled, role,
                      Blend(base, colors.color(QPalette::Active, role), kDisabledWords));
    }
  }
}

/// Other styles draw the mark only after the Tab key, and lists do not draw their frames anew.
bool QtStyle::eventFilter(QObject* watched, QEvent* event) {
  const bool comes = event->type() == QEvent::FocusIn;
  if (comes && watched->isWidgetType()) {
    static_cast<QWidget*>(watched)->window()->setAttribute(Qt::WA_KeyboardFocusChange);
  }
  if (comes || event->type() == QEvent::FocusOut) {
    if (auto* frame = qobject_cast<QFrame*>(watched)) {
      frame->update();
    }
  }
  return QProxyStyle::eventFilter(watched, event);
}

void QtStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
  if (!IsDark(option->palette)) {
    return QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
  switch (element) {
    case PE_IndicatorCheckBox:
    case PE_IndicatorRadioButton: {
      const auto light = Light<QStyleOptionButton>(*option);
      return QProxyStyle::drawPrimitive(element, &light, painter, widget);
    }
    case PE_FrameLineEdit: {
      const auto light = Light<QStyleOptionFrame>(*option);
      return QProxyStyle::drawPrimitive(element, &light, painter, widget);
    }
    case PE_Frame: {
      const auto light = Light<QStyleOptionFrame>(*option, kFrameRim);
      return QProxyStyle::drawPrimitive(element, &light, painter, widget);
    }
    default:
      return QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
}

/// Of a list or table the style shows by a shade of the chosen line alone that it has the focus.
void QtStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
  QProxyStyle::drawControl(element, option, painter, widget);
  const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
  if (element == CE_ShapedFrame && frame != nullptr && frame->frameShape != QFrame::NoFrame &&
      frame->state.testFlag(State_HasFocus)) {
    DrawFocusMark(*painter, *frame, frame->lineWidth);
  }
}

/// Of a scroll bar the style does not show that it has the focus.
void QtStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                 QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  if (control == CC_ScrollBar && option->state.testFlag(State_HasFocus)) {
    DrawFocusMark(*painter, *option, kFocusFrame);
  }
}

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
    case SH_Widget_Animation_Duration:
      return 0;
    case SH_Table_GridLineColor:
      return option != nullptr && IsDark(option->palette)
                 ? static_cast<int>(LineColor(option->palette).rgba())
                 : QProxyStyle::styleHint(hint, option, widget, more);
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
