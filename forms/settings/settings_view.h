#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "forms/colors.h"

namespace veyra {

/// Which colour a click sets: the index of its option button Option1(0) to Option1(4).
enum class ColorRole : std::size_t { BackGround, Header, DayNumbers, Today, TodayBackGround };

inline constexpr std::size_t kColorRoles = 5;

/// A colour number for each role.
using RoleColors = std::array<std::int32_t, kColorRoles>;

/// What the colour settings window's logic tells its screen. The screen reports gestures to
/// frmSettings.
class SettingsView {
 public:
  virtual ~SettingsView() = default;

  /// Paints the sample calendar.
  virtual void ShowPreview(const RoleColors& colors) = 0;

  /// Paints the swatches CurColors(1) to CurColors(5).
  virtual void ShowCurColors(const RoleColors& colors) = 0;

  /// Paints the custom swatch Colors(0) and sets the three scroll bars, each 0 to 255.
  virtual void ShowCustomColor(const Rgb& color) = 0;

  /// Gives the focus to Option1(role).
  virtual void FocusOption(ColorRole role) = 0;

  /// The colour on the screen of a colour number, system colours included.
  virtual Rgb Resolve(std::int32_t number) const = 0;
};

}  // namespace veyra
