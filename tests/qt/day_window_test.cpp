#include <QAbstractItemView>
#include <QAccessible>
#include <QAction>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QWindow>

#include "app/translation.h"
#include "forms/day/qt_day_window.h"
#include "tests/qt/day_window_fixture.h"

namespace veyra {
namespace {

class DayWindowTest : public DayWindowFixture {};

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

TEST_F(DayWindowTest, TheLastRowSeenIsNotCut) {
  StartAndOpenDay();
  const int least = Grid().fontMetrics().height();
  for (int height = Day()->minimumHeight(); height < Day()->minimumHeight() + 60; ++height) {
    Day()->resize(Day()->width(), height);
    const int row = Grid().rowHeight(0);
    EXPECT_EQ(0, Grid().viewport()->height() % row) << height;
    EXPECT_LT(Grid().horizontalHeader()->height(), 2 * row) << height;
    EXPECT_LT(row, least + 10) << height;
  }
}

TEST_F(DayWindowTest, ItSaysWhichFacilityAndWhichWeekdayItBooks) {
  StartAndOpenDay();
  EXPECT_EQ("Hall, Saturday", In<QLabel>(Day(), QStringLiteral("heading")).text().toStdString());
}

TEST_F(DayWindowTest, OnAGermanDesktopItSaysTheWeekdayInGerman) {
  const auto german = InstallTranslation({QStringLiteral("de")});
  StartAndOpenDay();
  EXPECT_EQ("Hall, Samstag", In<QLabel>(Day(), QStringLiteral("heading")).text().toStdString());
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

TEST_F(DayWindowTest, EscapeClosesAnOpenListAndNotTheWindow) {
  StartAndOpenDay();
  Names(Day()).showPopup();
  ASSERT_TRUE(Names(Day()).view()->isVisible());
  QTest::keyClick(Day()->windowHandle(), Qt::Key_Escape);
  ASSERT_NE(nullptr, Day());
  EXPECT_FALSE(Names(Day()).view()->isVisible());
}

TEST_F(DayWindowTest, EscapeClosesIt) {
  StartAndOpenDay();
  QTest::keyClick(Day()->focusWidget(), Qt::Key_Escape);
  EXPECT_EQ(nullptr, Day());
  EXPECT_NE(nullptr, Month());
}

}  // namespace
}  // namespace veyra
