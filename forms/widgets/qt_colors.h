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

/// The colour in which a text that is stored as `number` is drawn on a background that is stored as
/// `background`. On a dark part of the theme it is lightened when it cannot be read there. The
/// light ones, for which the colours were chosen, and a background of the operator's own leave it
/// as it is.
QColor TextColorOn(std::int32_t background, std::int32_t number, const QPalette& theme);

/// `preferred`, or the shade next to it in which a text can be read on `background`.
QColor ReadableShade(const QColor& background, const QColor& preferred);

/// `preferred` where it can be read on `background`, otherwise black or white.
QColor ReadableOn(const QColor& background, const QColor& preferred);

/// Paints that part of the widget in the colour, whatever state it is in.
void SetColor(QWidget& widget, QPalette::ColorRole role, const QColor& color);

/// The colour between two: `first` at 0, `second` at 1.
QColor Blend(const QColor& first, const QColor& second, double share);

/// The background of a half hour that is booked, and another shade of it for the next booking.
QColor BookedColor(const QPalette& theme);
QColor OtherBookedColor(const QPalette& theme);

}  // namespace veyra
