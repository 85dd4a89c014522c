#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOption>
#include <QTableWidget>
#include <QTest>
#include <QVBoxLayout>
#include <algorithm>

#include "forms/contrast.h"

namespace veyra {
namespace {

/// The least contrast at which the parts of a control can be told: WCAG 2.1, 1.4.11.
constexpr double kPlainContrast = 3.0;

Rgb ToRgb(const QColor& color) {
  const auto part = [](int channel) { return static_cast<std::uint8_t>(channel); };
  return {part(color.red()), part(color.green()), part(color.blue())};
}

/// A window with one control, which has the focus, and another.
template <typename Control>
class ControlWindow {
 public:
  explicit ControlWindow(const QPalette& colors = QApplication::palette()) {
    window_.setPalette(colors);
    auto* column = new QVBoxLayout(&window_);
    column->addWidget(control_ = new Control(&window_));
    column->addWidget(other_ = new QPushButton(&window_));
    other_->setFocus();
    window_.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
  }

  QImage Picture() const { return control_->grab().toImage(); }
  void FocusControl() { control_->setFocus(Qt::OtherFocusReason); }

 private:
  QWidget window_;
  Control* control_ = nullptr;
  QPushButton* other_ = nullptr;
};

template <typename Control>
class FocusMarkTest : public testing::Test {};

using Controls =
    testing::Types<QRadioButton, QCheckBox, QPushButton, QScrollBar, QListWidget, QTableWidget>;
TYPED_TEST_SUITE(FocusMarkTest, Controls);

TYPED_TEST(FocusMarkTest, IsSeenWhicheverWayTheFocusHasCome) {
  ControlWindow<TypeParam> window;
  const QImage before = window.Picture();
  window.FocusControl();
  EXPECT_NE(before, window.Picture());
}

QPalette Dark() {
  QPalette dark(QColor(49, 54, 59), QColor(49, 54, 59));
  dark.setColor(QPalette::Base, QColor(35, 38, 41));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    dark.setColor(role, QColor(239, 240, 241));
  }
  return dark;
}

template <typename Control>
class DarkRimTest : public testing::Test {};

using Rimmed = testing::Types<QRadioButton, QCheckBox, QLineEdit>;
TYPED_TEST_SUITE(DarkRimTest, Rimmed);

TYPED_TEST(DarkRimTest, OfWhatIsNotChosenIsPlainToSee) {
  const QPalette dark = Dark();
  const QImage picture = ControlWindow<TypeParam>(dark).Picture();
  const Rgb ground = ToRgb(dark.color(QPalette::Window));
  double best = 0;
  for (int x = 0; x < picture.width(); ++x) {
    for (int y = 0; y < picture.height(); ++y) {
      best = std::max(best, Contrast(ground, ToRgb(picture.pixelColor(x, y))));
    }
  }
  EXPECT_GE(best, kPlainContrast);
}

double ContrastOf(const QPalette& colors, QPalette::ColorRole role) {
  return Contrast(ToRgb(colors.color(QPalette::Base)), ToRgb(colors.color(role)));
}

TEST(DarkDesktopTest, LinksAndTheWordsOfAnEmptyFieldCanBeRead) {
  QPalette dark = Dark();
  dark.setColor(QPalette::Link, QColor(0, 0, 255));
  dark.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 128));
  QApplication::style()->polish(dark);
  EXPECT_GE(ContrastOf(dark, QPalette::Link), kReadableContrast);
  EXPECT_GE(ContrastOf(dark, QPalette::PlaceholderText), kReadableContrast);
}

TEST(DarkDesktopTest, TheWordsOfWhatCannotBeUsedCanBeTold) {
  QPalette dark = Dark();
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    dark.setColor(QPalette::Disabled, role, QColor(70, 72, 74));
  }
  QApplication::style()->polish(dark);
  dark.setCurrentColorGroup(QPalette::Disabled);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    EXPECT_GE(ContrastOf(dark, role), kPlainContrast);
    EXPECT_LT(ContrastOf(dark, role), 6);
  }
}

TEST(DarkDesktopTest, TheFrameOfAListIsSeenWhereTheListIsAsDarkAsItsWindow) {
  QPalette dark = Dark();
  dark.setColor(QPalette::Base, dark.color(QPalette::Window));
  const QImage list = ControlWindow<QListWidget>(dark).Picture();
  EXPECT_GE(Contrast(ToRgb(dark.color(QPalette::Base)), ToRgb(list.pixelColor(20, 0))), 1.5);
}

TEST(DarkDesktopTest, ALightOneKeepsItsColors) {
  const QPalette before(QColor(239, 240, 241));
  QPalette light = before;
  QApplication::style()->polish(light);
  EXPECT_EQ(before, light);
}

TEST(DarkDesktopTest, TheLinesOfATableAreSeen) {
  QTableWidget table;
  table.setPalette(Dark());
  QStyleOption option;
  option.initFrom(&table);
  const auto line =
      static_cast<QRgb>(table.style()->styleHint(QStyle::SH_Table_GridLineColor, &option, &table));
  const Rgb ground = ToRgb(Dark().color(QPalette::Base));
  EXPECT_GE(Contrast(ground, ToRgb(QColor(line))), 1.5);
}

TEST(StyleTest, NothingFadesOrSlides) {
  const QPushButton button;
  EXPECT_EQ(0, button.style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, &button));
}

}  // namespace
}  // namespace veyra
