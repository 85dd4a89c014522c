#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QIdentityProxyModel>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "forms/widgets/qt_name_box.h"

namespace veyra {
namespace {

/// Stands between a list and the box that shows it, and counts what goes to and fro.
class CountedList : public QIdentityProxyModel {
 public:
  explicit CountedList(QAbstractItemModel& list) {
    setSourceModel(&list);
    connect(this, &QAbstractItemModel::rowsInserted, this, [this] { ++Told; });
    connect(this, &QAbstractItemModel::rowsRemoved, this, [this] { ++Told; });
    connect(this, &QAbstractItemModel::dataChanged, this, [this] { ++Told; });
  }

  QVariant data(const QModelIndex& index, int role) const override {
    ++Asked;
    return QIdentityProxyModel::data(index, role);
  }

  mutable int Asked = 0;  ///< A property of an entry.
  int Told = 0;           ///< A change of entries.
};

/// A box beside another control, and what it reports, an event a line.
class NameBoxTest : public testing::Test {
 protected:
  NameBoxTest() {
    auto* column = new QVBoxLayout(&window_);
    column->addWidget(&other_);
    column->addWidget(&box_);
    QObject::connect(&box_, &QtNameBox::Typed, [this](const std::string& t) { Add("typed " + t); });
    QObject::connect(&box_, &QtNameBox::Picked,
                     [this](const std::string& t) { Add("picked " + t); });
    QObject::connect(&box_, &QtNameBox::EnterPressed, [this] { Add("enter"); });
    QObject::connect(&box_, &QtNameBox::FocusArrived, [this] { Add("arrived"); });
    QObject::connect(&box_, &QtNameBox::FocusLeft, [this] { Add("left"); });
    box_.ShowNames({{"Alpha", "Beta", "Gamma"}, "Alpha"});
    other_.setFocus();
    window_.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
  }

  void FocusBox() {
    box_.setFocus(Qt::TabFocusReason);
    log_.clear();
  }

  void TypeOver(const char* text) {
    box_.lineEdit()->selectAll();
    QTest::keyClicks(&box_, QLatin1String(text));
  }

  void Add(const std::string& event) { log_ += event + "\n"; }

  void Wheel() {
    QWheelEvent turn(QPointF(5, 5), box_.mapToGlobal(QPointF(5, 5)), {}, QPoint(0, -120), {}, {},
                     Qt::NoScrollPhase, false);
    QApplication::sendEvent(&box_, &turn);
  }

