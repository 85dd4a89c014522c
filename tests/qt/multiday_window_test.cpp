#include <QAbstractItemView>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>

#include "forms/twips.h"
#include "forms/widgets/qt_window_place.h"
#include "tests/qt/program_fixture.h"

namespace veyra {
namespace {

/// The multiple-day window, opened from the day window of 3/15/2014.
class MultiDayWindowTest : public ProgramFixture {
 protected:
  void Open() {
    StartAndOpenDay();
    In<QRadioButton>(Day(), "Book(1)").click();
    ASSERT_NE(nullptr, Plan());
    ASSERT_TRUE(IsInUse(Plan()));
  }

  static QWidget* Plan() { return Window("frmMultiDay"); }
  static QLineEdit& Field(int index) {
    return In<QLineEdit>(Plan(), QStringLiteral("Text1(%1)").arg(index));
  }
  static QCheckBox& Weekday(int day) {
    return In<QCheckBox>(Plan(), QStringLiteral("Days(%1)").arg(day));
  }
  static QCalendarWidget& Picker() { return In<QCalendarWidget>(Plan(), "Calendar1"); }
  static QPushButton& Button(const char* name) { return In<QPushButton>(Plan(), name); }

  static void DoubleClick(QWidget& widget) { QTest::mouseDClick(&widget, Qt::LeftButton); }
  static void Write(int index, const char* text) {
    Field(index).setFocus();
    Field(index).selectAll();
    QTest::keyClicks(&Field(index), QLatin1String(text));
  }

