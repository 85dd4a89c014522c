#include "forms/settings/frmSettings.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "data/color_settings.h"
#include "forms/settings/palette.h"
#include "tests/calendar_folder.h"
#include "tests/forms/fake_windows.h"

namespace veyra {
namespace {

constexpr std::int32_t kRed = 0x0000FF;
constexpr std::int32_t kWindowColor = static_cast<std::int32_t>(0x80000005U);
constexpr std::int32_t kButtonFace = static_cast<std::int32_t>(0x8000000FU);

class FakeSettingsView : public SettingsView {
 public:
  RoleColors Preview{};
  RoleColors CurColors{};
  Rgb Custom;
  std::optional<ColorRole> Focused;

  void ShowPreview(const RoleColors& colors) override { Preview = colors; }
  void ShowCurColors(const RoleColors& colors) override { CurColors = colors; }
  void ShowCustomColor(const Rgb& color) override { Custom = color; }
  void FocusOption(ColorRole role) override { Focused = role; }
  Rgb Resolve(std::int32_t number) const override {
    const auto color = ColorOf(number);
    return std::holds_alternative<Rgb>(color) ? std::get<Rgb>(color) : Rgb{9, 8, 7};
  }
};

class FrmSettingsTest : public testing::Test {
 protected:
  FrmSettingsTest() {
    session_ = folder_.OpenSession();
    EnsureSettingsRow(*session_);
    EnsureTodayBColorColumn(*session_);
    LoadColorSettings(*session_->ResCon, session_->CurrentColors, session_->StoredColors);
    settings_ = std::make_unique<frmSettings>(*session_, mixed_, view_, windows_);
    settings_->Form_Load();
  }

  ColorSettings InFile() {
    ColorSettings current;
    ColorSettings stored;
    Connection connection(folder_.Calendar());
    LoadColorSettings(connection, current, stored);
    return stored;
  }

