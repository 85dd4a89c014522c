#include <gtest/gtest.h>

#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <QVBoxLayout>

#include "forms/widgets/qt_name_box.h"

namespace veyra {
namespace {

/// A box of names in which somebody types, and what it reports, an event a line.
class MatchListTest : public testing::Test {
 protected:
  MatchListTest() {
    window_.resize(300, 300);
    auto* column = new QVBoxLayout(&window_);
    column->addWidget(&box_);
    column->addWidget(&other_);
    column->addStretch(1);
    QObject::connect(&box_, &QtNameBox::Picked,
                     [this](const std::string& t) { log_ += "picked " + t + "\n"; });
    QObject::connect(&box_, &QtNameBox::EnterPressed, [this] { log_ += "enter\n"; });
    box_.ShowNames({{"Ann Smith", "Bob", "Joann"}, "", {"Joann"}});
    window_.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
    box_.setFocus();
  }

  QListWidget& Matches() { return *window_.findChild<QListWidget*>(QStringLiteral("matches")); }

  /// The matches that are to be seen, the chosen one in brackets.
  std::string Offered() {
    std::string text;
    for (int row = 0; Matches().isVisible() && row < Matches().count(); ++row) {
      const std::string name = Matches().item(row)->text().toStdString();
      text += (row == Matches().currentRow() ? "[" + name + "]" : name) + "; ";
    }
    return text;
  }

  void Type(const char* text) { QTest::keyClicks(&box_, QLatin1String(text)); }
  void Key(Qt::Key key) { QTest::keyClick(&box_, key); }
  std::string Text() const { return box_.currentText().toStdString(); }

  QWidget window_;
  QtNameBox box_;
  QLineEdit other_;
  std::string log_;
};

TEST_F(MatchListTest, WhatMatchesIsOfferedAndTheTextStays) {
  Type("NN");
  EXPECT_EQ("Joann; Ann Smith; ", Offered());
  EXPECT_EQ("NN", Text());
  Type("x");
  EXPECT_EQ("", Offered());
  EXPECT_EQ("NNx", Text());
  EXPECT_EQ("", log_);
}

TEST_F(MatchListTest, AChosenMatchIsPicked) {
  Type("nn");
  Key(Qt::Key_Down);
  Key(Qt::Key_Down);
  EXPECT_EQ("Joann; [Ann Smith]; ", Offered());
  EXPECT_EQ("nn", Text());
  Key(Qt::Key_Return);
  EXPECT_EQ("", Offered());
  EXPECT_EQ("Ann Smith", Text());
  EXPECT_EQ("picked Ann Smith\n", log_);
}

TEST_F(MatchListTest, EnterWithoutAChosenMatchIsOnlyEnter) {
  Type("nn");
  Key(Qt::Key_Down);
  Key(Qt::Key_Up);
  EXPECT_EQ("Joann; Ann Smith; ", Offered());
  Key(Qt::Key_Return);
  EXPECT_EQ("", Offered());
  EXPECT_EQ("nn", Text());
  EXPECT_EQ("enter\n", log_);
}

TEST_F(MatchListTest, EscapeHidesTheMatchesAndNothingElse) {
  Type("nn");
  Key(Qt::Key_Escape);
  EXPECT_EQ("", Offered());
  EXPECT_EQ("nn", Text());
}

TEST_F(MatchListTest, AClickPicks) {
  Type("nn");
  QTest::mouseClick(Matches().viewport(), Qt::LeftButton, {},
                    Matches().visualItemRect(Matches().item(1)).center());
  EXPECT_EQ("Ann Smith", Text());
  EXPECT_EQ("picked Ann Smith\n", log_);
  EXPECT_TRUE(box_.hasFocus());
}

TEST_F(MatchListTest, TheyGoWithTheFocus) {
  Type("nn");
  Key(Qt::Key_Tab);
  EXPECT_EQ("", Offered());
  EXPECT_EQ("nn", Text());
  EXPECT_EQ("", log_);
}

TEST_F(MatchListTest, WhatStandsThereAlreadyIsNotOffered) {
  Type("Bob");
  EXPECT_EQ("", Offered());
  Key(Qt::Key_Backspace);
  EXPECT_EQ("Bob; ", Offered());
}

TEST_F(MatchListTest, NothingIsOfferedWhileSomethingIsWrongWithTheText) {
  QObject::connect(&box_, &QtNameBox::Typed, [this] { box_.ShowHint("too long"); });
  Type("nn");
  EXPECT_EQ("", Offered());
}

TEST_F(MatchListTest, FiftyThousandNamesCanBeLookedThrough) {
  NameBox many;
  for (int i = 0; i < 50'000; ++i) {
    many.Items.push_back("Guest Number " + std::to_string(i) + " of the House");
  }
  box_.ShowNames(many);
  Type("9");
  Type("99");
  EXPECT_EQ(8, Matches().count());
  EXPECT_EQ("Guest Number 999 of the House", Matches().item(0)->text().toStdString());
}

}  // namespace
}  // namespace veyra
