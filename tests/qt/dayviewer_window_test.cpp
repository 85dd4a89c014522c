#include <QAbstractPrintDialog>
#include <QLabel>
#include <QTimer>

#include "forms/dayviewer/qt_dayviewer_window.h"
#include "tests/qt/printed_page.h"
#include "tests/qt/program_fixture.h"

namespace veyra {
namespace {

class DayViewerWindowTest : public ProgramFixture {
 protected:
  DayViewerWindowTest() {
    data_.AddBooking(hall_, "2014-03-15", 20, 21, "Second");
    data_.AddBooking(hall_, "2014-03-15", 19, 19, "First");
    data_.AddBooking(hall_, "2014-03-15", 30, 30, "Third");
  }

  void Open(int cell = 21) {
    Start();
    RightPressDay(cell);
    ASSERT_NE(nullptr, Viewer());
    ASSERT_TRUE(IsInUse(Viewer()));
  }

  static QWidget* Viewer() { return Window("frmDayViewer"); }
  static QListWidget& Lines() { return In<QListWidget>(Viewer(), "lstDay"); }
  static QLabel& Label(const char* name) { return In<QLabel>(Viewer(), name); }

  static void Press(int row, Qt::MouseButton button = Qt::LeftButton,
                    Qt::KeyboardModifiers modifiers = {}) {
    QTest::mouseClick(Lines().viewport(), button, modifiers,
                      Lines().visualItemRect(Lines().item(row)).center());
  }

  /// Presses the key and prints into the file.
  QString Print(Qt::KeyboardModifiers modifiers) {
    const QString file = QString::fromStdString(app_.File("sheet.pdf").string());
    bool over_viewer = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
      if (auto* dialog = qobject_cast<QAbstractPrintDialog*>(QApplication::activeModalWidget())) {
        timer.stop();
        over_viewer = dialog->parentWidget() == Viewer();
        In<QLineEdit>(dialog, QStringLiteral("filename")).setText(file);
        dialog->accept();
      }
    });
    timer.start(1);
    QTest::keyClick(&Lines(), Qt::Key_P, modifiers);
    EXPECT_TRUE(over_viewer);
    return file;
  }

  static std::string Text(int row) { return Lines().item(row)->text().toStdString(); }
  static QColor Color(const QWidget& widget, QPalette::ColorRole role) {
    return widget.palette().color(role);
  }
};

TEST_F(DayViewerWindowTest, ItShowsTheDay) {
  Open();
  EXPECT_EQ("  3/15/2014 Day Viewer", Viewer()->windowTitle().toStdString());
  EXPECT_EQ("Saturday", Label("lblDay").text().toStdString());
  EXPECT_EQ("15", Label("lblDate").text().toStdString());
  ASSERT_EQ(3, Lines().count());
  EXPECT_EQ(" 9:00A- 9:30A First", Text(0));
  EXPECT_EQ(" 9:30A-10:30A Second", Text(1));
  EXPECT_EQ(" 2:30P- 3:00P Third", Text(2));
}

TEST_F(DayViewerWindowTest, TheLastLineSeenIsNotCut) {
  for (int slot = 1; slot <= 48; ++slot) {
    data_.AddBooking(hall_, "2014-03-16", slot, slot, "Smith");
  }
  Open(22);
  for (int height = 400; height < 440; ++height) {
    Viewer()->resize(Viewer()->width(), height);
    EXPECT_EQ(0, Lines().viewport()->height() % Lines().sizeHintForRow(0)) << height;
  }
}

TEST_F(DayViewerWindowTest, ItsListIsAsTheDesignSays) {
  Open();
  EXPECT_EQ(
      "Right Click to Add/Change the Bookings for this Day Left Click on Item for more Detail",
      Lines().toolTip().toStdString());
  EXPECT_EQ("Courier New", Lines().font().family().toStdString());
  EXPECT_EQ("MS Sans Serif", Label("lblDay").font().family().toStdString());
  EXPECT_EQ("Arial", Label("lblDate").font().family().toStdString());
  EXPECT_EQ("Bookings on 3/15/2014", Lines().accessibleName().toStdString());
}

TEST_F(DayViewerWindowTest, ItsLettersAreLarge) {
  Open();
  EXPECT_GE(Lines().font().pointSizeF(), 1.5 * QApplication::font().pointSizeF());
}

TEST_F(DayViewerWindowTest, TodayBearsItsColors) {
  Open();
  EXPECT_EQ(QColor(255, 0, 0), Color(Label("lblDate"), QPalette::WindowText));
  EXPECT_EQ(QColor(0, 0, 192), Color(Label("lblDay"), QPalette::WindowText));
}

TEST_F(DayViewerWindowTest, AnotherDayBearsTheColorOfDayNumbers) {
  Open(22);
  EXPECT_EQ(QColor(0, 0, 0), Color(Label("lblDate"), QPalette::WindowText));
}

TEST_F(DayViewerWindowTest, TheListTakesTheColorOfTodayAndLosesItOnAnotherDay) {
  const HandlerGuard guard(dialogs_);
  QtDayViewerWindow window(guard);
  const QColor designed = Color(In<QListWidget>(&window, "lstDay"), QPalette::Base);
  DayViewerPicture picture;
  picture.ListColor = 255;
  window.ShowDay(picture);
  EXPECT_EQ(QColor(255, 0, 0), Color(In<QListWidget>(&window, "lstDay"), QPalette::Base));
  window.ShowDay({});
  EXPECT_EQ(designed, Color(In<QListWidget>(&window, "lstDay"), QPalette::Base));
}

TEST_F(DayViewerWindowTest, ALeftClickShowsTheLine) {
  Open();
  Press(1);
  EXPECT_EQ("[OK]  9:30A-10:30A Second", dialogs_.OnlyBox());
}

