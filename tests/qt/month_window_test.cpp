#include <QAction>
#include <QFontInfo>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>

#include "tests/qt/month_window_fixture.h"

namespace veyra {
namespace {

class MonthWindowTest : public MonthWindowFixture {};

struct Caption {
  const char* Name;
  const char* Text;
  const char* ToolTip;
};

TEST_F(MonthWindowTest, TheButtonsBearTheirCaptionsAndToolTips) {
  Start();
  constexpr Caption kButtons[] = {
      {"Command1", "Next =>", "Go To the Next Month"},
      {"Command2", "<= Previous", "Go To the Previous Month"},
      {"Command3", "Print", "Print this Month's Calendar on your Default Printer"},
      {"Command4", "Delete Facility", "Delete the Selected Facility and All its Bookings"}};
  for (const Caption& expected : kButtons) {
    auto& button = Find<QPushButton>(expected.Name);
    EXPECT_EQ(expected.Text, Words(button.text()));
    EXPECT_EQ(expected.Text, button.accessibleName().toStdString());
    EXPECT_EQ(expected.ToolTip, button.toolTip().toStdString());
  }
}

TEST_F(MonthWindowTest, TheMenusBearTheirCaptions) {
  Start();
  EXPECT_EQ("Help", Words(Find<QMenu>("mnuHelp").title()));
  constexpr Caption kItems[] = {{"mnuContents", "Contents", nullptr},
                                {"mnuOver", "Overview", nullptr},
                                {"mnuCalendar", "Calendar Help", nullptr},
                                {"mnuAbout", "About", nullptr},
                                {"mnuSettings", "Settings", nullptr}};
  for (const Caption& expected : kItems) {
    EXPECT_EQ(expected.Text, Words(Find<QAction>(expected.Name).text()));
  }
}

TEST_F(MonthWindowTest, TheLabelsAndTheTitleAreThoseOfTheDesign) {
  Start();
  EXPECT_EQ("Veyra Scheduler Calendar", Month()->windowTitle().toStdString());
  EXPECT_EQ("Facility", Words(Label("Label1").text()));
  EXPECT_EQ("Hall", Label("lblRoom").text().toStdString());
  EXPECT_EQ("March 2014", Title());
  constexpr const char* kDays[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                   "Thursday", "Friday", "Saturday"};
  for (int column = 0; column < 7; ++column) {
    EXPECT_EQ(kDays[column], Label(QStringLiteral("Label2(%1)").arg(column)).text().toStdString());
  }
}

TEST_F(MonthWindowTest, TheFacilityBoxIsNamedAndExplained) {
  Start();
  EXPECT_EQ("Facility", Facility().accessibleName().toStdString());
  EXPECT_EQ(
      "Select the Facility to Review | Enter New Facility and Press Enter | Or enter a New "
      "Facility and press Enter",
      Facility().toolTip().toStdString());
}

TEST_F(MonthWindowTest, ADayCellIsNamedAfterItsDateAndExplained) {
  Start();
  EXPECT_EQ("Bookings on 3/15/2014", List(21).accessibleName().toStdString());
  EXPECT_EQ("Left Click to Add/Change the Bookings for this Day    Right Click for Larger View",
            List(21).toolTip().toStdString());
}

TEST_F(MonthWindowTest, TheCellsStandSevenToARowSundayLeftmost) {
  Start();
  for (int cell = 7; cell <= 37; ++cell) {
    const int column = (cell - 1) % 7;
    QLabel& header = Label(QStringLiteral("Label2(%1)").arg(column));
    const QWidget* place = List(cell).parentWidget();
    EXPECT_EQ(header.x(), place->x()) << cell;
    EXPECT_EQ(List(cell - column).parentWidget()->y(), place->y()) << cell;
  }
  EXPECT_LT(List(8).parentWidget()->y(), List(15).parentWidget()->y());
}

TEST_F(MonthWindowTest, OnlyTheDaysOfTheMonthAreSeen) {
  Start();
  EXPECT_FALSE(List(6).isVisible());
  EXPECT_FALSE(Number(6).isVisible());
  EXPECT_TRUE(List(7).isVisible());
  EXPECT_EQ("1", Number(7).text().toStdString());
  EXPECT_EQ("31", Number(37).text().toStdString());
  EXPECT_FALSE(List(38).isVisible());
}

TEST_F(MonthWindowTest, HiddenCellsKeepTheirPlace) {
  Start();
  Key(Qt::Key_PageDown);
  ASSERT_EQ("April 2014", Title());
  QCoreApplication::processEvents();
  const QRect before = List(21).parentWidget()->geometry();
  Key(Qt::Key_PageDown);
  ASSERT_EQ("May 2014", Title());
  QCoreApplication::processEvents();
  EXPECT_EQ(before, List(21).parentWidget()->geometry());
}

TEST_F(MonthWindowTest, TheListsHaveAFixedPitchFont) {
  Start();
  const QFontMetrics metrics(List(21).font());
  EXPECT_EQ("Courier New", List(21).font().family().toStdString());
  EXPECT_TRUE(QFontInfo(List(21).font()).fixedPitch());
  EXPECT_EQ(metrics.horizontalAdvance("12:00A-"), metrics.horizontalAdvance(" 1:00P-"));
}

TEST_F(MonthWindowTest, TheBookingsOfADayAreListed) {
  data_.AddBooking(hall_, "2014-03-16", 19, 21, "Smith");
  data_.AddBooking(hall_, "2014-03-16", 2, 3, "Jones");
  Start();
  EXPECT_EQ("12:30A- 1:30A Jones\n 9:00A-10:30A Smith\n", Lines(22));
}

TEST_F(MonthWindowTest, ANameWithLineBreaksStaysOnOneLine) {
  data_.AddBooking(hall_, "2014-03-16", 19, 21, "a\r\nb\nc");
  Start();
  EXPECT_EQ(" 9:00A-10:30A a b c\n", Lines(22));
}

TEST_F(MonthWindowTest, NamesOfTenThousandCharactersCanBeScrolled) {
  for (int slot = 1; slot <= 40; ++slot) {
    data_.AddBooking(hall_, "2014-03-16", slot, slot, std::string(10'000, 'x'));
  }
  Start();
  EXPECT_EQ(40, List(22).count());
  EXPECT_GT(List(22).horizontalScrollBar()->maximum(), 10'000);
}

TEST_F(MonthWindowTest, TheHeadersAreInTheHeaderColor) {
  Start();
  const QColor blue(0, 0, 192);
  for (const char* name : {"lblRoom", "lblMonth", "Label2(0)", "Label2(6)"}) {
    EXPECT_EQ(blue, Label(name).palette().color(QPalette::WindowText)) << name;
  }
}

TEST_F(MonthWindowTest, TodayIsRedAndBoldAndTheOthersAreBlack) {
  Start();
  EXPECT_EQ(QColor(Qt::red), Number(21).palette().color(QPalette::WindowText));
  EXPECT_TRUE(Number(21).font().bold());
  EXPECT_EQ(QColor(Qt::black), Number(22).palette().color(QPalette::WindowText));
  EXPECT_FALSE(Number(22).font().bold());
}

TEST_F(MonthWindowTest, ACellKeepsTheBackgroundThatItOnceHad) {
  FakeDialogs dialogs;
  const HandlerGuard guard(dialogs);
  QtMonthWindow window(guard);
  modRes::MonthPicture picture;
  picture.Cells[3] = {.Visible = true,
                      .Day = MakeDate(2014, 3, 15).value(),
                      .Number = "15",
                      .ListColor = 0x0000FF,
                      .IsToday = true,
                      .Lines = {}};
  window.ShowMonth(picture);
  picture.Cells[3].ListColor.reset();
  picture.Cells[3].IsToday = false;
  window.ShowMonth(picture);
  EXPECT_EQ(QColor(Qt::red), In<QListWidget>(&window, "lstDay(3)").palette().color(QPalette::Base));
}

TEST_F(MonthWindowTest, AMonthIsPaintedOnce) {
  class PaintCounter : public QObject {
   public:
    int Paints = 0;
    bool eventFilter(QObject*, QEvent* event) override {
      Paints += event->type() == QEvent::Paint ? 1 : 0;
      return false;
    }
  };
  data_.AddBooking(hall_, "2014-04-16", 19, 21, std::string(100, 'x'));
  Start();
  QCoreApplication::processEvents();
  PaintCounter title;
  Label("lblMonth").installEventFilter(&title);
  PaintCounter list;
  List(18).viewport()->installEventFilter(&list);
  Key(Qt::Key_PageDown);
  EXPECT_EQ(1, title.Paints);
  EXPECT_EQ(1, list.Paints);
  QCoreApplication::processEvents();
  EXPECT_EQ(1, title.Paints);
  EXPECT_EQ(1, list.Paints);
}

TEST_F(MonthWindowTest, WithoutAFacilityADayIsRefused) {
  Start();
  Facility().setFocus();
  Facility().lineEdit()->selectAll();
  Key(Qt::Key_Delete);
  PressDay(22);
  EXPECT_EQ("[OK Critical] There is no Facility Selected", dialogs_.OnlyBox());
  EXPECT_EQ(nullptr, Day());
}

TEST_F(MonthWindowTest, PickingAFacilityShowsItsMonth) {
  data_.AddBooking(pool_, "2014-03-16", 19, 21, "Swim");
  Start();
  Facility().setFocus();
  Key(Qt::Key_Up);
  EXPECT_EQ("Pool", Label("lblRoom").text().toStdString());
  EXPECT_EQ(" 9:00A-10:30A Swim\n", Lines(22));
}

TEST_F(MonthWindowTest, EnterOverAListedNameAdoptsItsSpellingOnly) {
  Start();
  Facility().setFocus();
  QTest::keyClicks(&Facility(), QStringLiteral("pool"));
  Key(Qt::Key_Return);
  EXPECT_EQ("Pool", Facility().currentText().toStdString());
  EXPECT_EQ("Hall", Label("lblRoom").text().toStdString());
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(MonthWindowTest, EnterOverANewNameAsksAndAddsIt) {
  Start();
  dialogs_.AnswerNext(Answer::Yes);
  Facility().setFocus();
  QTest::keyClicks(&Facility(), QStringLiteral("main hall"));
  Key(Qt::Key_Return);
  EXPECT_EQ("[Yes/No Exclamation] Do you want to add a new Facility called Main Hall?",
            dialogs_.OnlyBox());
  EXPECT_EQ(3, Facility().count());
  EXPECT_EQ("Main Hall", Label("lblRoom").text().toStdString());
}

TEST_F(MonthWindowTest, TheFacilityBoxSelectsItsTextWhenTheFocusArrives) {
  Start();
  Facility().setFocus(Qt::TabFocusReason);
  EXPECT_EQ("Hall", Facility().lineEdit()->selectedText().toStdString());
}

TEST_F(MonthWindowTest, DeletingTheFacilityShowsTheFirstOneLeft) {
  Start();
  dialogs_.AnswerNext(Answer::Yes);
  QTest::mouseClick(&Find<QPushButton>("Command4"), Qt::LeftButton);
  EXPECT_EQ("Pool", Label("lblRoom").text().toStdString());
  EXPECT_EQ("1 Pool active\n", data_.Rooms());
}

TEST_F(MonthWindowTest, AnEmptyCalendarSaysHowToAddTheFirstFacility) {
  Start();
  auto& hint = Label("emptyHint");
  EXPECT_FALSE(hint.isVisible());
  dialogs_.AnswerNext(Answer::Yes);
  dialogs_.AnswerNext(Answer::Yes);
  Find<QPushButton>("Command4").click();
  Find<QPushButton>("Command4").click();
  EXPECT_TRUE(hint.isVisible());
  EXPECT_EQ(
      "There is no facility yet.\nType the name of the first one into the box at the top and press "
      "Enter.",
      hint.text().toStdString());
  dialogs_.AnswerNext(Answer::Yes);
  QTest::keyClicks(Facility().lineEdit(), QStringLiteral("Court"));
  QTest::keyClick(Facility().lineEdit(), Qt::Key_Return);
  EXPECT_FALSE(hint.isVisible());
}

}  // namespace
}  // namespace veyra
