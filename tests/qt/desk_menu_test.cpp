#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QWindow>
#include <set>

#include "tests/qt/month_window_fixture.h"

namespace veyra {
namespace {

/// The keys of the month window beside its fixed controls, and the menu of its background.
class DeskMenuTest : public MonthWindowFixture {
 protected:
  static QMenu& Menu() { return Find<QMenu>("mnuDesk"); }

  static void Control(int key) { Key(key, Qt::ControlModifier); }

  /// As the screen sends it: only so does the toolkit ask for a menu.
  static void RightClick(QWidget& place) {
    QTest::mouseClick(Month()->windowHandle(), Qt::RightButton, {},
                      place.mapTo(Month(), place.rect().center()));
  }

  static bool IsMenuOpen() {
    return QTest::qWaitFor([] { return Menu().isVisible(); });
  }

  static std::string Entries(const QMenu& menu) {
    std::string entries;
    for (const QAction* entry : menu.actions()) {
      if (entry->isVisible() && !entry->isSeparator()) {
        entries += entry->text().toStdString() + " [" +
                   entry->shortcut().toString(QKeySequence::PortableText).toStdString() + "]\n";
      }
    }
    return entries;
  }
};

TEST_F(DeskMenuTest, ControlTAndHomeChooseTodayFromAnywhere) {
  Start();
  Key(Qt::Key_PageDown);
  Facility().setFocus();
  Control(Qt::Key_T);
  EXPECT_EQ("March 2014", Title());
  EXPECT_EQ("lstDay(21)", FocusName());
  Key(Qt::Key_PageUp);
  Key(Qt::Key_Home);
  EXPECT_EQ("March 2014", Title());
  EXPECT_EQ("lstDay(21)", FocusName());
}

TEST_F(DeskMenuTest, HomeInTheFacilityBoxMovesInItsText) {
  Start();
  Key(Qt::Key_PageDown);
  Facility().setFocus();
  Facility().lineEdit()->setCursorPosition(2);
  Key(Qt::Key_Home);
  EXPECT_EQ(0, Facility().lineEdit()->cursorPosition());
  EXPECT_EQ("April 2014", Title());
}

TEST_F(DeskMenuTest, ControlGGoesToADate) {
  Start();
  dialogs_.TypeNext("2/1/2015");
  Control(Qt::Key_G);
  EXPECT_EQ("February 2015", Title());
  EXPECT_EQ("lstDay(1)", FocusName());
}

TEST_F(DeskMenuTest, ControlWithADigitPicksAFacility) {
  Start();
  Control(Qt::Key_1);
  const std::string first = Label("lblRoom").text().toStdString();
  Control(Qt::Key_2);
  const std::string second = Label("lblRoom").text().toStdString();
  EXPECT_EQ((std::set<std::string>{"Hall", "Pool"}), (std::set<std::string>{first, second}));
  EXPECT_EQ(second, Facility().currentText().toStdString());
  Control(Qt::Key_3);
  EXPECT_EQ(second, Label("lblRoom").text().toStdString());
}

TEST_F(DeskMenuTest, ARightClickOnTheBackgroundOpensTheMenu) {
  Start();
  RightClick(Label("lblMonth"));
  ASSERT_TRUE(IsMenuOpen());
  EXPECT_EQ(
      "Today [Ctrl+T]\nGo to Date... [Ctrl+G]\nFind... [Ctrl+F]\nFree Time... "
      "[Ctrl+Shift+F]\nDay Board [Ctrl+B]\nUndo... [Ctrl+Z]\nPrint Month... [Ctrl+P]\n"
      "Print Week... [Ctrl+Shift+P]\nFacility []\n",
      Entries(Menu()));
  EXPECT_EQ("Pool [Ctrl+1]\nHall [Ctrl+2]\n", Entries(Find<QMenu>("mnuFacility")));
  Menu().close();
}

TEST_F(DeskMenuTest, ARightClickOnADayOrAButtonOpensNoMenu) {
  Start();
  RightClick(Find<QPushButton>("Command1"));
  RightClick(Facility());
  QCoreApplication::processEvents();
  EXPECT_FALSE(Menu().isVisible());
  QCoreApplication::processEvents();
  for (QWidget* popup = QApplication::activePopupWidget(); popup != nullptr;
       popup = QApplication::activePopupWidget()) {
    popup->close();
  }
  RightPressDay(21);
  EXPECT_FALSE(Menu().isVisible());
}

TEST_F(DeskMenuTest, TheMenuKeyOpensTheMenuFromAButtonAndTheViewerFromADay) {
  Start();
  Find<QPushButton>("Command3").setFocus();
  Key(Qt::Key_Menu);
  EXPECT_TRUE(Menu().isVisible());
  Menu().close();
  Key(Qt::Key_F10, Qt::ShiftModifier);
  EXPECT_TRUE(Menu().isVisible());
  Menu().close();
  List(21).setFocus();
  Key(Qt::Key_Menu);
  EXPECT_FALSE(Menu().isVisible());
  EXPECT_NE(nullptr, Window("frmDayViewer"));
}

TEST_F(DeskMenuTest, AnEntryDoesWhatItsKeyDoes) {
  Start();
  Key(Qt::Key_PageDown);
  Find<QAction>("mnuToday").trigger();
  EXPECT_EQ("March 2014", Title());
}

TEST_F(DeskMenuTest, ARightClickBringsTheControlsBackAfterAPrint) {
  Start();
  Find<QPushButton>("Command1").hide();
  RightClick(Label("lblRoom"));
  EXPECT_TRUE(Find<QPushButton>("Command1").isVisible());
  Menu().close();
}

TEST_F(DeskMenuTest, TheNameOfAFacilityIsShownAsItStandsAndCut) {
  data_.AddRoom("B & B");
  data_.AddRoom("C" + std::string(2000, 'x'));
  Start();
  EXPECT_EQ("B && B", Find<QAction>("mnuFacility(3)").text().toStdString());
  EXPECT_LT(Find<QMenu>("mnuFacility").sizeHint().width(), 600);
}

TEST_F(DeskMenuTest, WithoutFacilitiesTheMenuHasNoPlaceForThem) {
  data_.Calendar();
  Start();
  dialogs_.AnswerNext(Answer::Yes);
  dialogs_.AnswerNext(Answer::Yes);
  Find<QPushButton>("Command4").click();
  Find<QPushButton>("Command4").click();
  EXPECT_EQ(
      "Today [Ctrl+T]\nGo to Date... [Ctrl+G]\nFind... [Ctrl+F]\nFree Time... "
      "[Ctrl+Shift+F]\nDay Board [Ctrl+B]\nUndo... [Ctrl+Z]\nPrint Month... [Ctrl+P]\n"
      "Print Week... [Ctrl+Shift+P]\n",
      Entries(Menu()));
}

TEST_F(DeskMenuTest, WhileAnotherWindowIsWaitedForTheKeysDoNothing) {
  Start();
  Key(Qt::Key_PageDown);
  Month()->setEnabled(false);
  QTest::keyClick(Month(), Qt::Key_T, Qt::ControlModifier);
  EXPECT_EQ("April 2014", Title());
  Month()->setEnabled(true);
}

}  // namespace
}  // namespace veyra