TEST_F(DayViewerWindowTest, ALongLineIsShownWhole) {
  const std::string name(200, 'x');
  data_.AddBooking(hall_, "2014-03-16", 1, 1, name);
  Open(22);
  Press(0);
  EXPECT_EQ("[OK] 12:00A-12:30A " + name, dialogs_.OnlyBox());
}

TEST_F(DayViewerWindowTest, ShiftExtendsTheSelectionBeforeItsLinesAreShown) {
  Open();
  Press(0);
  Press(2, Qt::LeftButton, Qt::ShiftModifier);
  const std::vector<std::string> shown = {"[OK]  9:00A- 9:30A First", "[OK]  9:00A- 9:30A First",
                                          "[OK]  9:30A-10:30A Second", "[OK]  2:30P- 3:00P Third"};
  EXPECT_EQ(shown, dialogs_.Boxes());
}

TEST_F(DayViewerWindowTest, ControlAddsALineToTheSelection) {
  Open();
  Press(0);
  Press(2, Qt::LeftButton, Qt::ControlModifier);
  const std::vector<std::string> shown = {"[OK]  9:00A- 9:30A First", "[OK]  9:00A- 9:30A First",
                                          "[OK]  2:30P- 3:00P Third"};
  EXPECT_EQ(shown, dialogs_.Boxes());
}

TEST_F(DayViewerWindowTest, AClickOnAnEmptyDayShowsNothing) {
  Open(22);
  QTest::mouseClick(Lines().viewport(), Qt::LeftButton, {}, QPoint(10, 10));
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(DayViewerWindowTest, EnterShowsTheLineThatTheKeysLedTo) {
  Open();
  QTest::keyClick(&Lines(), Qt::Key_Down);
  QTest::keyClick(&Lines(), Qt::Key_Return);
  EXPECT_EQ("[OK]  9:30A-10:30A Second", dialogs_.OnlyBox());
}

TEST_F(DayViewerWindowTest, TheMiddleButtonDoesNothing) {
  Open();
  Press(1, Qt::MiddleButton);
  EXPECT_TRUE(dialogs_.Boxes().empty());
  EXPECT_EQ(nullptr, Day());
}

TEST_F(DayViewerWindowTest, ARightClickGoesOnToBookTheDay) {
  Open();
  Press(0, Qt::RightButton);
  EXPECT_EQ(nullptr, Viewer());
  ASSERT_NE(nullptr, Day());
  EXPECT_EQ("  3/15/2014 Bookings", Day()->windowTitle().toStdString());
}

TEST_F(DayViewerWindowTest, TheMenuKeyAndShiftF10DoTheSame) {
  Open();
  QTest::keyClick(&Lines(), Qt::Key_Menu);
  ASSERT_NE(nullptr, Day());
  Day()->close();
  QTest::keyClick(&Lines(), Qt::Key_F10, Qt::ShiftModifier);
  EXPECT_NE(nullptr, Day());
}

TEST_F(DayViewerWindowTest, ABookingMadeBehindItIsInItAfterwards) {
  Open();
  Press(0, Qt::RightButton);
  dialogs_.AnswerNext(Answer::Ok);
  DragRows(22, 23);
  Day()->close();
  ASSERT_NE(nullptr, Viewer());
  EXPECT_EQ(4, Lines().count());
  EXPECT_EQ(0U, Text(2).find("10:30A-11:30A ")) << Text(2);
}

TEST_F(DayViewerWindowTest, EachOpeningReadsTheDayAnew) {
  Open();
  Viewer()->close();
  data_.AddBooking(hall_, "2014-03-15", 40, 40, "Fourth");
  RightPressDay(21);
  EXPECT_EQ(4, Lines().count());
}

TEST_F(DayViewerWindowTest, EscapeClosesIt) {
  Open();
  QTest::keyClick(&Lines(), Qt::Key_Escape);
  EXPECT_EQ(nullptr, Viewer());
  EXPECT_TRUE(Month()->isEnabled());
}

TEST_F(DayViewerWindowTest, ControlPPrintsTheDay) {
  const std::string name = "a name of which every word is wanted " + std::string(150, 'x') + " end";
  data_.AddBooking(hall_, "2014-03-15", 40, 40, name);
  Open();
  const PrintedPage printed(Print(Qt::ControlModifier));
  const QString text = printed.FlowingText().simplified().remove(' ');
  const QImage upright = printed.Picture(20);
  EXPECT_LT(upright.width(), upright.height());
  EXPECT_TRUE(text.contains("Saturday,March15,2014"));
  EXPECT_TRUE(text.contains("9:00A-9:30AFirst9:30A-10:30ASecond2:30P-3:00PThird"));
  EXPECT_TRUE(text.contains(QString::fromStdString(name).remove(' ')));
  EXPECT_EQ("[OK Information] Print Complete.", dialogs_.OnlyBox());
}

TEST_F(DayViewerWindowTest, ControlShiftPPrintsItsWeek) {
  data_.AddBooking(hall_, "2014-03-10", 40, 40, "Monday's");
  Open();
  const PrintedPage printed(Print(Qt::ControlModifier | Qt::ShiftModifier));
  const QString text = printed.Text();
  const QImage on_its_side = printed.Picture(20);
  EXPECT_GT(on_its_side.width(), on_its_side.height());
  EXPECT_EQ(1, text.count("March 9 to 15, 2014"));
  EXPECT_EQ(1, text.count("Sunday 9"));
  EXPECT_EQ(1, text.count("Monday's"));
  EXPECT_EQ(1, text.count("Third"));
}

}  // namespace
}  // namespace veyra
