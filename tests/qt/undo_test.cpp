#include <QAccessible>

#include "forms/widgets/qt_foot_line.h"
#include "tests/qt/month_window_fixture.h"

namespace veyra {
namespace {

/// Control and Z, and the line at the foot of the windows.
class UndoKeyTest : public MonthWindowFixture {
 protected:
  static QLabel& Foot(QWidget* window) { return In<QLabel>(window, QStringLiteral("footLine")); }

  static void PressUndo(QWidget* window) {
    QTest::keyClick(window->focusWidget() != nullptr ? window->focusWidget() : window, Qt::Key_Z,
                    Qt::ControlModifier);
  }

  void StartAndBook() {
    StartAndOpenDay();
    dialogs_.AnswerNext(Answer::Ok);
    DragRows(19, 21);
    ASSERT_NE("", data_.Bookings());
  }

  void CloseDay() {
    Day()->close();
    ASSERT_TRUE(QTest::qWaitForWindowActive(Month()));
  }
};

TEST_F(UndoKeyTest, InTheDayWindowFromItsEmptyNameBox) {
  StartAndBook();
  Names(Day()).setFocus();
  dialogs_.AnswerNext(Answer::Yes);
  PressUndo(Day());
  EXPECT_EQ("", data_.Bookings());
  EXPECT_EQ("", Grid().item(18, 1) == nullptr ? "" : Grid().item(18, 1)->text().toStdString());
}

TEST_F(UndoKeyTest, WhatIsTypedInTheNameBoxIsUndoneThere) {
  StartAndBook();
  Names(Day()).setFocus();
  QTest::keyClicks(Names(Day()).lineEdit(), QStringLiteral("Ann"));
  PressUndo(Day());
  EXPECT_NE("", data_.Bookings());
  EXPECT_NE("Ann", Names(Day()).currentText().toStdString());
}

TEST_F(UndoKeyTest, InTheMonthWindow) {
  StartAndBook();
  CloseDay();
  ASSERT_NE("", Lines(21));
  dialogs_.AnswerNext(Answer::Yes);
  PressUndo(Month());
  EXPECT_EQ("", Lines(21));
}

TEST_F(UndoKeyTest, InTheDayViewer) {
  StartAndBook();
  CloseDay();
  RightPressDay(21);
  QWidget* viewer = Window("frmDayViewer");
  ASSERT_TRUE(IsInUse(viewer));
  dialogs_.AnswerNext(Answer::Yes);
  PressUndo(viewer);
  EXPECT_EQ("", data_.Bookings());
  EXPECT_EQ(0, In<QListWidget>(viewer, QStringLiteral("lstDay")).count());
}

TEST_F(UndoKeyTest, TheOnlyFacilityComesBackAsTheOneInUse) {
  Start();
  for (int i = 0; i < 2; ++i) {
    dialogs_.AnswerNext(Answer::Yes);
    Find<QWidget>("Command4").setFocus();
    Key(Qt::Key_Space);
  }
  ASSERT_EQ("", data_.Rooms());
  const std::string last = Label("lblRoom").text().toStdString();
  dialogs_.AnswerNext(Answer::Yes);
  PressUndo(Month());
  EXPECT_EQ("Pool", Facility().currentText().toStdString());
  EXPECT_EQ("Pool", Label("lblRoom").text().toStdString());
  PressDay(22);
  EXPECT_NE(nullptr, Day());
}

TEST_F(UndoKeyTest, AChangeIsToldAtTheFootOfEveryWindow) {
  StartAndBook();
  EXPECT_TRUE(Foot(Day()).isVisible());
  EXPECT_EQ("Booked: Hall, 3/15/2014,  9:00A-10:30A No Guests In Veyra   Undo (Ctrl+Z)",
            Foot(Day()).accessibleName().toStdString());
  CloseDay();
  EXPECT_TRUE(Foot(Month()).isVisible());
  RightPressDay(21);
  EXPECT_TRUE(Foot(Window("frmDayViewer")).isVisible());
}

TEST_F(UndoKeyTest, ANameLikeMarkupStaysToTheLetterInTheLinesToolTip) {
  QWidget window;
  QtFootLine line(1);
  line.Add(window);
  line.ShowFootLine("Booked: <b>Ann</b>");
  EXPECT_NE(std::string::npos,
            Foot(&window).toolTip().toStdString().find("Booked: &lt;b&gt;Ann&lt;/b&gt;"));
}

TEST_F(UndoKeyTest, TheLineMovesNothingAndCoversNoDay) {
  StartAndOpenDay();
  const QRect close = In<QWidget>(Day(), QStringLiteral("Command2")).geometry();
  const QRect grid = Grid().geometry();
  dialogs_.AnswerNext(Answer::Ok);
  DragRows(19, 21);
  EXPECT_EQ(close, In<QWidget>(Day(), QStringLiteral("Command2")).geometry());
  EXPECT_EQ(grid, Grid().geometry());
  const QRect line(Foot(Day()).mapTo(Day(), QPoint()), Foot(Day()).size());
  auto& button = In<QWidget>(Day(), QStringLiteral("Command2"));
  EXPECT_FALSE(line.intersects({button.mapTo(Day(), QPoint()), button.size()}));
  CloseDay();
  const QRect foot(Foot(Month()).mapTo(Month(), QPoint()), Foot(Month()).size());
  for (int cell = 1; cell <= 37; ++cell) {
    const QRect list(List(cell).mapTo(Month(), QPoint()), List(cell).size());
    EXPECT_FALSE(list.intersects(foot)) << cell;
  }
}

TEST_F(UndoKeyTest, TheLineStandsForHalfAMinute) {
  EXPECT_EQ(30'000, QtFootLine::kShown);
  QWidget window;
  QtFootLine line(1);
  line.Add(window);
  window.show();
  line.ShowFootLine("Booked");
  EXPECT_TRUE(Foot(&window).isVisible());
  EXPECT_TRUE(QTest::qWaitFor([&] { return !Foot(&window).isVisible(); }));
}

}  // namespace
}  // namespace veyra