  const RoleColors defaults_ = {kWindowColor, 12582912, 0, 255, kWindowColor};
  const ColorSettings default_texts_ = {"-2147483643", "12582912", "0", "255", "-2147483643"};
  CalendarFolder folder_;
  FakeSettingsView view_;
  FakeWindows windows_;
  std::unique_ptr<Session> session_;
  MixedColor mixed_;
  std::unique_ptr<frmSettings> settings_;
};

TEST_F(FrmSettingsTest, ItOpensOnTheColorsInUseAndTheStoredOnes) {
  session_->CurrentColors.HeaderTxt = "77";
  settings_->Form_Load();
  EXPECT_EQ(77, view_.Preview[1]);
  EXPECT_EQ(defaults_, view_.CurColors);
}

TEST_F(FrmSettingsTest, TheMixedColorOutlivesTheWindow) {
  settings_->HScroll1_Change(0, 10);
  settings_->HScroll1_Change(1, 20);
  settings_->HScroll1_Change(2, 30);
  settings_ = std::make_unique<frmSettings>(*session_, mixed_, view_, windows_);
  view_.Custom = {};
  settings_->Form_Load();
  EXPECT_EQ((Rgb{10, 20, 30}), view_.Custom);
}

TEST_F(FrmSettingsTest, AClickSetsTheSelectedRoleAndNothingElse) {
  settings_->Option1_Click(ColorRole::Header);
  settings_->Colors_MouseDown(9, SwatchClick::Plain);
  EXPECT_EQ((RoleColors{kWindowColor, kRed, 0, 255, kWindowColor}), view_.Preview);
  EXPECT_EQ(ColorRole::Header, view_.Focused);
}

TEST_F(FrmSettingsTest, EveryRoleTakesItsColor) {
  for (std::size_t role = 0; role < kColorRoles; ++role) {
    settings_->Option1_Click(static_cast<ColorRole>(role));
    settings_->Colors_MouseDown(9, SwatchClick::Plain);
    EXPECT_EQ(kRed, view_.Preview[role]) << role;
  }
}

TEST_F(FrmSettingsTest, ShiftTakesTheColorIntoTheMixer) {
  settings_->Colors_MouseDown(16, SwatchClick::Shift);
  EXPECT_EQ((Rgb{192, 64, 0}), view_.Custom);
  EXPECT_EQ(192, mixed_.CustomRed);
  EXPECT_EQ(64, mixed_.CustomGreen);
  EXPECT_EQ(0, mixed_.CustomBlue);
  EXPECT_EQ(defaults_, view_.Preview);
  EXPECT_EQ(ColorRole::BackGround, view_.Focused);
}

TEST_F(FrmSettingsTest, ShiftOnASystemColorMixesWhatIsSeen) {
  settings_->Colors_MouseDown(1, SwatchClick::Shift);
  EXPECT_EQ((Rgb{9, 8, 7}), view_.Custom);
}

TEST_F(FrmSettingsTest, AnyOtherClickDoesNothing) {
  settings_->Colors_MouseDown(9, SwatchClick::Other);
  EXPECT_EQ(defaults_, view_.Preview);
  EXPECT_EQ(std::nullopt, view_.Focused);
}

TEST_F(FrmSettingsTest, MovingOneBarMixesThatPartOnly) {
  settings_->HScroll1_Change(2, 255);
  EXPECT_EQ((Rgb{0, 0, 255}), view_.Custom);
}

TEST_F(FrmSettingsTest, TheMixedColorIsASwatchLikeAnyOther) {
  settings_->HScroll1_Change(0, 1);
  settings_->HScroll1_Change(1, 2);
  settings_->HScroll1_Change(2, 3);
  settings_->Colors_MouseDown(0, SwatchClick::Plain);
  EXPECT_EQ(1 + 256 * 2 + 65536 * 3, view_.Preview[0]);
}

TEST_F(FrmSettingsTest, ACurrentColorSwatchSetsTheFirstFourRoles) {
  settings_->Option1_Click(ColorRole::Today);
  settings_->CurColors_MouseDown(2, SwatchClick::Plain);
  EXPECT_EQ(12582912, view_.Preview[3]);
}

TEST_F(FrmSettingsTest, ACurrentColorSwatchSetsNoBackgroundOfToday) {
  settings_->Option1_Click(ColorRole::TodayBackGround);
  settings_->CurColors_MouseDown(2, SwatchClick::Plain);
  EXPECT_EQ(defaults_, view_.Preview);
}

TEST_F(FrmSettingsTest, APaletteSquareSetsTheBackgroundOfToday) {
  settings_->Option1_Click(ColorRole::TodayBackGround);
  settings_->Colors_MouseDown(9, SwatchClick::Plain);
  EXPECT_EQ(kRed, view_.Preview[4]);
}

TEST_F(FrmSettingsTest, ACurrentColorSwatchCanBeMixedForEveryRole) {
  settings_->Option1_Click(ColorRole::TodayBackGround);
  settings_->CurColors_MouseDown(4, SwatchClick::Shift);
  EXPECT_EQ((Rgb{255, 0, 0}), view_.Custom);
}

TEST_F(FrmSettingsTest, SavingWritesTheSampleAndShowsItAsCurrent) {
  settings_->Option1_Click(ColorRole::Header);
  settings_->Colors_MouseDown(9, SwatchClick::Plain);
  settings_->Command1_Click();
  const ColorSettings saved = {"-2147483643", "255", "0", "255", "-2147483643"};
  EXPECT_EQ(saved, InFile());
  EXPECT_EQ(saved, session_->CurrentColors);
  EXPECT_EQ(255, view_.CurColors[1]);
  EXPECT_EQ("repaint month\n", windows_.Log);
}

TEST_F(FrmSettingsTest, ASystemColorIsSavedAsTheSystemColorItIs) {
  settings_->Colors_MouseDown(1, SwatchClick::Plain);
  settings_->Command1_Click();
  EXPECT_EQ(std::to_string(kButtonFace), InFile().BkGrnd);
}

TEST_F(FrmSettingsTest, SavingLeavesTheStoredColorsOfThisRun) {
  settings_->Colors_MouseDown(9, SwatchClick::Plain);
  settings_->Command1_Click();
  EXPECT_EQ(default_texts_, session_->StoredColors);
}

TEST_F(FrmSettingsTest, TemporaryColorsAreUsedButNotWritten) {
  settings_->Colors_MouseDown(9, SwatchClick::Plain);
  settings_->Command2_Click();
  EXPECT_EQ("255", session_->CurrentColors.BkGrnd);
  EXPECT_EQ(default_texts_, InFile());
  EXPECT_EQ("repaint month\n", windows_.Log);
}

TEST_F(FrmSettingsTest, ResetAfterSavingGoesBackToTheColorsOfTheStart) {
  settings_->Colors_MouseDown(9, SwatchClick::Plain);
  settings_->Command1_Click();
  settings_->Command3_Click();
  EXPECT_EQ(default_texts_, session_->CurrentColors);
  EXPECT_EQ("255", InFile().BkGrnd);
  EXPECT_EQ("repaint month\nrepaint month\n", windows_.Log);
}

TEST_F(FrmSettingsTest, SavingWithoutTheRowChangesNothingInMemory) {
  session_->ResCon->Open("SELECT * FROM Settings", CursorType::StaticOptimistic)->Delete();
  settings_->Colors_MouseDown(9, SwatchClick::Plain);
  settings_->Command1_Click();
  EXPECT_EQ(default_texts_, session_->CurrentColors);
  EXPECT_EQ(defaults_, view_.CurColors);
}

TEST_F(FrmSettingsTest, HelpOpensTheHelpFile) {
  settings_->mnuHelp_Click();
  EXPECT_EQ("help 0\n", windows_.Log);
}

TEST_F(FrmSettingsTest, ClosingEnablesTheMonth) {
  settings_->Form_Unload();
  EXPECT_EQ("enable month\n", windows_.Log);
}

TEST(PaletteTest, HasTheseColoursRowByRow) {
  const std::array<std::array<const char*, kPaletteColumns>, kPaletteRows> rows{
      {{"", "FFC0C0", "FFE0C0", "FFFFC0", "C0FFC0", "C0FFFF", "C0C0FF", "FFC0FF"},
       {"E0E0E0", "FF8080", "FFC080", "FFFF80", "80FF80", "80FFFF", "8080FF", "FF80FF"},
       {"C0C0C0", "FF0000", "FF8000", "FFFF00", "00FF00", "00FFFF", "0000FF", "FF00FF"},
       {"808080", "C00000", "C04000", "C0C000", "00C000", "00C0C0", "0000C0", "C000C0"},
       {"404040", "800000", "804000", "808000", "008000", "008080", "000080", "800080"},
       {"000000", "400000", "804040", "404000", "004000", "004040", "000040", "400040"}}};
  std::size_t row_number = 0;
  for (const auto& row : rows) {
    std::size_t square = ++row_number;
    for (const std::string web : row) {
      // A colour number has red in its lowest byte.
      const std::string reversed =
          web.empty() ? "" : web.substr(4, 2) + web.substr(2, 2) + web.substr(0, 2);
      EXPECT_EQ(web.empty() ? kButtonFace : std::stoi(reversed, nullptr, 16), kPalette[square])
          << "Colors(" << square << ")";
      square += kPaletteRows;
    }
  }
}

}  // namespace
}  // namespace veyra
