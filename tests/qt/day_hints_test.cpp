#include <QHelpEvent>
#include <QLabel>
#include <QToolTip>

#include "forms/day/qt_slot_delegate.h"
#include "tests/qt/program_fixture.h"

namespace veyra {
namespace {

/// What the day grid shows and says beside its fixed texts.
class DayHintsWindowTest : public ProgramFixture {
 protected:
  void Open() {
    const double key = 20140301120000.0;
    data_.AddBooking(hall_, "2014-03-15", 19, 21, "Choir");
    data_.AddBooking(hall_, "2014-03-15", 22, 23, "Choir", key);
    data_.AddBooking(hall_, "2014-03-22", 22, 23, "Choir", key);
    StartAndOpenDay();
  }

  static QLabel& Hint() { return In<QLabel>(Day(), QStringLiteral("pointerHint")); }
  static std::string Said() { return Hint().isVisible() ? Hint().text().toStdString() : ""; }

  static void Key(int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(&Grid(), static_cast<Qt::Key>(key), modifiers);
  }

  static QVariant Mark(int row, int role) { return Grid().item(row - 1, 1)->data(role); }

  /// A pixel of a row, counted from the left edge of its "Guest" cell and from its top.
  static QColor Pixel(int row, int x, int y) {
    const QRect cell = Grid().visualRect(Grid().model()->index(row - 1, 1));
    return Grid().viewport()->grab().toImage().pixelColor(cell.left() + x, cell.top() + y);
  }
  static int LastLine(int row) { return Grid().rowHeight(row - 1) - 1; }
};

TEST_F(DayHintsWindowTest, ThePointerCarriesWhatIsDraggedOver) {
  Open();
  QWidget* surface = Grid().viewport();
  QTest::mousePress(surface, Qt::LeftButton, {}, Middle(14, 1));
  EXPECT_EQ("", Said());
  QTest::mouseMove(surface, Middle(16, 1));
  EXPECT_EQ("6:30A- 8:00A, 1 h 30 min, free", Said());
  const QPoint place = Hint().pos();
  QTest::mouseMove(surface, Middle(20, 1));
  EXPECT_EQ("6:30A-10:00A, 3 h 30 min, taken by Choir", Said());
  EXPECT_LT(place.y(), Hint().pos().y());
  QTest::mouseMove(surface, Middle(15, 1));
  dialogs_.AnswerNext(Answer::Cancel);
  QTest::mouseRelease(surface, Qt::LeftButton, {}, Middle(15, 1));
  EXPECT_EQ("", Said());
}

TEST_F(DayHintsWindowTest, AClickCarriesNothing) {
  Open();
  QWidget* surface = Grid().viewport();
  QTest::mousePress(surface, Qt::LeftButton, {}, Middle(14, 1));
  QTest::mouseMove(surface, Middle(14, 1) + QPoint(1, 1));
  EXPECT_EQ("", Said());
  dialogs_.AnswerNext(Answer::Cancel);
  QTest::mouseRelease(surface, Qt::LeftButton, {}, Middle(14, 1));
}

TEST_F(DayHintsWindowTest, RowsThatAreChosenByKeySayTheSame) {
  Open();
  Grid().setFocus();
  Key(Qt::Key_Home);
  EXPECT_EQ("", Said());
  Key(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ("12:00A- 1:00A, 1 h, free", Said());
  dialogs_.AnswerNext(Answer::Cancel);
  Key(Qt::Key_Return);
  EXPECT_EQ("", Said());
  Key(Qt::Key_Down, Qt::ShiftModifier);
  Names(Day()).setFocus();
  EXPECT_EQ("", Said());
}

TEST_F(DayHintsWindowTest, AKeyThatLeadsToABookingSaysWhatItIs) {
  Open();
  Grid().setFocus();
  Key(Qt::Key_Home);
  for (int row = 2; row <= 22; ++row) {
    Key(Qt::Key_Down);
  }
  EXPECT_EQ("Choir\n10:30A-11:30A, 1 h\none of 2 dates until 3/22", Said());
  Key(Qt::Key_Down);
  Key(Qt::Key_Down);
  EXPECT_EQ("", Said());
}

TEST_F(DayHintsWindowTest, TheMouseThatRestsOnARowIsToldOfItsBooking) {
  Open();
  const QPoint place = Middle(20, 1);
  QHelpEvent rest(QEvent::ToolTip, place, Grid().viewport()->mapToGlobal(place));
  QApplication::sendEvent(Grid().viewport(), &rest);
  EXPECT_TRUE(QToolTip::text().contains(QLatin1String("Choir\n9:00A-10:30A, 1 h 30 min<")))
      << QToolTip::text().toStdString();
  const QPoint free = Middle(24, 1);
  QHelpEvent elsewhere(QEvent::ToolTip, free, Grid().viewport()->mapToGlobal(free));
  QApplication::sendEvent(Grid().viewport(), &elsewhere);
  EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::text().contains(QLatin1String("Choir")); }));
}

TEST_F(DayHintsWindowTest, NeighboursOfOneNameAreTwoBookingsOnTheScreen) {
  Open();
  EXPECT_EQ("Choir", Grid().item(20, 1)->text().toStdString());
  EXPECT_EQ("Choir", Grid().item(21, 1)->text().toStdString());
  EXPECT_EQ(Mark(19, QtSlotDelegate::kBookingRole), Mark(21, QtSlotDelegate::kBookingRole));
  EXPECT_NE(Mark(21, QtSlotDelegate::kBookingRole), Mark(22, QtSlotDelegate::kBookingRole));
  EXPECT_EQ(0, Mark(24, QtSlotDelegate::kBookingRole).toInt());
  constexpr int kBar = 2;
  constexpr int kBeside = 100;
  EXPECT_EQ(Pixel(19, kBar, LastLine(19)), Pixel(20, kBar, 0));
  EXPECT_NE(Pixel(20, kBar, 0), Pixel(20, kBeside, 0));
  EXPECT_EQ(Pixel(22, kBeside, 0), Pixel(22, kBar, 0));
  EXPECT_EQ(Pixel(20, kBeside, 0), Pixel(20, kBeside, LastLine(20)));
  EXPECT_NE(Pixel(21, kBeside, 0), Pixel(21, kBeside, LastLine(21)));
}

TEST_F(DayHintsWindowTest, ASeriesHasAMark) {
  Open();
  EXPECT_FALSE(Mark(20, QtSlotDelegate::kSeriesRole).toBool());
  EXPECT_TRUE(Mark(23, QtSlotDelegate::kSeriesRole).toBool());
  constexpr int kSecondBar = 5;
  const int middle = LastLine(20) / 2;
  EXPECT_EQ(Pixel(20, 2, 0), Pixel(23, kSecondBar, 0));
  EXPECT_NE(Pixel(20, 2, 0), Pixel(20, kSecondBar, middle));
}

TEST_F(DayHintsWindowTest, TheRowOfTheKeyboardIsPlainToSee) {
  Open();
  constexpr int kBeside = 100;
  const QColor before = Pixel(12, kBeside, 0);
  Grid().setFocus();
  Key(Qt::Key_Down);
  const int row = Grid().currentRow() + 1;
  EXPECT_NE(Pixel(row, kBeside, 0), Pixel(row, kBeside, LastLine(row) / 2));
  Names(Day()).setFocus();
  EXPECT_EQ(before, Pixel(12, kBeside, 0));
}

}  // namespace
}  // namespace veyra
