#include <QDialog>
#include <QLabel>
#include <QProgressDialog>
#include <QPushButton>
#include <QScrollBar>
#include <stdexcept>
#include <thread>
#include <utility>

#include "data/calendar_link.h"
#include "tests/postgres/test_server.h"
#include "tests/qt/event_loop.h"
#include "tests/qt/month_window_fixture.h"

namespace veyra {
namespace {

/// The program on a shared calendar, which another desk has open too. No event but those of the
/// server tells it of what that one does.
class OtherDesksTest : public MonthWindowFixture {
 protected:
  OtherDesksTest() : MonthWindowFixture(StoreKind::Postgres) {}

  void Book(int from, int to, const std::string& name, const std::string& day = "2014-03-15") {
    data_.AddBooking(hall_, day, from, to, name);
  }

  static std::string Guest(int row) { return Grid().item(row - 1, 1)->text().toStdString(); }

  static QListWidget& ViewerList() {
    return In<QListWidget>(Window("frmDayViewer"), QStringLiteral("lstDay"));
  }

  static void Cut() {
    TestDatabase::Get().Run(
        "SELECT pg_terminate_backend(pid, 60000) FROM pg_stat_activity"
        " WHERE application_name = 'veyra-calendar' AND datname = current_database()"
        " AND query NOT LIKE '%pg_terminate%'");
  }
};

TEST_F(OtherDesksTest, TheMonthShowsWhatAnotherDeskBooks) {
  Start();
  Book(19, 20, "Smith");
  EXPECT_TRUE(Comes([] { return Lines(21) == " 9:00A-10:00A Smith\n"; }));
}

TEST_F(OtherDesksTest, SoDoesAnOpenDay) {
  StartAndOpenDay();
  Book(19, 20, "Smith");
  EXPECT_TRUE(Comes([] { return Guest(19) == "Smith"; }));
}

TEST_F(OtherDesksTest, SoDoesTheViewerAndKeepsWhatIsSelected) {
  Book(1, 1, "First");
  Book(30, 30, "Last");
  Start();
  RightPressDay(21);
  ViewerList().item(1)->setSelected(true);
  Book(19, 20, "Smith");
  EXPECT_TRUE(Comes([] { return ViewerList().count() == 3; }));
  ASSERT_EQ(1, ViewerList().selectedItems().size());
  EXPECT_EQ("Last", ViewerList().selectedItems().front()->text().right(4).toStdString());
}

TEST_F(OtherDesksTest, SoDoesTheBoard) {
  Start();
  program_->OpenDayBoard(MakeDate(2014, 3, 15).value());
  Book(19, 20, "Smith");
  EXPECT_TRUE(Comes([] {
    return In<QTableWidget>(Window("frmBoard"), QStringLiteral("Grid1")).item(18, 1)->text() ==
           QStringLiteral("Smith");
  }));
}

TEST_F(OtherDesksTest, RowsThatAreChosenStayChosenAndInSight) {
  StartAndOpenDay();
  Grid().setFocus();
  program_->ChooseRows({25, 27});
  const int top = Grid().verticalScrollBar()->value();
  Book(19, 20, "Smith");
  ASSERT_TRUE(Comes([] { return Guest(19) == "Smith"; }));
  EXPECT_EQ(3, Grid().selectionModel()->selectedRows().size());
  EXPECT_TRUE(Grid().item(24, 0)->isSelected());
  EXPECT_EQ(top, Grid().verticalScrollBar()->value());
  EXPECT_TRUE(Grid().hasFocus());
}

TEST_F(OtherDesksTest, AHalfTypedNameStays) {
  StartAndOpenDay();
  Names(Day()).setFocus();
  QTest::keyClicks(Names(Day()).lineEdit(), QStringLiteral("jone"));
  Book(19, 20, "Smith");
  ASSERT_TRUE(Comes([] { return Guest(19) == "Smith"; }));
  EXPECT_EQ("jone", Names(Day()).currentText().toStdString());
  QTest::keyClicks(Names(Day()).lineEdit(), QStringLiteral("s"));
  EXPECT_EQ("jones", Names(Day()).currentText().toStdString());
}

TEST_F(OtherDesksTest, ANewFacilityIsInTheBoxWhileANameIsTyped) {
  Start();
  Facility().setFocus();
  QTest::keyClicks(Facility().lineEdit(), QStringLiteral("sau"));
  Facility().lineEdit()->setCursorPosition(1);
  data_.AddRoom("Cellar");
  ASSERT_TRUE(Comes([] { return Facility().findText(QStringLiteral("Cellar")) >= 0; }));
  EXPECT_EQ("sau", Facility().currentText().toStdString());
  EXPECT_EQ(1, Facility().lineEdit()->cursorPosition());
  EXPECT_TRUE(Facility().hasFocus());
}

TEST_F(OtherDesksTest, ALongDayStaysWhereItWasScrolledTo) {
  for (int slot = 1; slot <= 40; ++slot) {
    Book(slot, slot, "Guest");
  }
  Start();
  List(21).verticalScrollBar()->setValue(5);
  ASSERT_EQ(5, List(21).verticalScrollBar()->value());
  Book(45, 45, "Smith");
  ASSERT_TRUE(Comes([] { return List(21).count() == 41; }));
  EXPECT_EQ(5, List(21).verticalScrollBar()->value());
}

TEST_F(OtherDesksTest, WhileRowsAreDraggedOverNothingChangesAndThenAtOnce) {
  StartAndOpenDay();
  QTest::mousePress(Grid().viewport(), Qt::LeftButton, {}, Middle(25, 1));
  Book(19, 20, "Smith");
  EXPECT_FALSE(Comes([] { return !Guest(19).empty(); }, 300));
  dialogs_.AnswerNext(Answer::Cancel);
  dialogs_.WhileShown = [] { EXPECT_EQ("", Guest(19)); };
  QTest::mouseRelease(Grid().viewport(), Qt::LeftButton, {}, Middle(25, 1));
  EXPECT_TRUE(Comes([] { return Guest(19) == "Smith"; }));
}

/// The desk has not seen what it does not show: the server refuses what it books over it.
TEST_F(OtherDesksTest, WhileAQuestionIsAskedNothingIsReadAndNoTimeBookedTwice) {
  StartAndOpenDay();
  dialogs_.AnswerNext(Answer::Ok);
  bool is_first = true;
  dialogs_.WhileShown = [&] {
    if (std::exchange(is_first, false)) {
      Book(19, 20, "Smith");
    }
    const bool is_refused = dialogs_.Boxes().back().find("somebody else") != std::string::npos;
    EXPECT_EQ(is_refused, Comes([] { return !Guest(19).empty(); }, 300));
  };
  DragRows(19, 20);
  EXPECT_NE(std::string::npos, dialogs_.Boxes().back().find("somebody else has booked"));
  EXPECT_EQ(std::to_string(hall_) + " 2014-03-15 19-20 Smith\n", data_.Bookings());
  EXPECT_EQ(2, Grid().selectionModel()->selectedRows().size());
  EXPECT_TRUE(Grid().item(18, 1)->isSelected());
  EXPECT_TRUE(Comes([] { return Guest(19) == "Smith"; }));
}

TEST_F(OtherDesksTest, BehindABoxNothingChangesAndThenAtOnce) {
  Start();
  QDialog box;
  box.setModal(true);
  box.show();
  Book(19, 20, "Smith");
  EXPECT_FALSE(Comes([] { return !Lines(21).empty(); }, 300));
  box.close();
  EXPECT_TRUE(Comes([] { return !Lines(21).empty(); }));
}

TEST_F(OtherDesksTest, AFacilityThatIsDeletedLeavesItsDay) {
  StartAndOpenDay();
  const auto calendar = data_.Calendar();
  Recordset rooms(*calendar, ParseQuery("SELECT * FROM Rooms Where Name = 'Hall'"),
                  CursorType::StaticOptimistic);
  rooms.Delete();
  EXPECT_TRUE(Comes([this] { return !dialogs_.Boxes().empty(); }));
  EXPECT_NE(std::string::npos, dialogs_.OnlyBox().find("The facility Hall was deleted"));
  EXPECT_EQ(nullptr, Day());
  ASSERT_NE(nullptr, Month());
  EXPECT_EQ("Pool", Facility().currentText().toStdString());
  EXPECT_EQ("Pool", Label("lblRoom").text().toStdString());
}

TEST_F(OtherDesksTest, NobodyTurnsThePageOfAnotherDesk) {
  Start();
  const std::string before = data_.Rooms();
  QTest::keyClick(Month(), Qt::Key_1, Qt::ControlModifier);
  ASSERT_EQ("Pool", Label("lblRoom").text().toStdString());
  EXPECT_EQ(before, data_.Rooms());
  program_.reset();
  Start();
  EXPECT_EQ("Pool", Label("lblRoom").text().toStdString());
}

TEST_F(OtherDesksTest, AWaitForTheServerShowsASignWhoseCancelEndsIt) {
  StartAndOpenDay();
  const std::string table =
      "\"" + ReadCalendarLink(data_.File("Calendar.mdb")).Schema + "\".\"Reserv\"";
  std::thread holder([&] {
    EXPECT_THROW(TestDatabase::Get().Run("BEGIN; LOCK TABLE " + table +
                                         " IN EXCLUSIVE MODE; SELECT pg_sleep(600)"),
                 std::runtime_error);
  });
  while (TestDatabase::Get().Run("SELECT count(*) FROM pg_locks WHERE mode = 'ExclusiveLock' AND "
                                 "granted AND relation = '" +
                                 table + "'::regclass") == "0") {
    std::this_thread::yield();
  }
  QString sign;
  QTimer operators_eye;
  QObject::connect(&operators_eye, &QTimer::timeout, [&sign] {
    if (auto* box = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget())) {
      sign = box->labelText();
      box->cancel();
    }
  });
  operators_eye.start(5);
  dialogs_.AnswerNext(Answer::Ok);
  DragRows(19, 20);
  TestDatabase::Get().Run(
      "SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE query LIKE '%pg_sleep(600)%'"
      " AND pid <> pg_backend_pid()");
  holder.join();
  EXPECT_TRUE(sign.startsWith(QStringLiteral("Waiting for"))) << sign.toStdString();
  EXPECT_NE(std::string::npos, dialogs_.Boxes().back().find("The wait for another desk was ended"));
  EXPECT_NE(std::string::npos, dialogs_.Boxes().back().find("Nothing was saved."));
  EXPECT_EQ("", data_.Bookings());
}

TEST_F(OtherDesksTest, AConnectionThatBreaksInIdleTimeIsQuiet) {
  Start();
  Cut();
  EXPECT_FALSE(Comes([this] { return !dialogs_.Boxes().empty(); }, 300));
  In<QPushButton>(Month(), QStringLiteral("Command1")).click();
  EXPECT_EQ("April 2014", Title());
  EXPECT_TRUE(dialogs_.Boxes().empty());
  In<QPushButton>(Month(), QStringLiteral("Command2")).click();
  const auto other = data_.Calendar();
  other->Insert("Reserv", {{"RmID", hall_},
                           {"Event", std::string("Smith")},
                           {"DateOfRes", MakeDate(2014, 3, 15).value()},
                           {"TimeFrom", std::int64_t{19}},
                           {"TimeTo", std::int64_t{20}}});
  EXPECT_TRUE(Comes([] { return Lines(21) == " 9:00A-10:00A Smith\n"; }));
}

}  // namespace
}  // namespace veyra