  QWidget window_;
  QLineEdit other_;
  QtNameBox box_;
  std::string log_;
};

TEST_F(NameBoxTest, WhatTheProgramShowsIsNotReported) {
  FocusBox();
  box_.ShowNames({{"Delta", "Beta"}, "Beta"});
  box_.ShowText("free");
  EXPECT_EQ("", log_);
  EXPECT_EQ("free", box_.currentText().toStdString());
}

TEST_F(NameBoxTest, EveryTypedCharacterIsReported) {
  FocusBox();
  TypeOver("be");
  EXPECT_EQ("typed b\ntyped be\n", log_);
}

/// As an assistive program writes into the box.
TEST_F(NameBoxTest, ATextThatIsSetFromOutsideIsReported) {
  QAccessibleInterface* line = QAccessible::queryAccessibleInterface(box_.lineEdit());
  line->editableTextInterface()->replaceText(0, 5, QStringLiteral("Omega"));
  EXPECT_EQ("typed Omega\n", log_);
}

TEST_F(NameBoxTest, AListedNameThatIsSetFromOutsideAfterAnotherIsReported) {
  box_.lineEdit()->setText(QStringLiteral("x"));
  box_.lineEdit()->setText(QStringLiteral("Alpha"));
  EXPECT_EQ("typed x\ntyped Alpha\n", log_);
}

TEST_F(NameBoxTest, ANameThatIsLongerThanTheBoxShowsItsBeginning) {
  box_.ShowText(std::string(100, 'W'));
  EXPECT_EQ(0, box_.lineEdit()->cursorPosition());
}

TEST_F(NameBoxTest, SoItDoesWhenTheFocusComesByAClickAndWhenItGoes) {
  QObject::connect(&box_, &QtNameBox::FocusArrived, [this] { box_.SelectAllText(); });
  box_.ShowText(std::string(100, 'W'));
  QTest::mouseClick(box_.lineEdit(), Qt::LeftButton, {}, QPoint(5, 5));
  EXPECT_EQ(100, box_.lineEdit()->selectedText().size());
  EXPECT_EQ(0, box_.lineEdit()->cursorPosition());
  QTest::keyClick(&box_, Qt::Key_End);
  EXPECT_EQ(100, box_.lineEdit()->cursorPosition());
  other_.setFocus();
  EXPECT_EQ(0, box_.lineEdit()->cursorPosition());
}

TEST_F(NameBoxTest, SoItDoesOncePicked) {
  box_.ShowNames({{"Alpha", std::string(100, 'W')}, "Alpha"});
  FocusBox();
  QTest::keyClick(&box_, Qt::Key_Down);
  EXPECT_EQ(0, box_.lineEdit()->cursorPosition());
}

TEST_F(NameBoxTest, WhatIsTypedIsNotCompleted) {
  FocusBox();
  TypeOver("Be");
  EXPECT_EQ("Be", box_.currentText().toStdString());
}

TEST_F(NameBoxTest, EnterOverATextThatEqualsAnEntryPicksNothing) {
  FocusBox();
  TypeOver("Beta");
  log_.clear();
  QTest::keyClick(&box_, Qt::Key_Return);
  EXPECT_EQ("enter\n", log_);
}

TEST_F(NameBoxTest, LeavingATextThatEqualsAnEntryPicksNothing) {
  FocusBox();
  TypeOver("Beta");
  log_.clear();
  other_.setFocus();
  EXPECT_EQ("left\n", log_);
}

TEST_F(NameBoxTest, EnterAddsNothingToTheList) {
  FocusBox();
  TypeOver("Omega");
  QTest::keyClick(&box_, Qt::Key_Return);
  EXPECT_EQ(3, box_.count());
}

TEST_F(NameBoxTest, TheDownKeyPicksTheNextEntry) {
  FocusBox();
  QTest::keyClick(&box_, Qt::Key_Down);
  EXPECT_EQ("picked Beta\n", log_);
  EXPECT_EQ("Beta", box_.currentText().toStdString());
}

TEST_F(NameBoxTest, TheWheelPicksWhileTheOperatorWorksInTheBox) {
  FocusBox();
  Wheel();
  EXPECT_EQ("picked Beta\n", log_);
}

TEST_F(NameBoxTest, TheWheelPicksNothingOtherwise) {
  Wheel();
  EXPECT_EQ("", log_);
}

TEST_F(NameBoxTest, AnEntryOfTheOpenListIsPickedByAClick) {
  FocusBox();
  box_.showPopup();
  QAbstractItemView* list = box_.view();
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                    list->visualRect(list->model()->index(2, 0)).center());
  EXPECT_EQ("picked Gamma\n", log_);
}

TEST_F(NameBoxTest, TheEntryThatIsShownAlreadyCanBePickedAgain) {
  FocusBox();
  TypeOver("x");
  log_.clear();
  box_.showPopup();
  QTest::keyClick(box_.view(), Qt::Key_Return);
  EXPECT_EQ("typed Alpha\npicked Alpha\n", log_);
  EXPECT_EQ("Alpha", box_.currentText().toStdString());
}

TEST_F(NameBoxTest, APickedNameIsTheListsToTheLetter) {
  box_.ShowNames({{"a", "two\nlines"}, "a"});
  FocusBox();
  QTest::keyClick(&box_, Qt::Key_Down);
  EXPECT_EQ("picked two\nlines\n", log_);
  EXPECT_EQ("two lines", box_.currentText().toStdString());
}

TEST_F(NameBoxTest, FocusIsReportedWhenItArrivesAndWhenItLeaves) {
  box_.setFocus(Qt::TabFocusReason);
  other_.setFocus();
  EXPECT_EQ("arrived\nleft\n", log_);
}

TEST_F(NameBoxTest, AWindowThatComesBackIsNoNewArrival) {
  FocusBox();
  QFocusEvent gone(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
  QApplication::sendEvent(&box_, &gone);
  QFocusEvent back(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
  QApplication::sendEvent(&box_, &back);
  EXPECT_EQ("", log_);
}

TEST_F(NameBoxTest, OpeningTheListIsNoLeaving) {
  FocusBox();
  box_.showPopup();
  box_.hidePopup();
  EXPECT_EQ("", log_);
}

TEST_F(NameBoxTest, ASelectionOfTheWholeTextOutlastsTheClickThatBroughtTheFocus) {
  QObject::connect(&box_, &QtNameBox::FocusArrived, [this] { box_.SelectAllText(); });
  QTest::mouseClick(box_.lineEdit(), Qt::LeftButton, {}, QPoint(5, 5));
  EXPECT_EQ("Alpha", box_.lineEdit()->selectedText().toStdString());
}

TEST_F(NameBoxTest, ASecondClickPlacesTheCursor) {
  QObject::connect(&box_, &QtNameBox::FocusArrived, [this] { box_.SelectAllText(); });
  QTest::mouseClick(box_.lineEdit(), Qt::LeftButton, {}, QPoint(5, 5));
  QTest::mouseClick(box_.lineEdit(), Qt::LeftButton, {}, QPoint(5, 5));
  EXPECT_FALSE(box_.lineEdit()->hasSelectedText());
}

TEST_F(NameBoxTest, ShowingTheSameTextKeepsTheCursor) {
  FocusBox();
  box_.lineEdit()->setCursorPosition(2);
  box_.ShowNames({{"Alpha", "Beta", "Gamma"}, "Alpha"});
  EXPECT_EQ(2, box_.lineEdit()->cursorPosition());
}

/// What is asked of the list and what it tells grow with the names in sight, not with all of them.
TEST_F(NameBoxTest, FiftyThousandNamesAreThereAtOnce) {
  constexpr int kGuests = 50'000;
  NameBox guests;
  for (int i = 0; i < kGuests; ++i) {
    guests.Items.push_back("Guest number " + std::to_string(i));
  }
  QAbstractItemModel& names = *box_.model();
  names.setParent(&window_);  // A box drops its own list when it is given another.
  CountedList list(names);
  box_.setModel(&list);
  box_.ShowNames(guests);
  box_.showPopup();
  QCoreApplication::processEvents();
  EXPECT_EQ(kGuests, box_.count());
  EXPECT_GT(list.Asked, 0);
  EXPECT_LT(list.Asked, kGuests / 10);
  EXPECT_LT(list.Told, 10);
}

TEST_F(NameBoxTest, AHintStandsBelowTheBoxWithinItsWindow) {
  box_.ShowHint("This name is 53 characters long; the calendar holds 50.");
  const QLabel& hint = *window_.findChild<QLabel*>(QStringLiteral("hint"));
  EXPECT_TRUE(hint.isVisible());
  EXPECT_GE(hint.y(), box_.geometry().bottom());
  EXPECT_GE(hint.x(), 0);
  EXPECT_LE(hint.geometry().right(), window_.width());
  EXPECT_GE(hint.height(), hint.heightForWidth(hint.width()));
  EXPECT_EQ(hint.text(), box_.lineEdit()->accessibleDescription());
}

TEST_F(NameBoxTest, AHintGoesWhenThereIsNothingToSayAndWithItsText) {
  box_.ShowHint("too long");
  const QLabel& hint = *window_.findChild<QLabel*>(QStringLiteral("hint"));
  box_.ShowHint("");
  EXPECT_FALSE(hint.isVisible());
  box_.ShowHint("too long");
  EXPECT_TRUE(hint.isVisible());
  box_.ShowText("another");
  EXPECT_FALSE(hint.isVisible());
  EXPECT_EQ("", box_.lineEdit()->accessibleDescription().toStdString());
}

}  // namespace
}  // namespace veyra