  /// Where a control lies in the window, without its frame.
  static QRect Place(QWidget& control) { return {control.mapTo(Plan(), QPoint()), control.size()}; }
  static int Pixels(Twips twips) { return PixelsFromTwips(twips, Plan()->logicalDpiX()); }
};

TEST_F(MultiDayWindowTest, ItsTextsAreThoseOfTheDesign) {
  Open();
  EXPECT_EQ("Multiple Day Booking", Plan()->windowTitle().toStdString());
  EXPECT_EQ("From", Words(In<QLabel>(Plan(), "Label1(0)").text()));
  EXPECT_EQ("To", Words(In<QLabel>(Plan(), "Label1(1)").text()));
  EXPECT_EQ("Double-Click for Calendar", Field(0).toolTip().toStdString());
  EXPECT_EQ("Double-Click for Calendar", Field(1).toolTip().toStdString());
  EXPECT_EQ("Days of the Week ", In<QGroupBox>(Plan(), "Frame1").title().toStdString());
  EXPECT_EQ(
      "You must select at least ONE Day for Bookings and BOTH Dates must be Defined before "
      "Multiple Bookings can be Scheduled.",
      In<QLabel>(Plan(), "Label2").text().toStdString());
  EXPECT_EQ("Double-Click to enter desired Date", Picker().toolTip().toStdString());
}

TEST_F(MultiDayWindowTest, ItsButtonsBearTheirCaptionsAndToolTips) {
  Open();
  const std::vector<std::array<const char*, 3>> buttons = {
      {"Command1", "Close", "Press to Close this Panel"},
      {"Command2", "Ck ALL", "Press to Select ALL Days between the Dates Below"},
      {"Command3", "Close Calendar", "Click to close Calendar"}};
  for (const auto& [name, caption, tooltip] : buttons) {
    EXPECT_EQ(caption, Words(Button(name).text()));
    EXPECT_EQ(tooltip, Button(name).toolTip().toStdString());
  }
}

TEST_F(MultiDayWindowTest, ItsWeekdaysBeginWithSunday) {
  Open();
  const std::vector<std::array<const char*, 2>> days = {
      {"Sun", "Sundays"},   {"Mon", "Mondays"}, {"Tue", "Tuesdays"}, {"Wed", "Wednesdays"},
      {"Thu", "Thursdays"}, {"Fri", "Fridays"}, {"Sat", "Saturdays"}};
  for (std::size_t i = 0; i < days.size(); ++i) {
    const QCheckBox& box = Weekday(static_cast<int>(i) + 1);
    EXPECT_EQ(days[i][0], Words(box.text()));
    EXPECT_EQ(std::string("Check to Schedule all ") + days[i][1] + " between the Dates Below",
              box.toolTip().toStdString());
  }
}

TEST_F(MultiDayWindowTest, ItOpensWithTheDayInFromAndThePickerHidden) {
  Open();
  EXPECT_EQ("3/15/2014", Field(0).text().toStdString());
  EXPECT_EQ("", Field(1).text().toStdString());
  EXPECT_FALSE(Picker().isVisible());
  EXPECT_FALSE(Button("Command3").isVisible());
}

TEST_F(MultiDayWindowTest, ItStandsBesideTheDayWindow) {
  Open();
  EXPECT_EQ(PlaceBeside(Day()->frameGeometry(), Plan()->frameGeometry().size(),
                        Plan()->screen()->availableGeometry()),
            Plan()->frameGeometry().topLeft());
}

TEST_F(MultiDayWindowTest, ADoubleClickOnFromPlacesThePickerToTheRight) {
  Open();
  DoubleClick(Field(0));
  ASSERT_TRUE(Picker().isVisible());
  ASSERT_TRUE(Button("Command3").isVisible());
  EXPECT_EQ(QPoint(Pixels(2160), Pixels(120)), Place(Picker()).topLeft());
  EXPECT_EQ(Pixels(120), Place(Button("Command3")).left());
  EXPECT_EQ(QDate(2014, 3, 15), Picker().selectedDate());
}

TEST_F(MultiDayWindowTest, ADoubleClickOnToPlacesThePickerToTheLeft) {
  Open();
  DoubleClick(Field(1));
  ASSERT_TRUE(Picker().isVisible());
  EXPECT_EQ(QPoint(Pixels(240), Pixels(120)), Place(Picker()).topLeft());
  EXPECT_EQ(Pixels(3960), Place(Button("Command3")).left());
}

TEST_F(MultiDayWindowTest, ThePickerCoversNeitherFieldNorButtonAndNothingIsCutOff) {
  Open();
  for (const int index : {0, 1}) {
    DoubleClick(Field(index));
    const QRect picker = Place(Picker());
    const QRect close = Place(Button("Command3"));
    EXPECT_TRUE(Plan()->rect().contains(picker));
    EXPECT_TRUE(Plan()->rect().contains(close));
    EXPECT_LE(Picker().minimumSizeHint().width(), picker.width());
    EXPECT_FALSE(close.intersects(Place(Button("Command1"))));
    for (QWidget* other :
         std::initializer_list<QWidget*>{&Field(0), &Field(1), &Button("Command1")}) {
      EXPECT_FALSE(picker.intersects(Place(*other))) << other->objectName().toStdString();
      EXPECT_FALSE(close.intersects(Place(*other))) << other->objectName().toStdString();
    }
  }
}

TEST_F(MultiDayWindowTest, TheKeyboardOpensThePickerToo) {
  Open();
  QTest::keyClick(&Field(1), Qt::Key_F4);
  EXPECT_TRUE(Picker().isVisible());
  QTest::keyClick(Plan(), Qt::Key_Escape);
  ASSERT_FALSE(Picker().isVisible());
  QTest::keyClick(&Field(1), Qt::Key_Down, Qt::AltModifier);
  EXPECT_TRUE(Picker().isVisible());
}

TEST_F(MultiDayWindowTest, ADateThatIsTakenGoesIntoTheEditedFieldOnly) {
  Open();
  DoubleClick(Field(1));
  emit Picker().activated(QDate(2014, 4, 2));
  EXPECT_EQ("3/15/2014", Field(0).text().toStdString());
  EXPECT_EQ("4/2/2014", Field(1).text().toStdString());
  EXPECT_FALSE(Picker().isVisible());
  EXPECT_FALSE(Button("Command3").isVisible());
  EXPECT_TRUE(Field(1).hasFocus());
}

TEST_F(MultiDayWindowTest, TheWeekInThePickerBeginsWithSunday) {
  Open();
  EXPECT_EQ(Qt::Sunday, Picker().firstDayOfWeek());
}

/// 23 February stands in front of 1 March; the first click turns the page to February.
TEST_F(MultiDayWindowTest, ADoubleClickOnAGreyDayTakesThatDay) {
  Open();
  DoubleClick(Field(1));
  QAbstractItemView& days = *Picker().findChild<QAbstractItemView*>();
  const QPoint first = days.visualRect(days.model()->index(1, 0)).center();
  QTest::mouseClick(days.viewport(), Qt::LeftButton, {}, first);
  EXPECT_EQ(2, Picker().monthShown());
  QTest::mouseDClick(days.viewport(), Qt::LeftButton, {}, first);
  EXPECT_EQ("2/23/2014", Field(1).text().toStdString());
  EXPECT_FALSE(Picker().isVisible());
}

TEST_F(MultiDayWindowTest, ADoubleClickOnTheNamesOfTheWeekdaysTakesNoDay) {
  Open();
  DoubleClick(Field(1));
  QAbstractItemView& days = *Picker().findChild<QAbstractItemView*>();
  const QPoint name = days.visualRect(days.model()->index(0, 0)).center();
  const QPoint first = days.visualRect(days.model()->index(2, 0)).center();
  QTest::mouseClick(days.viewport(), Qt::LeftButton, {}, first);
  QTest::mouseClick(days.viewport(), Qt::LeftButton, {}, name);
  QTest::mouseDClick(days.viewport(), Qt::LeftButton, {}, name);
  EXPECT_TRUE(Picker().isVisible());
  EXPECT_EQ("", Field(1).text().toStdString());
}

TEST_F(MultiDayWindowTest, APickerLeftOpenIsGoneWhenTheWindowComesAgain) {
  Open();
  DoubleClick(Field(0));
  Button("Command1").click();
  In<QRadioButton>(Day(), "Book(1)").click();
  EXPECT_FALSE(Picker().isVisible());
  EXPECT_FALSE(Button("Command3").isVisible());
  EXPECT_TRUE(Weekday(1).isVisible());
}

TEST_F(MultiDayWindowTest, CloseCalendarHidesBoth) {
  Open();
  DoubleClick(Field(0));
  Button("Command3").click();
  EXPECT_FALSE(Picker().isVisible());
  EXPECT_FALSE(Button("Command3").isVisible());
  EXPECT_TRUE(Weekday(1).isVisible());
}

TEST_F(MultiDayWindowTest, EscapeHidesThePickerAloneAndASecondOneNothing) {
  Open();
  Weekday(2).click();
  DoubleClick(Field(0));
  QTest::keyClick(&Picker(), Qt::Key_Escape);
  EXPECT_FALSE(Picker().isVisible());
  EXPECT_TRUE(Button("Command3").isVisible());
  QTest::keyClick(Plan(), Qt::Key_Escape);
  ASSERT_NE(nullptr, Plan());
  EXPECT_TRUE(Weekday(2).isChecked());
}

TEST_F(MultiDayWindowTest, CkAllTicksAllSeven) {
  Open();
  Button("Command2").click();
  for (int day = 1; day <= 7; ++day) {
    EXPECT_TRUE(Weekday(day).isChecked()) << day;
  }
}

TEST_F(MultiDayWindowTest, CloseCountsWhatTheFieldsAndBoxesSay) {
  Open();
  Write(0, "3/1/2014");
  Write(1, "3/31/2014");
  Button("Command2").click();
  Button("Command1").click();
  EXPECT_EQ("[OK Information] 31 Days will be Scheduled for the Times Selected.",
            dialogs_.OnlyBox());
  EXPECT_EQ(nullptr, Plan());
  EXPECT_TRUE(Day()->isEnabled());
  EXPECT_TRUE(In<QRadioButton>(Day(), "Book(1)").isChecked());
}

TEST_F(MultiDayWindowTest, AnUntickedBoxCountsNoMore) {
  Open();
  Write(1, "3/31/2014");
  Weekday(2).click();
  Weekday(2).click();
  Button("Command1").click();
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(MultiDayWindowTest, TheTitleBarCountsAsClose) {
  Open();
  Plan()->close();
  EXPECT_EQ(nullptr, Plan());
  EXPECT_TRUE(Day()->isEnabled());
  EXPECT_TRUE(In<QRadioButton>(Day(), "Book(0)").isChecked());
}

TEST_F(MultiDayWindowTest, ItKeepsItsPlanForAnotherDay) {
  Open();
  Write(1, "4/30/2014");
  Weekday(3).click();
  Button("Command1").click();
  Day()->close();
  PressDay(22);
  In<QRadioButton>(Day(), "Book(1)").click();
  EXPECT_EQ("3/16/2014", Field(0).text().toStdString());
  EXPECT_EQ("4/30/2014", Field(1).text().toStdString());
  EXPECT_TRUE(Weekday(3).isChecked());
}

TEST_F(MultiDayWindowTest, TheDayWindowWaitsAndCannotBeClosedMeanwhile) {
  Open();
  EXPECT_FALSE(Day()->isEnabled());
  EXPECT_FALSE(Day()->close());
  EXPECT_NE(nullptr, Day());
}

TEST_F(MultiDayWindowTest, OnlyTheLeftButtonWorksTheOptions) {
  StartAndOpenDay();
  for (const char* option : {"Book(0)", "Book(1)"}) {
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
      QTest::mouseClick(&In<QRadioButton>(Day(), option), button);
      QTest::mouseDClick(&In<QRadioButton>(Day(), option), button);
      EXPECT_EQ(nullptr, Plan()) << option;
    }
  }
}

TEST_F(MultiDayWindowTest, ADoubleClickOnEitherOptionOpensIt) {
  for (const char* option : {"Book(0)", "Book(1)"}) {
    StartAndOpenDay();
    QTest::mouseDClick(&In<QRadioButton>(Day(), option), Qt::LeftButton);
    EXPECT_NE(nullptr, Plan()) << option;
    program_.reset();
  }
}

TEST_F(MultiDayWindowTest, ItSaysWhatThePlanComesTo) {
  data_.AddBooking(pool_, "2014-03-22", 20, 25, "Swim");
  StartAndOpenDay();
  QTest::keyClick(&Grid(), Qt::Key_Home);
  for (int row = 2; row <= 20; ++row) {
    QTest::keyClick(&Grid(), Qt::Key_Down);
  }
  QTest::keyClick(&Grid(), Qt::Key_Down, Qt::ShiftModifier);
  In<QRadioButton>(Day(), "Book(1)").click();
  ASSERT_TRUE(IsInUse(Plan()));
  Write(1, "3/29/2014");
  Weekday(7).click();
  auto& line = In<QLabel>(Plan(), "planLine");
  EXPECT_TRUE(QTest::qWaitFor([&line] {
    return line.text() == QLatin1String("3 dates, 1 of them taken");
  })) << line.text().toStdString();
  EXPECT_EQ("Counted for 9:30A-10:30A, the time chosen last.",
            In<QLabel>(Plan(), "planNote").text().toStdString());
}

TEST_F(MultiDayWindowTest, APlanThatIsHardlyMeantIsMarked) {
  Open();
  auto& note = In<QLabel>(Plan(), "planNote");
  Weekday(7).click();
  Write(1, "3/29/2014");
  const QRect place = Place(note);
  EXPECT_EQ(QFrame::NoFrame, note.frameShape());
  Write(1, "3/29/2226");
  EXPECT_EQ("Is this meant? It ends in 2226.", note.text().toStdString());
  EXPECT_EQ(QFrame::Box, note.frameShape());
  EXPECT_TRUE(note.autoFillBackground());
  EXPECT_EQ(place, Place(note));
  EXPECT_LE(note.sizeHint().width(), note.width());
}

}  // namespace
}  // namespace veyra
