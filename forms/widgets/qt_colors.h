#pragma once

#include <QColor>
#include <QPalette>
#include <cstdint>

#include "forms/colors.h"

class QWidget;

namespace veyra {

/// The colour that the theme gives one of its parts.
QColor ColorOfTheme(ThemeColor part, const QPalette& theme);

/// The colour that a colour number stands for in this theme.
QColor ToQColor(std::int32_t number, const QPalette& theme);

/// `preferred` where it can be read on `background`, otherwise black or white.
QColor ReadableOn(const QColor& background, const QColor& preferred);

/// Paints that part of the widget in the colour, whatever state it is in.
void SetColor(QWidget& widget, QPalette::ColorRole role, const QColor& color);

/// The colour between two: `first` at 0, `second` at 1.
QColor Blend(const QColor& first, const QColor& second, double share);

/// The background of a half hour that is booked.
QColor BookedColor(const QPalette& theme);

}  // namespace veyra
