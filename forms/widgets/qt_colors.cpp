#include "forms/widgets/qt_colors.h"

#include <QWidget>
#include <algorithm>
#include <cmath>
#include <utility>

namespace veyra {
namespace {

/// The least ratio of contrast at which text still reads well: WCAG 2.1, large text.
constexpr double kReadableContrast = 3.0;

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

double Linear(double channel) {
  return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& color) {
  return 0.2126 * Linear(color.redF()) + 0.7152 * Linear(color.greenF()) +
         0.0722 * Linear(color.blueF());
}

double Contrast(const QColor& one, const QColor& other) {
  const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

}  // namespace

QColor ColorOfTheme(ThemeColor part, const QPalette& theme) {
  const bool dimmed = part == ThemeColor::GrayText;
  return theme.color(dimmed ? QPalette::Disabled : QPalette::Active, RoleOf(part));
}

QColor ToQColor(std::int32_t number, const QPalette& theme) {
  const auto color = ColorOf(number);
  if (const auto* direct = std::get_if<Rgb>(&color)) {
    return {direct->Red, direct->Green, direct->Blue};
  }
  return ColorOfTheme(std::get<ThemeColor>(color), theme);
}

QColor ReadableOn(const QColor& background, const QColor& preferred) {
  if (Contrast(background, preferred) >= kReadableContrast) {
    return preferred;
  }
  const QColor black(Qt::black);
  const QColor white(Qt::white);
  return Contrast(background, black) >= Contrast(background, white) ? black : white;
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
  return Blend(theme.color(QPalette::Base), theme.color(QPalette::Highlight), kTint);
}

}  // namespace veyra
