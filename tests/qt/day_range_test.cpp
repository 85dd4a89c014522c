#include <QHeaderView>
#include <QScrollBar>

#include "tests/qt/day_window_fixture.h"

namespace veyra {
namespace {

/// Rows are chosen with the mouse or the keyboard, and booked.
class DayRangeTest : public DayWindowFixture {};

TEST_F(DayRangeTest, ADragBooksTheRows) {
  StartAndOpenDay();
  dialogs_.AnswerNext(Answer::Ok);
  DragRows(19, 21);
  ASSERT_EQ(2U, dialogs_.Boxes().size());
  EXPECT_EQ(QuestionFor("No Title", " 9:00A", "10:30A"), dialogs_.Boxes()[0]);
  EXPECT_TRUE(dialogs_.Boxes()[1].ends_with("1 Booking(s) Made."));
  EXPECT_EQ(std::to_string(hall_) + " 2014-03-15 19-21 No Title\n", data_.Bookings());
  EXPECT_EQ("No Title", Guest(20));
}

TEST_F(DayRangeTest, ADragUpwardsAsksFromTheUpperRow) {
  StartAndOpenDay();
  dialogs_.AnswerNext(Answer::Cancel);
  DragRows(30, 26);
  EXPECT_EQ(QuestionFor("No Title", "12:30P", " 3:00P"), Question());
}

TEST_F(DayRangeTest, ASecondOneClickBooksOneRow) {
  StartAndOpenDay();
  dialogs_.AnswerNext(Answer::Cancel);
  DragRows(19, 19);
  EXPECT_EQ(QuestionFor("No Title", " 9:00A", " 9:30A"), Question());
}

TEST_F(DayRangeTest, TheRangeIsHighlightedWhileItIsDraggedAndWhileTheQuestionStands) {
  StartAndOpenDay();
  QWidget* surface = Grid().viewport();
  QTest::mousePress(surface, Qt::LeftButton, {}, Middle(19, 1));
  EXPECT_EQ("19-19", Range());
  QTest::mouseMove(surface, Middle(22, 1));
  EXPECT_EQ("19-22", Range());
  QTest::mouseMove(surface, Middle(17, 1));
  EXPECT_EQ("17-19", Range());
  std::string while_asked;
  dialogs_.WhileShown = [&] { while_asked = Range(); };
  dialogs_.AnswerNext(Answer::Cancel);
  QTest::mouseRelease(surface, Qt::LeftButton, {}, Middle(17, 1));
  EXPECT_EQ("17-19", while_asked);
  EXPECT_EQ("none", Range());
}

TEST_F(DayRangeTest, AfterAClickTheRowBelowIsTheCurrentOne) {
  StartAndOpenDay();
  dialogs_.AnswerNext(Answer::Cancel);
  DragRows(19, 21);
  EXPECT_EQ(22, Grid().currentRow() + 1);
  EXPECT_EQ(0, Grid().currentColumn());
}

TEST_F(DayRangeTest, AReleaseFarBelowMeansTheLastRowSeen) {
  StartAndOpenDay();
  dialogs_.AnswerNext(Answer::Cancel);
  const int last = Grid().rowAt(Grid().viewport()->height() - 1) + 1;
  Drag(19, QPoint(100, 5000));
  EXPECT_EQ(last, std::max(19, Grid().currentRow()));
}

TEST_F(DayRangeTest, AReleaseRightOfTheGridCountsForItsRow) {
  StartAndOpenDay();
  dialogs_.AnswerNext(Answer::Cancel);
  Drag(19, QPoint(2000, Middle(21, 1).y()));
  EXPECT_EQ(QuestionFor("No Title", " 9:00A", "10:30A"), Question());
}

TEST_F(DayRangeTest, AReleaseInTheTimeColumnDoesNothing) {
  StartAndOpenDay();
  Drag(19, Middle(21, 0));
  Drag(19, QPoint(-50, Middle(21, 0).y()));
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(DayRangeTest, AReleaseInTheHeaderDoesNothing) {
  StartAndOpenDay();
  Drag(19, QPoint(100, -5));
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(DayRangeTest, AClickOnTheHeaderDoesNothing) {
  StartAndOpenDay();
  QTest::mouseClick(Grid().horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(100, 5));
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(DayRangeTest, OnlyTheLeftButtonDrags) {
  StartAndOpenDay();
  QTest::mouseClick(Grid().viewport(), Qt::RightButton, {}, Middle(19, 1));
  QTest::mouseClick(Grid().viewport(), Qt::MiddleButton, {}, Middle(19, 1));
  EXPECT_TRUE(dialogs_.Boxes().empty());
  EXPECT_EQ("none", Range());
}

TEST_F(DayRangeTest, DraggingPastAnEdgeScrolls) {
  StartAndOpenDay();
  QWidget* surface = Grid().viewport();
  QTest::mousePress(surface, Qt::LeftButton, {}, Middle(19, 1));
  QTest::mouseMove(surface, QPoint(100, -30));
  EXPECT_TRUE(QTest::qWaitFor([] { return TopRow() == 1; }));
  EXPECT_EQ("1-19", Range());
  QTest::mouseMove(surface, QPoint(100, surface->height() + 30));
  EXPECT_TRUE(QTest::qWaitFor([] { return Range() == "19-48"; }));
  dialogs_.AnswerNext(Answer::Cancel);
  QTest::mouseRelease(surface, Qt::LeftButton, {}, QPoint(100, surface->height() + 30));
  EXPECT_EQ(QuestionFor("No Title", " 9:00A", "12:00A"), Question());
}

TEST_F(DayRangeTest, ARangeOfTheKeyboardIsBooked) {
  StartAndOpenDay();
  Grid().setFocus(Qt::TabFocusReason);
  EXPECT_EQ(11, Grid().currentRow() + 1);
  for (int row = 11; row < 19; ++row) {
    Key(Qt::Key_Down);
  }
  Key(Qt::Key_Down, Qt::ShiftModifier);
  Key(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ("19-21", Range());
  dialogs_.AnswerNext(Answer::Cancel);
  Key(Qt::Key_Return);
  EXPECT_EQ(QuestionFor("No Title", " 9:00A", "10:30A"), Question());
}

TEST_F(DayRangeTest, ARangeOfTheKeyboardMayGoUpwards) {
  StartAndOpenDay();
  Grid().setFocus(Qt::TabFocusReason);
  Key(Qt::Key_End);
  Key(Qt::Key_Up, Qt::ShiftModifier);
  dialogs_.AnswerNext(Answer::Cancel);
  Key(Qt::Key_Enter);
  EXPECT_EQ(QuestionFor("No Title", "11:00P", "12:00A"), Question());
}

TEST_F(DayRangeTest, AnArrowKeyWithoutShiftBeginsANewRange) {
  StartAndOpenDay();
  Grid().setFocus(Qt::TabFocusReason);
  Key(Qt::Key_Down, Qt::ShiftModifier);
  Key(Qt::Key_Down);
  EXPECT_EQ("13-13", Range());
}

TEST_F(DayRangeTest, TheLastRowStaysInSightWhileTheQuestionStandsAndAfterwards) {
  StartAndOpenDay();
  Grid().verticalScrollBar()->setValue(Grid().verticalScrollBar()->maximum());
  const int top_row = TopRow();
  ASSERT_LT(1, top_row);
  int while_asked = 0;
  dialogs_.WhileShown = [&] { while_asked = TopRow(); };
  dialogs_.AnswerNext(Answer::Ok);
  DragRows(47, 48);
  EXPECT_EQ(top_row, while_asked);
  EXPECT_EQ(top_row, TopRow());
  EXPECT_EQ(1, Grid().currentRow() + 1);
  EXPECT_EQ("No Title", Guest(48));
}

}  // namespace
}  // namespace veyra
