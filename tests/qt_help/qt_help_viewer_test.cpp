#include "help/qt_help_viewer.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QTextBrowser>
#include <QTreeWidget>
#include <random>

#include "help/qt_help_page.h"
#include "tests/help/help_samples.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

/// A program folder with or without a help file.
class QtHelpViewerTest : public testing::Test {
 protected:
  QtHelpViewerTest() {
    std::filesystem::create_symlink(kReader, folder_.File("veyra-help-reader"));
  }

  void InstallHelp(const std::string& bytes) { folder_.Write("VeyraCalendar.chm", bytes); }

  static QtHelpWindow* Window() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (auto* window = qobject_cast<QtHelpWindow*>(widget); window && window->isVisible()) {
        return window;
      }
    }
    return nullptr;
  }

  /// The first line of the page that is seen; "none" without a help window.
  static std::string Heading() {
    if (Window() == nullptr) {
      return "none";
    }
    const auto* page = Window()->findChild<QtHelpPage*>("helpPage");
    return page->toPlainText().section('\n', 0, 0).toStdString();
  }

  TempFolder folder_;
  const std::string good_ = FileBytes(kHelpFileName);
  QtHelpViewer viewer_{folder_.path() / "VeyraCalendar.chm",
                       folder_.path() / QtHelpViewer::kReaderName, [](const QUrl&) {}};
};

TEST_F(QtHelpViewerTest, EachTopicOpensItsPage) {
  InstallHelp(good_);
  viewer_.ShowTopic(kHelpContents);
  EXPECT_EQ("Veyra Calendar Help", Heading());
  viewer_.ShowTopic(kHelpOverview);
  EXPECT_EQ("Overview", Heading());
  viewer_.ShowTopic(kHelpCalendar);
  EXPECT_EQ("The month window", Heading());
  viewer_.ShowTopic(kHelpDayViewer);
  EXPECT_EQ("The day viewer", Heading());
}

TEST_F(QtHelpViewerTest, TheGermanHelpOpensAtTheSameTopicsWithItsUmlauts) {
  InstallHelp(FileBytes(kHelpFolder / "VeyraCalendar_de.chm"));
  viewer_.ShowTopic(kHelpContents);
  EXPECT_EQ("Hilfe zu Veyra Calendar", Heading());
  EXPECT_EQ("Hilfe zu Veyra Calendar", Window()->windowTitle().toStdString());
  viewer_.ShowTopic(kHelpOverview);
  EXPECT_EQ("Überblick", Heading());
  const auto* contents = Window()->findChild<QTreeWidget*>("helpContents");
  EXPECT_EQ("Überblick", contents->currentItem()->text(0).toStdString());
  viewer_.ShowTopic(kHelpCalendar);
  EXPECT_EQ("Das Monatsfenster", Heading());
  viewer_.ShowTopic(kHelpDayViewer);
  EXPECT_EQ("Die Tagesansicht", Heading());
}

TEST_F(QtHelpViewerTest, TheGermanHelpIsSearchedWithUmlauts) {
  InstallHelp(FileBytes(kHelpFolder / "VeyraCalendar_de.chm"));
  viewer_.ShowTopic(kHelpContents);
  Window()->findChild<QLineEdit*>("helpSearch")->setText(QStringLiteral("TAGESÜBERSICHT"));
  const auto* results = Window()->findChild<QListWidget*>("helpResults");
  EXPECT_EQ("Die Tagesübersicht", results->item(0)->text().section('\n', 0, 0).toStdString());
}

TEST_F(QtHelpViewerTest, ATopicThatIsNotMappedOpensTheFirstPage) {
  InstallHelp(good_);
  viewer_.ShowTopic(kHelpFile);
  EXPECT_EQ("Veyra Calendar Help", Heading());
}

TEST_F(QtHelpViewerTest, WithoutAHelpFileNothingHappens) {
  viewer_.ShowTopic(kHelpContents);
  EXPECT_EQ("none", Heading());
}

TEST_F(QtHelpViewerTest, AHelpFileThatWentAwayLeavesTheWindowAsItIs) {
  InstallHelp(good_);
  viewer_.ShowTopic(kHelpOverview);
  std::filesystem::remove(folder_.File("VeyraCalendar.chm"));
  viewer_.ShowTopic(kHelpCalendar);
  EXPECT_EQ("Overview", Heading());
}

TEST_F(QtHelpViewerTest, ADamagedHelpFileIsReportedInTheWindow) {
  InstallHelp(good_.substr(0, good_.size() / 2));
  viewer_.ShowTopic(kHelpContents);
  EXPECT_EQ("The help file cannot be read.", Heading());
}

TEST_F(QtHelpViewerTest, DamagedPagesAreShownAsFarAsTheyGo) {
  std::mt19937 random(20140406);
  for (int i = 0; i < 60; ++i) {
    std::string damaged = good_;
    for (int k = 0; k < 4; ++k) {
      damaged[random() % damaged.size()] = static_cast<char>(random());
    }
    InstallHelp(damaged + std::string(static_cast<std::size_t>(i), ' '));
    viewer_.ShowTopic(kHelpOverview);
    QCoreApplication::processEvents();
    EXPECT_NE("none", Heading());
  }
}

TEST_F(QtHelpViewerTest, AHelpFileThatWasReplacedIsReadAnew) {
  InstallHelp("damaged");
  viewer_.ShowTopic(kHelpOverview);
  InstallHelp(good_);
  viewer_.ShowTopic(kHelpOverview);
  EXPECT_EQ("Overview", Heading());
}

TEST_F(QtHelpViewerTest, AClosedWindowIsShownAgain) {
  InstallHelp(good_);
  viewer_.ShowTopic(kHelpOverview);
  Window()->close();
  viewer_.ShowTopic(kHelpCalendar);
  EXPECT_EQ("The month window", Heading());
}

TEST_F(QtHelpViewerTest, ThereIsOneHelpWindow) {
  InstallHelp(good_);
  viewer_.ShowTopic(kHelpOverview);
  const QtHelpWindow* first = Window();
  viewer_.ShowTopic(kHelpCalendar);
  EXPECT_EQ(first, Window());
}

}  // namespace
}  // namespace veyra
