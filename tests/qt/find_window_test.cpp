#include <QStyledItemDelegate>

#include "tests/qt/month_window_fixture.h"

namespace veyra {
namespace {

/// The find window, from the keyboard.
class FindWindowTest : public MonthWindowFixture {
 protected:
  static QWidget* Find() { return Window("frmFind"); }
  static QLineEdit& Text() { return In<QLineEdit>(Find(), QStringLiteral("Text1")); }
  static QListWidget& Found() { return In<QListWidget>(Find(), QStringLiteral("List1")); }
  static std::string State() {
    return In<QLabel>(Find(), QStringLiteral("lblState")).text().toStdString();
  }

  void StartAndFind(const QString& text) {
    Start();
    Key(Qt::Key_F, Qt::ControlModifier);
    ASSERT_NE(nullptr, Find());
    ASSERT_TRUE(IsInUse(Find()));
    QTest::keyClicks(&Text(), text);
    ASSERT_TRUE(QTest::qWaitFor([] { return State() != "Looking ..."; }));
  }
};

/// Counts how often it measures a line.
class MeasuringDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  mutable int Measured = 0;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    ++Measured;
    return QStyledItemDelegate::sizeHint(option, index);
  }
};

TEST_F(FindWindowTest, AKeyDoesNotHaveEveryLineMeasured) {
  constexpr int kBookings = 100;
  std::vector<FieldValues> rows;
  for (int number = 0; number < kBookings; ++number) {
    rows.push_back({{"RmID", hall_},
                    {"Event", "Smith " + std::to_string(number)},
                    {"DateOfRes", AddDays(MakeDate(2014, 4, 1).value(), number)},
                    {"TimeFrom", std::int64_t{1}},
                    {"TimeTo", std::int64_t{2}}});
  }
  data_.Calendar()->InsertAll("Reserv", rows);
  StartAndFind("s");
  MeasuringDelegate delegate;
  Found().setItemDelegate(&delegate);
  QTest::keyClicks(&Text(), QStringLiteral("m"));
  ASSERT_TRUE(QTest::qWaitFor([] { return State() != "Looking ..."; }));
  Found().grab();
  EXPECT_EQ(kBookings, Found().count());
  EXPECT_LT(0, delegate.Measured);
  EXPECT_LT(delegate.Measured, kBookings);
}

TEST_F(FindWindowTest, TheLastLineSeenIsNotCut) {
  for (int slot = 1; slot <= 48; ++slot) {
    data_.AddBooking(hall_, "2014-05-05", slot, slot, "Smith");
  }
  StartAndFind("smi");
  for (int height = 300; height < 330; ++height) {
    Find()->resize(Find()->width(), height);
    EXPECT_EQ(0, Found().viewport()->height() % Found().sizeHintForRow(0)) << height;
  }
}

TEST_F(FindWindowTest, ThePastIsCalledSo) {
  data_.AddBooking(hall_, "2014-03-10", 1, 2, "Smith");
  StartAndFind("smi");
  const QWidget* divider = Found().itemWidget(Found().item(0));
  ASSERT_NE(nullptr, divider);
  EXPECT_EQ("Past", divider->findChild<QLabel*>()->text().toStdString());
}

TEST_F(FindWindowTest, EnterOpensTheDayOfTheNextOne) {
  data_.AddBooking(hall_, "2014-03-10", 1, 2, "Smith");
  data_.AddBooking(pool_, "2014-05-05", 1, 2, "Ann Smith");
  data_.AddBooking(pool_, "2014-05-06", 1, 2, "Jones");
  StartAndFind("smi");
  ASSERT_EQ(3, Found().count());
  QTest::keyClick(&Text(), Qt::Key_Return);
  ASSERT_NE(nullptr, Day());
  EXPECT_EQ(nullptr, Find());
  EXPECT_EQ("  5/5/2014 Bookings", Day()->windowTitle().toStdString());
  Day()->close();
  EXPECT_TRUE(QTest::qWaitForWindowActive(Month()));
  EXPECT_EQ("May 2014", Title());
  EXPECT_EQ("Pool", Label("lblRoom").text().toStdString());
  EXPECT_TRUE(Month()->isEnabled());
}

TEST_F(FindWindowTest, DownGoesOverTheLineToThePast) {
  data_.AddBooking(hall_, "2014-03-10", 1, 2, "Smith");
  data_.AddBooking(pool_, "2014-05-05", 1, 2, "Smith");
  StartAndFind("smi");
  QTest::keyClick(&Text(), Qt::Key_Down);
  EXPECT_EQ("Monday, 3/10/2014, 12:00A- 1:00A, Hall, Smith",
            Found().currentItem()->text().toStdString());
  QTest::keyClick(&Text(), Qt::Key_Return);
  ASSERT_NE(nullptr, Day());
  EXPECT_EQ("  3/10/2014 Bookings", Day()->windowTitle().toStdString());
}

TEST_F(FindWindowTest, WhenAllArePastTheLastOneIsChosen) {
  data_.AddBooking(hall_, "2014-03-10", 1, 2, "Smith");
  StartAndFind("smi");
  EXPECT_EQ("Monday, 3/10/2014, 12:00A- 1:00A, Hall, Smith",
            Found().currentItem()->text().toStdString());
}

TEST_F(FindWindowTest, EnterOnNothingDoesNothing) {
  StartAndFind("smi");
  EXPECT_EQ("No booking has such a name.", State());
  QTest::keyClick(&Text(), Qt::Key_Return);
  EXPECT_NE(nullptr, Find());
}

TEST_F(FindWindowTest, TheTabKeyStopsAtTheListWhenThereIsALine) {
  data_.AddBooking(pool_, "2014-05-05", 1, 2, "Smith");
  StartAndFind("smi");
  QTest::keyClick(&Text(), Qt::Key_Tab);
  EXPECT_TRUE(Found().hasFocus());
}

TEST_F(FindWindowTest, TheTabKeyPassesAListWithoutLines) {
  StartAndFind("smi");
  QTest::keyClick(&Text(), Qt::Key_Tab);
  EXPECT_FALSE(Found().hasFocus());
}

TEST_F(FindWindowTest, WhileItIsOpenTheMonthWaitsAndEscapeClosesIt) {
  StartAndFind("x");
  EXPECT_FALSE(Month()->isEnabled());
  QTest::keyClick(&Text(), Qt::Key_Escape);
  EXPECT_EQ(nullptr, Find());
  EXPECT_TRUE(Month()->isEnabled());
  PressDay(22);
  ASSERT_NE(nullptr, Day());
  dialogs_.AnswerNext(Answer::Ok);
  DragRows(19, 21);
  EXPECT_NE("", data_.Bookings());
}

TEST_F(FindWindowTest, AClickOpensTheDay) {
  data_.AddBooking(pool_, "2014-05-05", 1, 2, "Smith");
  StartAndFind("smi");
  QTest::mouseClick(Found().viewport(), Qt::LeftButton, {},
                    Found().visualItemRect(Found().item(0)).center());
  EXPECT_NE(nullptr, Day());
}

}  // namespace
}  // namespace veyra
