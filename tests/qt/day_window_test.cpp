#include <QAccessible>
#include <QAction>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>

#include "forms/day/qt_day_window.h"
#include "forms/day/qt_slot_grid.h"
#include "tests/qt/program_fixture.h"

namespace veyra {
namespace {

class DayWindowTest : public ProgramFixture {
 protected:
  DayWindowTest() {
    data_.AddGuest(std::string("Ann Smith"));
    data_.AddGuest(std::string("Bob Jones"));
  }

  static std::string Guest(int row) { return Grid().item(row - 1, 1)->text().toStdString(); }

  static int TopRow() { return Grid().rowAt(0) + 1; }

  /// The rows that are highlighted, "19-21".
  static std::string Range() {
    const QItemSelection selection = Grid().selectionModel()->selection();
    if (selection.isEmpty()) {
      return "none";
    }
    return std::to_string(selection.first().top() + 1) + "-" +
           std::to_string(selection.first().bottom() + 1);
  }

  static void Key(int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(&Grid(), static_cast<Qt::Key>(key), modifiers);
  }

  std::string Question() { return dialogs_.OnlyBox(); }

  static std::string QuestionFor(const std::string& name, const std::string& from,
                                 const std::string& to) {
    return "[OK/Cancel Question] Reservation for " + name + " From " + from + " To " + to +
           ".\r\nSelect OK to Book or Cancel to Cancel";
  }
};

TEST_F(DayWindowTest, TheControlsBearTheirNamesAndCaptions) {
  StartAndOpenDay();
  EXPECT_EQ("  3/15/2014 Bookings", Day()->windowTitle().toStdString());
  EXPECT_EQ("Guest/Event", Words(In<QLabel>(Day(), "Label1").text()));
  EXPECT_EQ("Multiple Day Bookings", In<QGroupBox>(Day(), "Frame1").title().toStdString());
  EXPECT_EQ("Single Booking", Words(In<QRadioButton>(Day(), "Book(0)").text()));
  EXPECT_EQ("Multiple Booking", Words(In<QRadioButton>(Day(), "Book(1)").text()));
  EXPECT_EQ("Click or Double-Click to Set Multiple Bookings",
            In<QRadioButton>(Day(), "Book(1)").toolTip().toStdString());
  EXPECT_EQ("", In<QRadioButton>(Day(), "Book(0)").toolTip().toStdString());
  EXPECT_EQ("Close", Words(In<QPushButton>(Day(), "Command2").text()));
  EXPECT_EQ("Help", Words(In<QAction>(Day(), "mnuHelp").text()));
}

TEST_F(DayWindowTest, TheControlsHaveAccessibleNames) {
  StartAndOpenDay();
  EXPECT_EQ("Time slots", Grid().accessibleName().toStdString());
  EXPECT_EQ("Guest/Event", Names(Day()).accessibleName().toStdString());
  EXPECT_EQ("Close", In<QPushButton>(Day(), "Command2").accessibleName().toStdString());
}

TEST_F(DayWindowTest, TheGridHasItsHeadersAndItsTimes) {
  StartAndOpenDay();
  EXPECT_EQ("Time", Grid().horizontalHeaderItem(0)->text().toStdString());
  EXPECT_EQ("Guest", Grid().horizontalHeaderItem(1)->text().toStdString());
  EXPECT_EQ(48, Grid().rowCount());
  EXPECT_EQ("12:00 AM", Grid().item(0, 0)->text().toStdString());
  EXPECT_EQ("12:00 Noon", Grid().item(24, 0)->text().toStdString());
  EXPECT_EQ("11:30 PM", Grid().item(47, 0)->text().toStdString());
}

TEST_F(DayWindowTest, SingleBookingIsSelectedAtFirst) {
  StartAndOpenDay();
  EXPECT_TRUE(In<QRadioButton>(Day(), "Book(0)").isChecked());
}

TEST_F(DayWindowTest, FiveInTheMorningIsTheTopRow) {
  StartAndOpenDay();
  EXPECT_EQ(11, TopRow());
}

TEST_F(DayWindowTest, FiveInTheMorningCanBeTheTopRowOfAHighWindowToo) {
  StartAndOpenDay();
  Day()->resize(259, 1400);
  QCoreApplication::processEvents();
  Grid().verticalScrollBar()->setValue(10);
  EXPECT_EQ(11, TopRow());
  EXPECT_EQ(0, Grid().rowViewportPosition(10));
}

TEST_F(DayWindowTest, TheWindowIsPlacedAtTheTopCentredAndLowerThanTheScreen) {
  StartAndOpenDay();
  const QRect screen = Day()->screen()->geometry();
  EXPECT_EQ(screen.y(), Day()->y());
  EXPECT_EQ((screen.width() - 259) / 2, Day()->x());
  EXPECT_EQ(259, Day()->width());
  EXPECT_EQ(screen.height() - 67, Day()->height());
}

/// The sums of the design at 15 twips to a pixel: 2239 twips are 149 pixels, 1034 are 69.
TEST_F(DayWindowTest, GridAndButtonFollowTheHeightOfTheWindow) {
  StartAndOpenDay();
  for (const int height : {333, 400, 601, 733}) {
    Day()->resize(400, height);
    QCoreApplication::processEvents();
    EXPECT_EQ(259, Day()->width());
    EXPECT_EQ(height, Day()->height());
    EXPECT_EQ(height - 149, Grid().height());
    EXPECT_EQ(height - 69, In<QPushButton>(Day(), "Command2").y());
    EXPECT_GE(Grid().y(), In<QGroupBox>(Day(), "Frame1").geometry().bottom());
    EXPECT_LE(Grid().geometry().bottom(), In<QPushButton>(Day(), "Command2").y());
  }
}

TEST_F(DayWindowTest, ALowerWindowIsRaisedToFiveThousandTwips) {
  StartAndOpenDay();
  Day()->resize(259, 100);
  EXPECT_EQ(333, Day()->height());
}

TEST_F(DayWindowTest, TheGuestColumnIs2400TwipsWideAndTheTimesAreNotClipped) {
  StartAndOpenDay();
  EXPECT_EQ(160, Grid().columnWidth(1));
  EXPECT_EQ(Grid().viewport()->width(), Grid().columnWidth(0) + Grid().columnWidth(1));
  const int noon_width = QFontMetrics(Grid().font()).horizontalAdvance("12:00 Noon");
  EXPECT_LT(noon_width, Grid().columnWidth(0));
}

TEST_F(DayWindowTest, BookedRowsShowTheirNameAndLookBooked) {
  data_.AddBooking(hall_, "2014-03-15", 19, 21, "Smith");
  StartAndOpenDay();
  EXPECT_EQ("", Guest(18));
  EXPECT_EQ("Smith", Guest(19));
  EXPECT_EQ("Smith", Guest(21));
  EXPECT_EQ("", Guest(22));
  EXPECT_NE(Grid().item(18, 1)->background(), Grid().item(21, 1)->background());
}

TEST_F(DayWindowTest, TheNameBoxOffersTheGuests) {
  StartAndOpenDay();
  EXPECT_EQ(2, Names(Day()).count());
  EXPECT_EQ("", Names(Day()).currentText().toStdString());
}

TEST_F(DayWindowTest, ADragBooksTheRows) {
  StartAndOpenDay();
  dialogs_.AnswerNext(Answer::Ok);
  DragRows(19, 21);
  ASSERT_EQ(2U, dialogs_.Boxes().size());
  EXPECT_EQ(QuestionFor("No Title", " 9:00A", "10:30A"), dialogs_.Boxes()[0]);
  EXPECT_TRUE(dialogs_.Boxes()[1].ends_with("1 Booking(s) Made."));
  EXPECT_EQ(std::to_string(hall_) + " 2014-03-15 19-21 No Title\n", data_.Bookings());
  EXPECT_EQ("No Title", Guest(20));
}

TEST_F(DayWindowTest, ADragUpwardsAsksFromTheUpperRow) {
  StartAndOpenDay();
  dialogs_.AnswerNext(Answer::Cancel);
  DragRows(30, 26);
  EXPECT_EQ(QuestionFor("No Title", "12:30P", " 3:00P"), Question());
}

TEST_F(DayWindowTest, ASecondOneClickBooksOneRow) {
  StartAndOpenDay();
  dialogs_.AnswerNext(Answer::Cancel);
  DragRows(19, 19);
  EXPECT_EQ(QuestionFor("No Title", " 9:00A", " 9:30A"), Question());
}

TEST_F(DayWindowTest, TheRangeIsHighlightedWhileItIsDraggedAndWhileTheQuestionStands) {
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

TEST_F(DayWindowTest, AfterAClickTheRowBelowIsTheCurrentOne) {
  StartAndOpenDay();
  dialogs_.AnswerNext(Answer::Cancel);
  DragRows(19, 21);
  EXPECT_EQ(22, Grid().currentRow() + 1);
  EXPECT_EQ(0, Grid().currentColumn());
}

TEST_F(DayWindowTest, AReleaseFarBelowMeansTheLastRowSeen) {
  StartAndOpenDay();
  dialogs_.AnswerNext(Answer::Cancel);
  const int last = Grid().rowAt(Grid().viewport()->height() - 1) + 1;
  Drag(19, QPoint(100, 5000));
  EXPECT_EQ(last, std::max(19, Grid().currentRow()));
}

TEST_F(DayWindowTest, AReleaseRightOfTheGridCountsForItsRow) {
  StartAndOpenDay();
  dialogs_.AnswerNext(Answer::Cancel);
  Drag(19, QPoint(2000, Middle(21, 1).y()));
  EXPECT_EQ(QuestionFor("No Title", " 9:00A", "10:30A"), Question());
}

TEST_F(DayWindowTest, AReleaseInTheTimeColumnDoesNothing) {
  StartAndOpenDay();
  Drag(19, Middle(21, 0));
  Drag(19, QPoint(-50, Middle(21, 0).y()));
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(DayWindowTest, AReleaseInTheHeaderDoesNothing) {
  StartAndOpenDay();
  Drag(19, QPoint(100, -5));
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(DayWindowTest, AClickOnTheHeaderDoesNothing) {
  StartAndOpenDay();
  QTest::mouseClick(Grid().horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(100, 5));
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(DayWindowTest, OnlyTheLeftButtonDrags) {
  StartAndOpenDay();
  QTest::mouseClick(Grid().viewport(), Qt::RightButton, {}, Middle(19, 1));
  QTest::mouseClick(Grid().viewport(), Qt::MiddleButton, {}, Middle(19, 1));
  EXPECT_TRUE(dialogs_.Boxes().empty());
  EXPECT_EQ("none", Range());
}

TEST_F(DayWindowTest, DraggingPastAnEdgeScrolls) {
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

TEST_F(DayWindowTest, ARangeOfTheKeyboardIsBooked) {
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

TEST_F(DayWindowTest, ARangeOfTheKeyboardMayGoUpwards) {
  StartAndOpenDay();
  Grid().setFocus(Qt::TabFocusReason);
  Key(Qt::Key_End);
  Key(Qt::Key_Up, Qt::ShiftModifier);
  dialogs_.AnswerNext(Answer::Cancel);
  Key(Qt::Key_Enter);
  EXPECT_EQ(QuestionFor("No Title", "11:00P", "12:00A"), Question());
}

TEST_F(DayWindowTest, AnArrowKeyWithoutShiftBeginsANewRange) {
  StartAndOpenDay();
  Grid().setFocus(Qt::TabFocusReason);
  Key(Qt::Key_Down, Qt::ShiftModifier);
  Key(Qt::Key_Down);
  EXPECT_EQ("13-13", Range());
}

TEST_F(DayWindowTest, TheLastRowStaysInSightWhileTheQuestionStandsAndAfterwards) {
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

TEST_F(DayWindowTest, TheTabKeyGoesRoundTheControls) {
  StartAndOpenDay();
  std::string order;
  for (int i = 0; i < 4; ++i) {
    QTest::keyClick(Day()->focusWidget(), Qt::Key_Tab);
    order += Day()->focusWidget()->objectName().toStdString() + " ";
  }
  EXPECT_EQ("Book(0) MSFlexGrid1 Command2 Combo1 ", order);
}

TEST_F(DayWindowTest, TheTypedNameIsTidiedAndBooked) {
  StartAndOpenDay();
  QTest::keyClicks(&Names(Day()), QStringLiteral("john smith"));
  Grid().setFocus(Qt::MouseFocusReason);
  EXPECT_EQ("John Smith", Names(Day()).currentText().toStdString());
  dialogs_.AnswerNext(Answer::Cancel);
  DragRows(19, 19);
  EXPECT_EQ(QuestionFor("John Smith", " 9:00A", " 9:30A"), Question());
}

TEST_F(DayWindowTest, APickedGuestIsBooked) {
  StartAndOpenDay();
  QTest::keyClick(&Names(Day()), Qt::Key_Down);
  EXPECT_EQ("Ann Smith", Names(Day()).currentText().toStdString());
  dialogs_.AnswerNext(Answer::Cancel);
  DragRows(19, 19);
  EXPECT_EQ(QuestionFor("Ann Smith", " 9:00A", " 9:30A"), Question());
}

TEST_F(DayWindowTest, TwoBookedRowsAreRefused) {
  data_.AddBooking(hall_, "2014-03-15", 19, 21, "Smith");
  StartAndOpenDay();
  DragRows(20, 22);
  EXPECT_EQ("[OK Critical] There is already a Booking on 2 of the Time Slot(s).", Question());
}

TEST_F(DayWindowTest, CloseBringsTheMonthBackWithTheBookingInIt) {
  StartAndOpenDay();
  dialogs_.AnswerNext(Answer::Ok);
  DragRows(19, 21);
  QTest::mouseClick(&In<QPushButton>(Day(), "Command2"), Qt::LeftButton);
  EXPECT_EQ(nullptr, Day());
  ASSERT_NE(nullptr, Month());
  ASSERT_EQ(1, List(21).count());
  EXPECT_EQ(" 9:00A-10:30A No Title", List(21).item(0)->text().toStdString());
}

TEST_F(DayWindowTest, TheCloseBoxBringsTheMonthBack) {
  StartAndOpenDay();
  Day()->close();
  EXPECT_EQ(nullptr, Day());
  EXPECT_NE(nullptr, Month());
}

TEST_F(DayWindowTest, AnotherOpeningIsANewWindow) {
  StartAndOpenDay();
  QTest::keyClicks(&Names(Day()), QStringLiteral("x"));
  Day()->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  PressDay(22);
  ASSERT_NE(nullptr, Day());
  EXPECT_EQ("  3/16/2014 Bookings", Day()->windowTitle().toStdString());
  EXPECT_EQ("", Names(Day()).currentText().toStdString());
  EXPECT_EQ(11, TopRow());
}

TEST_F(DayWindowTest, ItSaysWhichFacilityAndWhichWeekdayItBooks) {
  StartAndOpenDay();
  EXPECT_EQ("Hall, Saturday", In<QLabel>(Day(), QStringLiteral("heading")).text().toStdString());
}

TEST_F(DayWindowTest, ItsHeadingIsAmongTheControlsThatAssistiveProgramsAreToldOf) {
  StartAndOpenDay();
  const auto* window = QAccessible::queryAccessibleInterface(Day());
  ASSERT_NE(nullptr, window);
  int headings = 0;
  for (int i = 0; i < window->childCount(); ++i) {
    headings += window->child(i)->text(QAccessible::Name) == QLatin1String("Hall, Saturday");
  }
  EXPECT_EQ(1, headings);
}

TEST_F(DayWindowTest, OfALongFacilityNameTheWeekdayStaysInSight) {
  data_.AddRoom("A" + std::string(500, 'x'), true);
  Start();
  Names(Month()).activated(2);
  PressDay(21);
  ASSERT_NE(nullptr, Day());
  auto& heading = In<QLabel>(Day(), QStringLiteral("heading"));
  EXPECT_TRUE(heading.text().endsWith(QLatin1String(", Saturday")));
  EXPECT_LE(heading.fontMetrics().horizontalAdvance(heading.text()), heading.width());
  EXPECT_LE(heading.mapTo(Day(), heading.rect().topRight()).x(), Day()->width());
}

TEST_F(DayWindowTest, EscapeClosesIt) {
  StartAndOpenDay();
  QTest::keyClick(Day()->focusWidget(), Qt::Key_Escape);
  EXPECT_EQ(nullptr, Day());
  EXPECT_NE(nullptr, Month());
}

}  // namespace
}  // namespace veyra
