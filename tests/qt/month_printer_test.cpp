#include <gtest/gtest.h>

#include <QAbstractPrintDialog>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <functional>
#include <memory>

#include "forms/month/print/qt_month_printer.h"
#include "tests/qt/printed_page.h"
#include "tests/qt/shown_month.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

/// The program's own printer over a computer without printers: the dialog offers the PDF file.
class MonthPrinterTest : public testing::Test {
 protected:
  MonthPrinterTest()
      : month_([](QtMonthWindow& window) { return std::make_unique<QtMonthPrinter>(window); }) {
    month_.Book(5, 3);
    month_.Show();
  }

  /// Clicks "Print" and does this with the dialog when it has opened.
  void PrintAnd(const std::function<void(QDialog&)>& answer) {
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
      if (auto* dialog = qobject_cast<QAbstractPrintDialog*>(QApplication::activeModalWidget())) {
        timer.stop();
        answer(*dialog);
      }
    });
    timer.start(1);
    Click("Command3");
  }

  void PrintToFile(const QString& file_name) {
    PrintAnd([&](QDialog& dialog) {
      dialog.findChild<QLineEdit*>(QStringLiteral("filename"))->setText(file_name);
      dialog.accept();
    });
  }

  void Cancel() {
    PrintAnd([](QDialog& dialog) { dialog.reject(); });
  }

  QWidget* Control(const char* name) {
    return month_.Window.findChild<QWidget*>(QLatin1String(name));
  }

  void Click(const char* control) { QTest::mouseClick(Control(control), Qt::LeftButton); }

  /// Combo1 and Command1 to Command4 that are to be seen.
  int ControlsInSight() {
    const auto names = {"Combo1", "Command1", "Command2", "Command3", "Command4"};
    return static_cast<int>(std::count_if(names.begin(), names.end(), [this](const char* name) {
      return Control(name)->isVisible();
    }));
  }

  QString File() const { return QString::fromStdString(folder_.File("month.pdf").string()); }

  TempFolder folder_;
  ShownMonth month_;
};

TEST_F(MonthPrinterTest, WritesThePageIntoTheChosenFile) {
  PrintToFile(File());
  EXPECT_EQ(1, PrintedPage(File()).Text().count("05-3"));
}

TEST_F(MonthPrinterTest, SaysThatThePageIsPrinted) {
  PrintToFile(File());
  EXPECT_EQ("[OK Information] Print Complete, Click on Form to get Controls back.",
            month_.Dialogs.OnlyBox());
}

TEST_F(MonthPrinterTest, HidesTheControls) {
  PrintToFile(File());
  EXPECT_EQ(0, ControlsInSight());
}

TEST_F(MonthPrinterTest, HidingTheControlsMovesNoDay) {
  const QRect before = Control("lstDay(20)")->geometry();
  PrintToFile(File());
  QApplication::processEvents();
  EXPECT_EQ(before, Control("lstDay(20)")->geometry());
}

TEST_F(MonthPrinterTest, GivesThePageItsName) {
  PrintToFile(File());
  EXPECT_EQ("March 2014 Office of Fire", PrintedPage(File()).Info("Title").toStdString());
}

TEST_F(MonthPrinterTest, TheDialogSuggestsTheFolderOfTheLastFile) {
  PrintToFile(File());
  Click("lblMonth");
  QString suggested;
  PrintAnd([&](QDialog& dialog) {
    suggested = dialog.findChild<QLineEdit*>(QStringLiteral("filename"))->text();
    dialog.reject();
  });
  EXPECT_EQ(folder_.File("March 2014 Office of Fire.pdf").string(), suggested.toStdString());
}

TEST_F(MonthPrinterTest, TheDialogSuggestsTheMonthAtFirst) {
  QString suggested;
  PrintAnd([&](QDialog& dialog) {
    suggested = dialog.findChild<QLineEdit*>(QStringLiteral("filename"))->text();
    dialog.reject();
  });
  EXPECT_TRUE(suggested.endsWith("/March 2014 Office of Fire.pdf")) << suggested.toStdString();
}

TEST_F(MonthPrinterTest, CancellingIsSaid) {
  Cancel();
  EXPECT_EQ("[OK Exclamation] Calendar Printing Canceled", month_.Dialogs.OnlyBox());
}

TEST_F(MonthPrinterTest, CancellingKeepsTheControls) {
  Cancel();
  EXPECT_EQ(5, ControlsInSight());
}

TEST_F(MonthPrinterTest, AFileThatCannotBeWrittenIsReported) {
  PrintToFile(QString::fromStdString(folder_.File("no/such.pdf").string()));
  EXPECT_EQ(0U,
            month_.Dialogs.OnlyBox().find("[OK Critical] " + folder_.File("no/such.pdf").string()));
}

TEST_F(MonthPrinterTest, AfterAFailureAClickBringsTheControlsBack) {
  PrintToFile(QString::fromStdString(folder_.File("no/such.pdf").string()));
  Click("lblMonth");
  EXPECT_EQ(5, ControlsInSight());
}

class ClickTest : public MonthPrinterTest, public testing::WithParamInterface<const char*> {};

TEST_P(ClickTest, BringsTheControlsBack) {
  PrintToFile(File());
  Click(GetParam());
  EXPECT_EQ(5, ControlsInSight());
}

INSTANTIATE_TEST_SUITE_P(Places, ClickTest,
                         testing::Values("lblMonth", "lblRoom", "Label2(0)", "Label2(6)", "Label1"),
                         [](const auto& test) {
                           std::string name = test.param;
                           name.erase(std::remove_if(name.begin(), name.end(), ispunct),
                                      name.end());
                           return name;
                         });

TEST_F(MonthPrinterTest, AClickOnTheBackgroundBringsTheControlsBack) {
  PrintToFile(File());
  QTest::mouseClick(month_.Window.centralWidget(), Qt::LeftButton, {}, QPoint(2, 2));
  EXPECT_EQ(5, ControlsInSight());
}

TEST_F(MonthPrinterTest, AClickWhereNoDayIsBringsTheControlsBack) {
  PrintToFile(File());
  const QPoint place = Control("lstDay(7)")->mapTo(&month_.Window, QPoint(-200, 20));
  QTest::mouseClick(month_.Window.windowHandle(), Qt::LeftButton, {}, place);
  EXPECT_EQ(5, ControlsInSight());
}

TEST_F(MonthPrinterTest, AClickOnADayLeavesTheControlsAway) {
  PrintToFile(File());
  auto* list = month_.Window.findChild<QListWidget*>(QStringLiteral("lstDay(20)"));
  QTest::mouseClick(list->viewport(), Qt::LeftButton);
  EXPECT_EQ(0, ControlsInSight());
}

TEST_F(MonthPrinterTest, ThePdfFileIsAmongThePrinters) {
  const auto names = month_.Printer().PrinterNames();
  EXPECT_EQ(1, std::count(names.begin(), names.end(), QtMonthPrinter::kPdfFile));
}

}  // namespace
}  // namespace veyra
