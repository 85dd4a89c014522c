#include <QAbstractButton>
#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>

#include "forms/contrast.h"
#include "forms/settings/palette.h"
#include "forms/twips.h"
#include "tests/qt/program_fixture.h"

namespace veyra {
namespace {

class SettingsWindowTest : public ProgramFixture {
 protected:
  void Open() {
    Start();
    In<QAction>(Month(), "mnuSettings").trigger();
    ASSERT_NE(nullptr, Settings());
    ASSERT_TRUE(IsInUse(Settings()));
  }

  static QWidget* Settings() { return Window("frmSettings"); }
  static QAbstractButton& Swatch(const char* array, int index) {
    return In<QAbstractButton>(Settings(),
                               QStringLiteral("%1(%2)").arg(QLatin1String(array)).arg(index));
  }
  static QAbstractButton& Square(int index) { return Swatch("Colors", index); }
  static QRadioButton& Option(int role) {
    return In<QRadioButton>(Settings(), QStringLiteral("Option1(%1)").arg(role));
  }
  static QScrollBar& Bar(int index) {
    return In<QScrollBar>(Settings(), QStringLiteral("HScroll1(%1)").arg(index));
  }
  static QLabel& Label(const QString& name) { return In<QLabel>(Settings(), name); }

  static void Press(QAbstractButton& swatch, Qt::KeyboardModifiers modifiers = {},
                    Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(&swatch, button, modifiers);
  }

  /// The colour in the middle of a swatch, as it is painted: "#C04000".
  static std::string Shown(QWidget& swatch) {
    const QImage picture = swatch.grab().toImage();
    return picture.pixelColor(picture.rect().center()).name().toUpper().toStdString();
  }

  static std::string TextColor(const QString& label) {
    return Label(label).palette().color(QPalette::WindowText).name().toUpper().toStdString();
  }

  static std::string Custom() {
    return std::to_string(Bar(0).value()) + " " + std::to_string(Bar(1).value()) + " " +
           std::to_string(Bar(2).value()) + " " + Shown(Square(0));
  }

