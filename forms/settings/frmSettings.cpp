#include "forms/settings/frmSettings.h"

#include <algorithm>
#include <string>

#include "data/color_settings.h"
#include "forms/settings/palette.h"
#include "logic/help_viewer.h"

namespace veyra {
namespace {

std::int32_t NumberOf(const Rgb& color) {
  return color.Red + 256 * color.Green + 65536 * color.Blue;
}

RoleColors NumbersOf(const ColorSettings& colors) {
  return {ColorNumber(colors.BkGrnd, "BkGrnd"), ColorNumber(colors.HeaderTxt, "HeaderTxt"),
          ColorNumber(colors.DaysTxtColor, "DaysTxtColor"),
          ColorNumber(colors.TodayColor, "TodayColor"),
          ColorNumber(colors.TodayBColor, "TodayBColor")};
}

}  // namespace

frmSettings::frmSettings(Session& session, MixedColor& mixed, SettingsView& view, Windows& windows)
    : session_(session), mixed_(mixed), view_(view), windows_(windows) {}

void frmSettings::Form_Load() {
  cur_colors_ = NumbersOf(session_.StoredColors);
  preview_ = NumbersOf(session_.CurrentColors);
  view_.ShowCurColors(cur_colors_);
  view_.ShowPreview(preview_);
  view_.ShowCustomColor(CustomColor());
}

void frmSettings::Option1_Click(ColorRole role) {
  role_ = role;
}

void frmSettings::Colors_MouseDown(std::size_t index, SwatchClick click) {
  SwatchClicked(index == 0 ? NumberOf(CustomColor()) : kPalette[index], click, true);
}

void frmSettings::CurColors_MouseDown(std::size_t index, SwatchClick click) {
  SwatchClicked(cur_colors_.at(index - 1), click, role_ != ColorRole::TodayBackGround);
}

void frmSettings::HScroll1_Change(std::size_t index, int value) {
  const int part = std::clamp(value, 0, 255);
  (index == 0 ? mixed_.CustomRed : index == 1 ? mixed_.CustomGreen : mixed_.CustomBlue) = part;
  view_.ShowCustomColor(CustomColor());
}

void frmSettings::Command1_Click() {
  if (SaveColorSettings(*session_.ResCon, Chosen(), session_.CurrentColors)) {
    cur_colors_ = preview_;
    view_.ShowCurColors(cur_colors_);
  }
  ShowCurrentColors();
}

void frmSettings::Command2_Click() {
  session_.CurrentColors = Chosen();
  ShowCurrentColors();
}

void frmSettings::Command3_Click() {
  session_.CurrentColors = session_.StoredColors;
  ShowCurrentColors();
}

void frmSettings::mnuHelp_Click() {
  windows_.ShowHelp(kHelpFile);
}

void frmSettings::Form_Unload() {
  windows_.EnableMonthWindow(true);
}

void frmSettings::SwatchClicked(std::int32_t color, SwatchClick click, bool sets_role) {
  if (click == SwatchClick::Shift) {
    SplitColor(view_.Resolve(color));
    view_.ShowCustomColor(CustomColor());
    view_.FocusOption(role_);
  } else if (click == SwatchClick::Plain && sets_role) {
    preview_.at(static_cast<std::size_t>(role_)) = color;
    view_.ShowPreview(preview_);
    view_.FocusOption(role_);
  }
}

void frmSettings::SplitColor(const Rgb& color) {
  mixed_.CustomRed = color.Red;
  mixed_.CustomGreen = color.Green;
  mixed_.CustomBlue = color.Blue;
}

Rgb frmSettings::CustomColor() const {
  const auto part = [](int value) { return static_cast<std::uint8_t>(value); };
  return {part(mixed_.CustomRed), part(mixed_.CustomGreen), part(mixed_.CustomBlue)};
}

ColorSettings frmSettings::Chosen() const {
  const auto text = [this](ColorRole role) {
    return std::to_string(preview_.at(static_cast<std::size_t>(role)));
  };
  return {text(ColorRole::BackGround), text(ColorRole::Header), text(ColorRole::DayNumbers),
          text(ColorRole::Today), text(ColorRole::TodayBackGround)};
}

void frmSettings::ShowCurrentColors() {
  windows_.RepaintMonthWindow();
}

}  // namespace veyra
