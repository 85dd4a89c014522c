#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <filesystem>
#include <functional>
#include <string>

#include "tests/qt/program_fixture.h"

namespace veyra {
namespace {

namespace fs = std::filesystem;

/// The calendar file is replaced by a backup while the program is running. The backup knows nothing
/// of the booking that the windows show.
class ReplacedCalendarTest : public ProgramFixture {
 protected:
  ReplacedCalendarTest() {
    fs::copy_file(File(), kept_.File("backup"));
    data_.AddBooking(hall_, "2014-03-15", 19, 21, "Late");
  }

  std::string File() const { return data_.File("Calendar.mdb"); }

  void Replace() const { fs::rename(kept_.File("backup"), File()); }

  /// `change` changes a row of the backup's Rooms.
  void ChangeEachRoomOfTheBackup(const std::function<void(Recordset&)>& change) const {
    Connection backup(OpenStore(kept_.File("backup"), StoreAccess::ReadWrite));
    const auto rooms = backup.Open("SELECT * FROM Rooms", CursorType::StaticOptimistic);
    for (; !rooms->AtEnd(); rooms->MoveNext()) {
      change(*rooms);
    }
  }

  static void TurnToNextMonth() {
    QTest::mouseClick(&In<QPushButton>(Month(), QStringLiteral("Command1")), Qt::LeftButton);
  }

  TempFolder kept_;
};

TEST_F(ReplacedCalendarTest, IsReportedAndOpenedAnewWhenTheOperatorSaysYes) {
  Start();
  EXPECT_EQ(1, List(21).count());
  Replace();
  dialogs_.AnswerNext(Answer::Yes);
  TurnToNextMonth();
  ASSERT_LE(2U, dialogs_.Boxes().size());
  EXPECT_NE(std::string::npos, dialogs_.Boxes()[0].find("replaced by another one"));
  EXPECT_EQ("[Yes/No Question] Open the calendar file anew now?", dialogs_.Boxes()[1]);
  EXPECT_EQ(0, List(21).count());
}

TEST_F(ReplacedCalendarTest, TakesTheNextBookingOnceItIsOpenedAnew) {
  StartAndOpenDay();
  Replace();
  dialogs_.AnswerNext(Answer::Yes);
  DragRows(23, 24);
  EXPECT_EQ("", data_.Bookings());
  EXPECT_EQ("", Grid().item(18, 1)->text().toStdString());
  dialogs_.AnswerNext(Answer::Ok);
  DragRows(23, 24);
  EXPECT_EQ("2 2014-03-15 23-24 No Guests In Veyra\n", data_.Bookings());
}

TEST_F(ReplacedCalendarTest, AnOpenDayIsHeadedByTheFacilityThatItBooksFromThenOn) {
  ChangeEachRoomOfTheBackup([](Recordset& room) {
    room.SetField("Active", std::int64_t{ToText(room.Field("Name")) == "Pool"});
    room.Update();
  });
  StartAndOpenDay();
  Replace();
  dialogs_.AnswerNext(Answer::Yes);
  DragRows(23, 24);
  EXPECT_EQ("Pool, Saturday", In<QLabel>(Day(), QStringLiteral("heading")).text().toStdString());
  dialogs_.AnswerNext(Answer::Ok);
  DragRows(23, 24);
  EXPECT_EQ("1 2014-03-15 23-24 No Guests In Veyra\n", data_.Bookings());
}

TEST_F(ReplacedCalendarTest, WithoutTheFacilityOfAnOpenDayNothingIsBookedThere) {
  ChangeEachRoomOfTheBackup([](Recordset& room) { room.Delete(); });
  StartAndOpenDay();
  Replace();
  dialogs_.AnswerNext(Answer::Yes);
  DragRows(23, 24);
  EXPECT_EQ(nullptr, Day());
  ASSERT_NE(nullptr, Month());
  EXPECT_TRUE(Month()->isEnabled());
  EXPECT_EQ("", Names(Month()).currentText().toStdString());
}

TEST_F(ReplacedCalendarTest, IsSeenOnTheDayBoardToo) {
  Start();
  QTest::keyClick(Month()->focusWidget(), Qt::Key_B, Qt::ControlModifier);
  ASSERT_NE(nullptr, Window("frmBoard"));
  auto& cells = In<QTableWidget>(Window("frmBoard"), QStringLiteral("Grid1"));
  const auto names = [&cells] {
    int count = 0;
    for (int column = 0; column < cells.columnCount(); ++column) {
      count += cells.item(18, column)->text() == QLatin1String("Late");
    }
    return count;
  };
  ASSERT_EQ(1, names());
  Replace();
  dialogs_.AnswerNext(Answer::Yes);
  QTest::keyClick(&cells, Qt::Key_PageDown);
  EXPECT_EQ(0, names());
  EXPECT_EQ("Day Board: Saturday, 3/15/2014", Window("frmBoard")->windowTitle().toStdString());
}

TEST_F(ReplacedCalendarTest, StaysAsItIsShownWhenTheOperatorSaysNo) {
  Start();
  Replace();
  dialogs_.AnswerNext(Answer::No);
  TurnToNextMonth();
  EXPECT_EQ(2U, dialogs_.Boxes().size());
  EXPECT_EQ(1, List(21).count());
}

TEST_F(ReplacedCalendarTest, IsOfferedAgainUntilAFileIsThere) {
  StartAndOpenDay();
  fs::rename(File(), kept_.File("removed"));
  dialogs_.AnswerNext(Answer::Ok);
  dialogs_.AnswerNext(Answer::Yes);
  DragRows(23, 24);
  EXPECT_NE(std::string::npos, dialogs_.Boxes().back().find("There is no such file."));
  Replace();
  dialogs_.AnswerNext(Answer::Yes);
  DragRows(23, 24);
  EXPECT_EQ("", Grid().item(18, 1)->text().toStdString());
  dialogs_.AnswerNext(Answer::Ok);
  DragRows(23, 24);
  EXPECT_EQ("2 2014-03-15 23-24 No Guests In Veyra\n", data_.Bookings());
}

}  // namespace
}  // namespace veyra
