#include <QPushButton>

#include "tests/qt/program_fixture.h"

namespace veyra {
namespace {

/// The facility box of the month window, with Hall current.
class FacilityBoxTest : public ProgramFixture {
 protected:
  static QComboBox& Box() { return Names(Month()); }
  static std::string Text() { return Box().currentText().toStdString(); }

  static void Type(const QString& text) {
    Box().lineEdit()->setFocus();
    Box().lineEdit()->selectAll();
    QTest::keyClicks(Box().lineEdit(), text);
  }

  static std::string Items() {
    std::string items;
    for (int i = 0; i < Box().count(); ++i) {
      items += Box().itemText(i).toStdString() + " ";
    }
    return items;
  }
};

TEST_F(FacilityBoxTest, AnotherNameGoesBackWhenTheFocusMovesOn) {
  Start();
  Type("Pool");
  QTest::keyClick(Box().lineEdit(), Qt::Key_Tab);
  EXPECT_EQ("Hall", Text());
}

TEST_F(FacilityBoxTest, AnEmptiedBoxStaysEmptyWhenTheFocusMovesOn) {
  Start();
  Type(" ");
  QTest::keyClick(Box().lineEdit(), Qt::Key_Backspace);
  QTest::keyClick(Box().lineEdit(), Qt::Key_Tab);
  EXPECT_EQ("", Text());
}

TEST_F(FacilityBoxTest, ADayIsBookedForTheFacilityThatTheBoxNames) {
  Start();
  Type("Pool");
  QTest::keyClick(Box().lineEdit(), Qt::Key_Return);
  EXPECT_EQ("Pool", Text()) << "entered, but not yet left";
  PressDay(21);
  ASSERT_NE(nullptr, Day());
  ASSERT_TRUE(QTest::qWaitForWindowActive(Day()));
  dialogs_.AnswerNext(Answer::Ok);
  DragRows(12, 12);
  EXPECT_EQ("2 2014-03-15 12-12 No Guests In Veyra\n", data_.Bookings());
  Day()->close();
  EXPECT_EQ("Hall", Text());
}

TEST_F(FacilityBoxTest, AHalfTypedNameIsNotLeftBehindInTheList) {
  Start();
  Type("ha");
  dialogs_.AnswerNext(Answer::Yes);
  QTest::mouseClick(&In<QPushButton>(Month(), "Command4"), Qt::LeftButton);
  EXPECT_EQ("Pool ", Items());
  EXPECT_EQ("1 Pool active\n", data_.Rooms());
}

}  // namespace
}  // namespace veyra
