#include "forms/widgets/qt_colors.h"

#include <QWidget>
#include <cmath>
#include <variant>

#include "forms/contrast.h"

namespace veyra {
namespace {

/// The least ratio of contrast at which large text still reads well: WCAG 2.1, level AA.
constexpr double kLargeTextContrast = 3.0;

/// A background that is lighter, of 0 to 255, is not a dark one.
constexpr int kDarkest = 127;

QPalette::ColorRole RoleOf(ThemeColor part) {
  switch (part) {
    case ThemeColor::Window:
      return QPalette::Base;
    case ThemeColor::WindowText:
    case ThemeColor::GrayText:
      return QPalette::Text;
    case ThemeColor::Menu:
    case ThemeColor::MenuBar:
    case ThemeColor::ActiveBorder:
    case ThemeColor::InactiveBorder:
      return QPalette::Window;
    case ThemeColor::MenuText:
      return QPalette::WindowText;
    case ThemeColor::ButtonFace:
    case ThemeColor::ScrollBar:
      return QPalette::Button;
    case ThemeColor::ButtonText:
      return QPalette::ButtonText;
    case ThemeColor::ButtonHighlight:
      return QPalette::Light;
    case ThemeColor::ButtonLight:
    case ThemeColor::InactiveTitleGradient:
      return QPalette::Midlight;
    case ThemeColor::ButtonShadow:
    case ThemeColor::InactiveTitle:
      return QPalette::Mid;
    case ThemeColor::Desktop:
    case ThemeColor::ApplicationWorkspace:
      return QPalette::Dark;
    case ThemeColor::ButtonDarkShadow:
    case ThemeColor::WindowFrame:
      return QPalette::Shadow;
    case ThemeColor::ActiveTitle:
    case ThemeColor::ActiveTitleGradient:
    case ThemeColor::Highlight:
    case ThemeColor::MenuHighlight:
      return QPalette::Highlight;
    case ThemeColor::ActiveTitleText:
    case ThemeColor::HighlightText:
      return QPalette::HighlightedText;
    case ThemeColor::InactiveTitleText:
      return QPalette::PlaceholderText;
    case ThemeColor::TooltipText:
      return QPalette::ToolTipText;
    case ThemeColor::Tooltip:
      return QPalette::ToolTipBase;
    case ThemeColor::HotTrack:
      return QPalette::Link;
  }
  return QPalette::Base;
}

Rgb ToRgb(const QColor& color) {
  const auto part = [](int channel) { return static_cast<std::uint8_t>(channel); };
  return {part(color.red()), part(color.green()), part(color.blue())};
}

QColor ToQColor(Rgb color) {
  return {color.Red, color.Green, color.Blue};
}

QColor BookedShade(const QPalette& theme, double tint) {
  return Blend(theme.color(QPalette::Base), theme.color(QPalette::Highlight), tint);
}

}  // namespace

QColor ColorOfTheme(ThemeColor part, const QPalette& theme) {
  const bool dimmed = part == ThemeColor::GrayText;
  return theme.color(dimmed ? QPalette::Disabled : QPalette::Active, RoleOf(part));
}

QColor ToQColor(std::int32_t number, const QPalette& theme) {
  const auto color = ColorOf(number);
  if (const auto* direct = std::get_if<Rgb>(&color)) {
    return ToQColor(*direct);
  }
  return ColorOfTheme(std::get<ThemeColor>(color), theme);
}

QColor TextColorOn(std::int32_t background, std::int32_t number, const QPalette& theme) {
  const QColor stored = ToQColor(number, theme);
  const QColor ground = ToQColor(background, theme);
  if (std::holds_alternative<Rgb>(ColorOf(background)) || ground.lightness() > kDarkest) {
    return stored;
  }
  return ToQColor(Readable(ToRgb(stored), ToRgb(ground)));
}

QColor ReadableShade(const QColor& background, const QColor& preferred) {
  return ToQColor(Readable(ToRgb(preferred), ToRgb(background)));
}

QColor ReadableOn(const QColor& background, const QColor& preferred) {
  const Rgb ground = ToRgb(background);
  if (Contrast(ground, ToRgb(preferred)) >= kLargeTextContrast) {
    return preferred;
  }
  const QColor black(Qt::black);
  const QColor white(Qt::white);
  return Contrast(ground, ToRgb(black)) >= Contrast(ground, ToRgb(white)) ? black : white;
}

void SetColor(QWidget& widget, QPalette::ColorRole role, const QColor& color) {
  QPalette colors = widget.palette();
  colors.setColor(role, color);
  widget.setPalette(colors);
}

QColor Blend(const QColor& first, const QColor& second, double share) {
  const auto mix = [share](int from, int to) {
    return static_cast<int>(std::lround(from + (to - from) * share));
  };
  return {mix(first.red(), second.red()), mix(first.green(), second.green()),
          mix(first.blue(), second.blue())};
}

QColor BookedColor(const QPalette& theme) {
  constexpr double kTint = 0.22;
  return BookedShade(theme, kTint);
}

QColor OtherBookedColor(const QPalette& theme) {
  constexpr double kTint = 0.34;
  return BookedShade(theme, kTint);
}

}  // namespace veyra