  /// The colours of the sample, without its lines.
  static std::string Sample() {
    auto& frame = In<QWidget>(Settings(), "Frame1");
    const auto name = [](const QColor& color) { return color.name().toUpper().toStdString(); };
    return name(frame.palette().color(QPalette::Window)) + " " + TextColor("Label1") + " " +
           TextColor("Label2") + " " + TextColor("Label3(0)") + " " + TextColor("Label3(4)") + " " +
           TextColor("Label4") + " " + name(Label("Label4").palette().color(QPalette::Window));
  }
};

TEST_F(SettingsWindowTest, ItsTextsAreThoseOfTheDesign) {
  Open();
  EXPECT_EQ("Calendar Color Settings", Settings()->windowTitle().toStdString());
  const std::vector<std::pair<const char*, const char*>> labels = {
      {"Label5", "Custom Color"}, {"Label6(0)", "R"},
      {"Label6(1)", "G"},         {"Label6(2)", "B"},
      {"Label1", "Hearers"},      {"Label2", "Sun   Mon    Tue    Wed   Thu     Fri       Sat"},
      {"Label4", "Today"}};
  for (const auto& [name, text] : labels) {
    EXPECT_EQ(text, Label(QLatin1String(name)).text().toStdString());
  }
  EXPECT_EQ("Current Colors", In<QGroupBox>(Settings(), "Frame3").title().toStdString());
  EXPECT_EQ("Help", Words(In<QAction>(Settings(), "mnuHelp").text()));
}

TEST_F(SettingsWindowTest, ItsRolesAndButtonsBearTheirCaptions) {
  Open();
  const std::vector<const char*> roles = {"BackGround Color", "Header Color", "Day Color",
                                          "ToDay's Color", "ToDay's BkGrnd Color"};
  for (std::size_t role = 0; role < roles.size(); ++role) {
    EXPECT_EQ(roles[role], Words(Option(static_cast<int>(role)).text()));
  }
  EXPECT_TRUE(Option(0).isChecked());
  const std::vector<std::pair<const char*, const char*>> buttons = {
      {"Command1", "Save New Colors"},
      {"Command2", "Tempory Use Colors"},
      {"Command3", "Reset Current Colors"}};
  for (const auto& [name, caption] : buttons) {
    EXPECT_EQ(caption, Words(In<QPushButton>(Settings(), name).text()));
  }
}

TEST_F(SettingsWindowTest, CurrentColorsAreTheStoredOnes) {
  Open();
  const std::vector<const char*> tooltips = {"BackGround Color", "Header Color", "Day Number Color",
                                             "Today's Number Color", "Today's Background Color"};
  const std::vector<const char*> colors = {"#FFFFFF", "#0000C0", "#000000", "#FF0000", "#FFFFFF"};
  for (int i = 0; i < 5; ++i) {
    QAbstractButton& swatch = Swatch("CurColors", i + 1);
    EXPECT_EQ(tooltips[static_cast<std::size_t>(i)], swatch.toolTip().toStdString());
    EXPECT_EQ(tooltips[static_cast<std::size_t>(i)], swatch.accessibleName().toStdString());
    EXPECT_EQ(colors[static_cast<std::size_t>(i)], Shown(swatch));
  }
}

TEST_F(SettingsWindowTest, ThePaletteHasItsColorsWhereTheyBelong) {
  Open();
  const QPoint origin = Square(1).pos();
  const int step = PixelsFromTwips(360, Settings()->logicalDpiX());
  const int side = PixelsFromTwips(375, Settings()->logicalDpiX());
  EXPECT_EQ(QPoint(PixelsFromTwips(240, Settings()->logicalDpiX()),
                   PixelsFromTwips(240, Settings()->logicalDpiY())),
            origin);
  for (int index = 1; index <= 48; ++index) {
    const int column = (index - 1) / 6;
    const int row = (index - 1) % 6;
    EXPECT_EQ(origin + QPoint(column * step, row * step), Square(index).pos()) << index;
    EXPECT_EQ(QSize(side, side), Square(index).size()) << index;
    EXPECT_EQ(Square(index).toolTip().toStdString(), Shown(Square(index))) << index;
    EXPECT_EQ("Color " + Shown(Square(index)), Square(index).accessibleName().toStdString());
  }
  EXPECT_EQ("#FF0000", Shown(Square(9)));
  EXPECT_EQ("#804040", Shown(Square(18)));
  EXPECT_EQ("#400040", Shown(Square(48)));
}

TEST_F(SettingsWindowTest, EverySquareHasAVisibleEdge) {
  Open();
  for (int index = 1; index <= 48; ++index) {
    const QImage picture = Square(index).grab().toImage();
    EXPECT_NE(picture.pixelColor(1, 1), picture.pixelColor(0, 0)) << index;
  }
}

TEST_F(SettingsWindowTest, AClickTurnsTheHeadersRedAndNothingElse) {
  Open();
  Option(1).click();
  Press(Square(9));
  EXPECT_EQ("#FFFFFF #FF0000 #FF0000 #000000 #000000 #FF0000 #FFFFFF", Sample());
  EXPECT_TRUE(Option(1).hasFocus());
}

TEST_F(SettingsWindowTest, EachRoleHasItsPlaceInTheSample) {
  Open();
  const std::vector<int> squares = {8, 14, 20, 26, 32};
  for (int role = 0; role < 5; ++role) {
    Option(role).click();
    Press(Square(squares[static_cast<std::size_t>(role)]));
  }
  EXPECT_EQ("#FF8080 #FFC080 #FFC080 #FFFF80 #FFFF80 #80FF80 #80FFFF", Sample());
}

TEST_F(SettingsWindowTest, ShiftTakesTheColorIntoTheMixer) {
  Open();
  Press(Square(16), Qt::ShiftModifier);
  EXPECT_EQ("192 64 0 #C04000", Custom());
  EXPECT_EQ("#C04000", Square(0).toolTip().toStdString());
  EXPECT_EQ("#FFFFFF #0000C0 #0000C0 #000000 #000000 #FF0000 #FFFFFF", Sample());
}

TEST_F(SettingsWindowTest, OtherClicksDoNothing) {
  Open();
  const std::string before = Sample() + Custom();
  Press(Square(16), Qt::ControlModifier);
  Press(Square(16), Qt::ShiftModifier | Qt::ControlModifier);
  Press(Square(16), {}, Qt::RightButton);
  EXPECT_EQ(before, Sample() + Custom());
}

TEST_F(SettingsWindowTest, TheBarsMixAColorThatCanBeUsed) {
  Open();
  Bar(2).setValue(255);
  EXPECT_EQ("0 0 255 #0000FF", Custom());
  Press(Square(0));
  EXPECT_EQ(0U, Sample().find("#0000FF "));
}

TEST_F(SettingsWindowTest, TheBarsStayWithinAByte) {
  Open();
  for (int bar = 0; bar < 3; ++bar) {
    EXPECT_EQ(0, Bar(bar).minimum());
    EXPECT_EQ(255, Bar(bar).maximum());
  }
}

TEST_F(SettingsWindowTest, ACurrentColorSetsNoBackgroundOfToday) {
  Open();
  Option(4).click();
  Press(Swatch("CurColors", 4));
  EXPECT_EQ("#FFFFFF #0000C0 #0000C0 #000000 #000000 #FF0000 #FFFFFF", Sample());
  Press(Square(9));
  EXPECT_EQ("#FFFFFF #0000C0 #0000C0 #000000 #000000 #FF0000 #FF0000", Sample());
}

TEST_F(SettingsWindowTest, KeysMoveInThePaletteApplyAndMix) {
  Open();
  Square(1).setFocus();
  QTest::keyClick(&Square(1), Qt::Key_Right);
  EXPECT_TRUE(Square(7).hasFocus());
  QTest::keyClick(&Square(7), Qt::Key_Down);
  QTest::keyClick(&Square(8), Qt::Key_Down);
  ASSERT_TRUE(Square(9).hasFocus());
  QTest::keyClick(&Square(9), Qt::Key_Space, Qt::ShiftModifier);
  EXPECT_EQ("255 0 0 #FF0000", Custom());
  QTest::keyClick(&Square(9), Qt::Key_Return);
  EXPECT_EQ(0U, Sample().find("#FF0000 "));
}

TEST_F(SettingsWindowTest, KeysStopAtTheEdgeOfThePalette) {
  Open();
  Square(1).setFocus();
  QTest::keyClick(&Square(1), Qt::Key_Left);
  QTest::keyClick(&Square(1), Qt::Key_Up);
  EXPECT_TRUE(Square(1).hasFocus());
}

TEST_F(SettingsWindowTest, TheSquareWithTheFocusIsPlainToSeeWhateverItsColor) {
  constexpr int kWithinItsEdge = 3;
  constexpr double kPlainContrast = 3.0;
  Open();
  const auto part = [](int channel) { return static_cast<std::uint8_t>(channel); };
  const auto color = [&](const QColor& of) {
    return Rgb{part(of.red()), part(of.green()), part(of.blue())};
  };
  for (int index = 1; index <= 48; ++index) {
    Square(index).setFocus();
    const QImage picture = Square(index).grab().toImage();
    EXPECT_GE(Contrast(color(picture.pixelColor(kWithinItsEdge, kWithinItsEdge)),
                       color(picture.pixelColor(picture.rect().center()))),
              kPlainContrast)
        << index;
  }
}

TEST_F(SettingsWindowTest, TabReachesOneSquareOfThePalette) {
  Open();
  int stops = 0;
  for (int index = 1; index <= 48; ++index) {
    stops += (Square(index).focusPolicy() & Qt::TabFocus) != 0 ? 1 : 0;
  }
  EXPECT_EQ(1, stops);
}

TEST_F(SettingsWindowTest, TheMonthTakesColorsThatAreOnlyTried) {
  Open();
  Option(1).click();
  Press(Square(9));
  In<QPushButton>(Settings(), "Command2").click();
  EXPECT_EQ(QColor(255, 0, 0),
            In<QLabel>(Month(), "lblMonth").palette().color(QPalette::WindowText));
  EXPECT_EQ("#0000C0", Shown(Swatch("CurColors", 2)));
}

TEST_F(SettingsWindowTest, SavedColorsAreShownAsCurrentAndResetGoesBackToTheStart) {
  Open();
  Option(1).click();
  Press(Square(9));
  In<QPushButton>(Settings(), "Command1").click();
  EXPECT_EQ("#FF0000", Shown(Swatch("CurColors", 2)));
  In<QPushButton>(Settings(), "Command3").click();
  EXPECT_EQ(QColor(0, 0, 192),
            In<QLabel>(Month(), "lblMonth").palette().color(QPalette::WindowText));
}

TEST_F(SettingsWindowTest, AnotherOpeningBeginsWithTheFirstRole) {
  Open();
  Option(3).click();
  Settings()->close();
  In<QAction>(Month(), "mnuSettings").trigger();
  EXPECT_TRUE(Option(0).isChecked());
}

TEST_F(SettingsWindowTest, TheMonthIsNotGreyWhileItWaits) {
  Open();
  ASSERT_FALSE(List(1).isEnabled());
  const QPalette colors = List(1).palette();
  EXPECT_EQ(colors.color(QPalette::Active, QPalette::Text),
            colors.color(QPalette::Disabled, QPalette::Text));
  EXPECT_EQ(colors.color(QPalette::Active, QPalette::Base),
            colors.color(QPalette::Disabled, QPalette::Base));
}

/// A dark desktop, while it lives.
class DarkDesktop {
 public:
  DarkDesktop() : before_(QGuiApplication::palette()) {
    QPalette dark = before_;
    for (const auto role : {QPalette::Window, QPalette::Button, QPalette::Base}) {
      dark.setColor(role, QColor(49, 54, 59));
    }
    QApplication::setPalette(dark);
  }
  ~DarkDesktop() { QApplication::setPalette(before_); }

 private:
  QPalette before_;
};

TEST_F(SettingsWindowTest, OnADarkDesktopThePreviewAndTheMonthShowTheSameReadableColours) {
  const DarkDesktop dark;
  Open();
  const auto color_in_month = [](const char* label) {
    return In<QLabel>(Month(), QLatin1String(label)).palette().color(QPalette::WindowText);
  };
  const auto readable = [](const QColor& color) { return color.lightness() > 100; };
  EXPECT_TRUE(readable(color_in_month("lblMonth")));
  EXPECT_TRUE(readable(color_in_month("lblDate(20)")));
  EXPECT_EQ(color_in_month("lblMonth").name().toUpper().toStdString(), TextColor("Label1"));
  EXPECT_EQ(color_in_month("lblDate(20)").name().toUpper().toStdString(), TextColor("Label3(0)"));
}

}  // namespace
}  // namespace veyra
