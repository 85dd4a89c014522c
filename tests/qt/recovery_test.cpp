#include "tests/qt/program_fixture.h"

namespace veyra {
namespace {

/// An action that fails, since another program changes the booking while a question stands.
class RecoveryTest : public ProgramFixture {
 protected:
  RecoveryTest() {
    data_.AddBooking(hall_, "2014-03-15", 12, 12, "Choir", 20140301120000.0);
    dialogs_.AnswerNext(Answer::Yes);
    dialogs_.AnswerNext(Answer::No);
    dialogs_.WhileShown = [this] {
      if (dialogs_.Boxes().size() == 2) {
        ChangeBehindItsBack();
      } else if (dialogs_.Boxes().size() == 3) {
        seen_ = Seen();
      }
    };
  }

  void ChangeBehindItsBack() {
    Connection other(data_.Calendar());
    const auto row = other.Open("SELECT * FROM Reserv", CursorType::StaticOptimistic);
    row->SetField("Event", std::string("Theirs"));
    row->Update();
    data_.AddRoom("Court");
  }

  /// The day grid's name at 5:30 AM, the first line of the month's cell, and the last facility.
  std::string Seen() {
    const QWidget* month = nullptr;
    for (QWidget* window : QApplication::topLevelWidgets()) {
      month = window->objectName() == QLatin1String("frmCalendar") ? window : month;
    }
    const auto* list = month->findChild<QListWidget*>(QStringLiteral("lstDay(21)"));
    const auto* box = month->findChild<QComboBox*>(QStringLiteral("Combo1"));
    return Grid().item(11, 1)->text().toStdString() + "|" + list->item(0)->text().toStdString() +
           "|" + box->itemText(box->count() - 1).toStdString();
  }

  std::string seen_;
};

TEST_F(RecoveryTest, WhatIsShownBehindTheReportIsWhatTheCalendarHolds) {
  StartAndOpenDay();
  DragRows(12, 12);
  EXPECT_NE(std::string::npos, dialogs_.Boxes().back().find("Another program has just changed"));
  EXPECT_EQ("Theirs| 5:30A- 6:00A Theirs|Court", seen_);
}

TEST_F(RecoveryTest, TheViewersListIsFilledAnewToo) {
  Start();
  RightPressDay(21);
  QWidget* viewer = Window("frmDayViewer");
  ASSERT_NE(nullptr, viewer);
  auto& lines = In<QListWidget>(viewer, QStringLiteral("lstDay"));
  QTest::mousePress(lines.viewport(), Qt::RightButton, {}, QPoint(10, 5));
  ASSERT_NE(nullptr, Day());
  ASSERT_TRUE(QTest::qWaitForWindowActive(Day()));
  DragRows(12, 12);
  EXPECT_EQ(" 5:30A- 6:00A Theirs", lines.item(0)->text().toStdString());
}

}  // namespace
}  // namespace veyra
