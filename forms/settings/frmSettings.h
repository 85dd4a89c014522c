#pragma once

#include <cstddef>
#include <cstdint>

#include "forms/settings/mixed_color.h"
#include "forms/settings/settings_view.h"
#include "forms/windows.h"
#include "logic/session.h"

namespace veyra {

/// The part of the keyboard and mouse that a click on a swatch came with.
enum class SwatchClick { Plain, Shift, Other };

/// The colour settings window: the five colours of the month window, picked from a palette or
/// mixed, tried on a sample, then saved, used for this run, or dropped.
class frmSettings {
 public:
  /// All of them must outlive the window.
  frmSettings(Session& session, MixedColor& mixed, SettingsView& view, Windows& windows);

  /// Paints the swatches in StoredColors and the sample in CurrentColors. Throws ValueError when
  /// one of them is not a number.
  void Form_Load();

  void Option1_Click(ColorRole role);

  /// Colors(1) to (48), or 0 for the mixed colour. Plain sets the selected role in the sample;
  /// Shift takes the colour into the mixer.
  void Colors_MouseDown(std::size_t index, SwatchClick click);

  /// CurColors(1) to (5). As a click on the palette, but a plain one sets no ToDay's BkGrnd Color:
  /// the two kinds of swatch differ by design.
  void CurColors_MouseDown(std::size_t index, SwatchClick click);

  void HScroll1_Change(std::size_t index, int value);  ///< 0 red, 1 green, 2 blue; 0 to 255.

  void Command1_Click();  ///< "Save New Colors". Throws DatabaseError.
  void Command2_Click();  ///< "Tempory Use Colors"
  void Command3_Click();  ///< "Reset Current Colors": back to those read at start-up.

  void mnuHelp_Click();

  /// The window goes: the month window takes input again.
  void Form_Unload();

 private:
  void SwatchClicked(std::int32_t color, SwatchClick click, bool sets_role);
  void SplitColor(const Rgb& color);
  Rgb CustomColor() const;
  ColorSettings Chosen() const;
  void ShowCurrentColors();

  Session& session_;
  MixedColor& mixed_;
  SettingsView& view_;
  Windows& windows_;
  ColorRole role_ = ColorRole::BackGround;
  RoleColors preview_{};
  RoleColors cur_colors_{};
};

}  // namespace veyra
