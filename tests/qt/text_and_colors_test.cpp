#include <gtest/gtest.h>

#include <QGuiApplication>
#include <string>

#include "forms/widgets/qt_colors.h"
#include "forms/widgets/qt_text.h"

namespace veyra {
namespace {

using namespace std::string_literals;

TEST(QtText, AnyScriptComesBackAsItWent) {
  const std::string text = "Zoë 結婚式 🎂 שלום";
  EXPECT_EQ(text, ToUtf8(ToQString(text)));
}

TEST(QtText, AByteThatIsNoTextIsShownAsTheReplacementCharacter) {
  EXPECT_EQ("a\xEF\xBF\xBD", ToUtf8(ToQString("a\xFF"s)));
}

TEST(QtText, ControlCharactersAndLineBreaksAreBlanksOnOneLine) {
  EXPECT_EQ("a b c d e f", OneLine("a\r\nb\nc\td\xE2\x80\xA8"
                                   "e\x01"
                                   "f"s)
                               .toStdString());
}

TEST(QtText, BlanksWithinALineStay) {
  EXPECT_EQ(" a  b ", OneLine(" a  b "s).toStdString());
}

TEST(QtText, AToolTipShowsMarkupAsItStands) {
  EXPECT_TRUE(PlainToolTip("<b>&"s).contains(QStringLiteral("&lt;b&gt;&amp;")));
}

TEST(QtText, AToolTipOfAVeryLongTextIsCut) {
  EXPECT_LT(PlainToolTip(std::string(10000, 'x')).size(), 1000);
}

TEST(QtColors, ADirectColorHasRedInTheLowestByte) {
  EXPECT_EQ(QColor(0x12, 0x34, 0x56), ToQColor(0x563412, QPalette()));
}

TEST(QtColors, TheSystemWindowColorIsTheThemes) {
  QPalette theme;
  theme.setColor(QPalette::Base, QColor(1, 2, 3));
  EXPECT_EQ(QColor(1, 2, 3), ToQColor(-2147483643, theme));
}

TEST(QtColors, EverySystemColorHasAColorInTheTheme) {
  for (std::int32_t index = 0; index <= 30; ++index) {
    const auto number = static_cast<std::int32_t>(0x80000000U + static_cast<unsigned>(index));
    EXPECT_TRUE(ToQColor(number, QGuiApplication::palette()).isValid()) << index;
  }
}

TEST(QtColors, GrayTextIsThatOfDisabledControls) {
  QPalette theme;
  theme.setColor(QPalette::Disabled, QPalette::Text, QColor(9, 9, 9));
  EXPECT_EQ(QColor(9, 9, 9), ColorOfTheme(ThemeColor::GrayText, theme));
}

TEST(QtColors, TextThatCannotBeReadOnItsBackgroundGivesWay) {
  EXPECT_EQ(QColor(Qt::white), ReadableOn(Qt::black, QColor(20, 20, 20)));
  EXPECT_EQ(QColor(Qt::black), ReadableOn(Qt::yellow, QColor(250, 250, 200)));
  EXPECT_EQ(QColor(Qt::blue), ReadableOn(Qt::white, Qt::blue));
}

constexpr std::int32_t kButtonFace = -2147483633;

TEST(TextColorOnTest, OnADarkDesktopATextThatCannotBeReadIsLightened) {
  QPalette dark;
  dark.setColor(QPalette::Button, QColor(49, 54, 59));
  EXPECT_EQ(QColor(255, 255, 255), TextColorOn(kButtonFace, 0xFFFFFF, dark));
  EXPECT_EQ(QColor(158, 158, 158), TextColorOn(kButtonFace, 0x000000, dark));
}

/// The colours of the design among them: red on white.
TEST(TextColorOnTest, OnALightDesktopItStaysAsStored) {
  QPalette light;
  light.setColor(QPalette::Button, Qt::white);
  EXPECT_EQ(QColor(255, 0, 0), TextColorOn(kButtonFace, 0x0000FF, light));
}

TEST(TextColorOnTest, OnABackgroundOfOnesOwnChoiceItStaysAsStored) {
  EXPECT_EQ(QColor(10, 10, 10), TextColorOn(0x000000, 0x0A0A0A, QPalette()));
}

}  // namespace
}  // namespace veyra
