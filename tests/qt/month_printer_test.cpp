#include <gtest/gtest.h>

#include <QAbstractPrintDialog>
#include <QCheckBox>
#include <QFile>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <functional>
#include <memory>

#include "forms/print/qt_sheet_printer.h"
#include "tests/qt/printed_page.h"
#include "tests/qt/shown_month.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

/// The program's own printer over a computer without printers: the dialog offers the PDF file.
class MonthPrinterTest : public testing::Test {
 protected:
  MonthPrinterTest()
      : month_([](QtMonthWindow& window) {
          return std::make_unique<QtSheetPrinter>([&window] { return &window; });
        }) {
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

  /// Prints to the file after `change` was done to the box "Print background".
  void PrintWith(const std::function<void(QCheckBox&)>& change) {
    PrintAnd([&](QDialog& dialog) {
      change(*dialog.findChild<QCheckBox*>(QLatin1String(QtSheetPrinter::kBackgroundBox)));
      dialog.findChild<QLineEdit*>(QStringLiteral("filename"))->setText(File());
      dialog.accept();
    });
    Click("lblMonth");
  }

  void Darken() {
    month_.SetColors({"5242880", "16777215", "16777215", "65535", "8388608"});
    month_.Show();
  }

  /// The colour of the page between two cells, in the middle of it.
  QRgb Paper() const {
    const QImage page = PrintedPage(File()).Picture(50);
    return page.pixel(page.width() / 4, page.height() / 5);
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

TEST_F(MonthPrinterTest, ThePageHasEveryLineOfAFullDay) {
  month_.Book(6, 23, "of a name that no cell of the window could show");
  month_.Show();
  PrintToFile(File());
  const QString text = PrintedPage(File()).FlowingText().simplified();
  for (int number = 1; number <= 23; ++number) {
    const QString name =
        QStringLiteral(" 06-%1 of a name that no cell of the window could show").arg(number);
    EXPECT_EQ(1, text.count(name)) << number;
  }
}

TEST_F(MonthPrinterTest, ThePageLiesOnItsSideWhateverTheShapeOfTheWindow) {
  month_.Show(700, 1200);
  PrintToFile(File());
  const std::string size = PrintedPage(File()).Info("Page size").toStdString();
  EXPECT_TRUE(size.starts_with("842 x 595") || size.starts_with("792 x 612")) << size;
}

TEST_F(MonthPrinterTest, ALightBackgroundIsPrinted) {
  month_.SetColors({"16763904", "0", "0", "255", "16777215"});
  month_.Show();
  PrintWith([](QCheckBox& box) { EXPECT_TRUE(box.isChecked()); });
  EXPECT_EQ(qRgb(0, 204, 255), Paper());
}

TEST_F(MonthPrinterTest, ADarkBackgroundIsLeftOut) {
  Darken();
  PrintWith([](QCheckBox& box) { EXPECT_FALSE(box.isChecked()); });
  EXPECT_EQ(qRgb(255, 255, 255), Paper());
}

TEST_F(MonthPrinterTest, ADarkBackgroundIsPrintedWhenTheBoxIsTicked) {
  Darken();
  PrintWith([](QCheckBox& box) { QTest::keyClick(&box, Qt::Key_Space); });
  EXPECT_EQ(qRgb(0, 0, 80), Paper());
}

TEST_F(MonthPrinterTest, TheBoxStaysAsItWasLeft) {
  Darken();
  PrintWith([](QCheckBox& box) { box.setChecked(true); });
  PrintWith([](QCheckBox& box) { EXPECT_TRUE(box.isChecked()); });
  EXPECT_EQ(qRgb(0, 0, 80), Paper());
}

TEST_F(MonthPrinterTest, ATickOnALightMonthIsNoneOnADarkOne) {
  PrintWith([](QCheckBox& box) { EXPECT_TRUE(box.isChecked()); });
  Darken();
  PrintWith([](QCheckBox& box) { EXPECT_FALSE(box.isChecked()); });
}

TEST_F(MonthPrinterTest, TheBoxIsSeenAndReachedByKeyboard) {
  PrintAnd([](QDialog& dialog) {
    auto* box = dialog.findChild<QCheckBox*>(QLatin1String(QtSheetPrinter::kBackgroundBox));
    EXPECT_TRUE(box->isVisible());
    EXPECT_LE(0, dialog.layout()->indexOf(box));
    bool reached = false;
    for (int press = 0; press < 40 && !reached; ++press) {
      QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
      reached = dialog.focusWidget() == box;
    }
    EXPECT_TRUE(reached);
    dialog.reject();
  });
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
  EXPECT_EQ(1, std::count(names.begin(), names.end(), QtSheetPrinter::kPdfFile));
}

}  // namespace
}  // namespace veyra
