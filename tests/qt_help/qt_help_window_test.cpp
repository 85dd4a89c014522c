#include "help/qt_help_window.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QBuffer>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QToolButton>
#include <QTreeWidget>
#include <memory>

#include "help/qt_help_page.h"

namespace veyra {
namespace {

constexpr const char* kContents =
    "<UL><LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"One\">"
    "<param name=\"Local\" value=\"one.htm\"></OBJECT>"
    "<UL><LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"Two\">"
    "<param name=\"Local\" value=\"sub\\two.htm\"></OBJECT></UL></UL>";

std::string RedPicture(int width, int height) {
  QImage image(width, height, QImage::Format_RGB32);
  image.fill(Qt::red);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "PNG");
  return bytes.toStdString();
}

std::shared_ptr<const ChmArchive> SampleFile() {
  return std::make_shared<const ChmArchive>(std::vector<HelpObject>{
      {"/toc.hhc", kContents},
      {"/one.htm",
       "<h1>Page one</h1><a href=\"sub/two.htm\">two</a> <a href=\"https://example.org/\">web</a> "
       "<a href=\"file:///etc/passwd\">disk</a> <a href=\"mk:@MSITStore:x.chm::/sub/two.htm\">"
       "its</a>"},
      {"/sub/two.htm",
       "<h1>Page two</h1><p><img src=\"../pictures\\red.png\"> word word <a "
       "href=\"..\\one.htm\">back</a>"},
      {"/pictures/red.png", RedPicture(40, 30)},
      {"/wide.htm", "<p><img src=\"pictures/wide.png\"></p>"},
      {"/pictures/wide.png", RedPicture(3000, 1000)},
      {"/latin.htm",
       "<meta http-equiv=content-type content=\"text/html; charset=windows-1252\">"
       "caf\xE9 \x80"},
      {"/thief.htm", "<img src=\"file:///etc/hostname\"><img src=\"/etc/hostname\">"},
  });
}

/// A help window showing a file of a few pages.
class QtHelpWindowTest : public testing::Test {
 protected:
  QtHelpWindowTest() {
    window_.ShowFile(SampleFile());
    window_.ShowPage("one.htm");
    window_.BringUp();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
  }

  template <typename Widget>
  Widget* Child(const char* name) {
    return window_.findChild<Widget*>(name);
  }
  QtHelpPage* Page() { return Child<QtHelpPage>("helpPage"); }
  QString Text() { return Page()->toPlainText().section('\n', 0, 0); }

  /// Clicks the link whose text that is.
  void ClickLink(const QString& text) {
    QTextCursor link = Page()->document()->find(text);
    ASSERT_FALSE(link.isNull()) << text.toStdString();
    Page()->setTextCursor(link);
    link.setPosition(link.selectionStart() + 1);
    const QPoint place = Page()->cursorRect(link).center();
    QTest::mouseClick(Page()->viewport(), Qt::LeftButton, {}, place);
  }

  void ClickContents(const QString& title) {
    auto* tree = Child<QTreeWidget>("helpContents");
    const auto items = tree->findItems(title, Qt::MatchExactly | Qt::MatchRecursive);
    ASSERT_EQ(1, items.size());
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                      tree->visualItemRect(items[0]).center());
  }

  QString CurrentContentsLine() {
    const QTreeWidgetItem* item = Child<QTreeWidget>("helpContents")->currentItem();
    return item != nullptr ? item->text(0) : QString();
  }

  /// What the result list holds, the title of each page.
  QStringList Results() {
    QStringList titles;
    auto* list = Child<QListWidget>("helpResults");
    for (int row = 0; row < list->count(); ++row) {
      titles << list->item(row)->text().section('\n', 0, 0);
    }
    return titles;
  }

  std::vector<QUrl> opened_;
  QtHelpWindow window_{[this](const QUrl& url) { opened_.push_back(url); }};
};

TEST_F(QtHelpWindowTest, LinksAreReadOnTheWhiteSheetWhateverTheDesktopsColor) {
  const QPalette before = QApplication::palette();
  QPalette dark = before;
  dark.setColor(QPalette::Link, QColor(160, 160, 255));
  QApplication::setPalette(dark);
  window_.ShowPage("sub/two.htm");
  const QTextCursor link = Page()->document()->find(QStringLiteral("back"));
  QApplication::setPalette(before);
  ASSERT_TRUE(link.charFormat().isAnchor());
  EXPECT_LT(link.charFormat().foreground().color().lightness(), 128);
}

TEST_F(QtHelpWindowTest, LeavesRoomOnTheScreenForTheFrameAroundIt) {
  constexpr int kFrame = 40;
  const QSize screen = window_.screen()->availableSize();
  EXPECT_LE(window_.width() + kFrame, screen.width());
  EXPECT_LE(window_.height() + kFrame, screen.height());
}

TEST_F(QtHelpWindowTest, ShowsThePageAskedFor) {
  EXPECT_EQ("Page one", Text());
}

TEST_F(QtHelpWindowTest, ALinkLeadsToItsPage) {
  ClickLink("two");
  EXPECT_EQ("Page two", Text());
}

TEST_F(QtHelpWindowTest, ALinkUpAFolderLeadsToItsPage) {
  window_.ShowPage("sub/two.htm");
  ClickLink("back");
  EXPECT_EQ("Page one", Text());
}

TEST_F(QtHelpWindowTest, ALinkInTheOldFormLeadsToItsPage) {
  ClickLink("its");
  EXPECT_EQ("Page two", Text());
}

TEST_F(QtHelpWindowTest, AWebLinkOpensInTheBrowser) {
  ClickLink("web");
  ASSERT_EQ(1U, opened_.size());
  EXPECT_EQ(QUrl("https://example.org/"), opened_[0]);
  EXPECT_EQ("Page one", Text());
}

TEST_F(QtHelpWindowTest, ALinkToTheDiskDoesNothing) {
  ClickLink("disk");
  EXPECT_TRUE(opened_.empty());
  EXPECT_EQ("Page one", Text());
}

TEST_F(QtHelpWindowTest, PicturesAreShown) {
  window_.ShowPage("sub/two.htm");
  QTextCursor picture = Page()->document()->find(QString(QChar::ObjectReplacementCharacter));
  picture.setPosition(picture.selectionStart());
  const QPoint place = Page()->cursorRect(picture).topLeft() + QPoint(10, 5);
  EXPECT_EQ("#ff0000", QColor(Page()->viewport()->grab().toImage().pixel(place)).name());
}

TEST_F(QtHelpWindowTest, APictureWiderThanThePageIsMadeToFit) {
  window_.ShowPage("wide.htm");
  EXPECT_NEAR(Page()->viewport()->width(), Page()->document()->idealWidth(), 2);
  EXPECT_FALSE(Page()->horizontalScrollBar()->isVisible());
}

TEST_F(QtHelpWindowTest, AFittedPictureFollowsTheWindowsWidth) {
  window_.ShowPage("wide.htm");
  for (const int width : {500, 800}) {
    window_.resize(width, window_.height());
    EXPECT_NEAR(Page()->viewport()->width(), Page()->document()->idealWidth(), 2) << width;
    EXPECT_EQ(0, Page()->horizontalScrollBar()->maximum()) << width;
  }
}

TEST_F(QtHelpWindowTest, NothingIsReadFromTheDisk) {
  window_.ShowPage("thief.htm");
  EXPECT_FALSE(
      Page()->loadResource(QTextDocument::ImageResource, QUrl("file:///etc/hostname")).isValid());
}

TEST_F(QtHelpWindowTest, APageInAnotherCodePageIsReadable) {
  window_.ShowPage("latin.htm");
  EXPECT_EQ(QString::fromUtf8("café €"), Text());
}

TEST_F(QtHelpWindowTest, AMissingPageSaysSo) {
  window_.ShowPage("gone<b>.htm");
  EXPECT_EQ("This page is not in the help file: gone<b>.htm", Text());
}

TEST_F(QtHelpWindowTest, BackAndForwardFollowThePagesSeen) {
  ClickLink("two");
  QTest::mouseClick(Child<QToolButton>("helpBack"), Qt::LeftButton);
  EXPECT_EQ("Page one", Text());
  QTest::mouseClick(Child<QToolButton>("helpForward"), Qt::LeftButton);
  EXPECT_EQ("Page two", Text());
}

TEST_F(QtHelpWindowTest, BackIsOfferedOnlyWhenThereIsAWayBack) {
  EXPECT_FALSE(Child<QToolButton>("helpBack")->isEnabled());
  ClickLink("two");
  EXPECT_TRUE(Child<QToolButton>("helpBack")->isEnabled());
  EXPECT_FALSE(Child<QToolButton>("helpForward")->isEnabled());
}

TEST_F(QtHelpWindowTest, ALineOfTheContentsLeadsToItsPage) {
  ClickContents("Two");
  EXPECT_EQ("Page two", Text());
}

TEST_F(QtHelpWindowTest, TheTipOverALineOfTheContentsIsItsTitleToTheLetter) {
  window_.ShowFile(std::make_shared<const ChmArchive>(std::vector<HelpObject>{
      {"/toc.hhc",
       "<UL><LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"&lt;b&gt;Rooms "
       "&amp;amp; halls&lt;/b&gt;\"><param name=\"Local\" value=\"one.htm\"></OBJECT></UL>"},
      {"/one.htm", "<h1>Page one</h1>"},
  }));
  const QTreeWidgetItem& line = *window_.findChild<QTreeWidget*>("helpContents")->topLevelItem(0);
  EXPECT_EQ("<b>Rooms &amp; halls</b>", line.text(0).toStdString());
  EXPECT_TRUE(Qt::mightBeRichText(line.toolTip(0)));
  EXPECT_EQ(line.text(0), QTextDocumentFragment::fromHtml(line.toolTip(0)).toPlainText());
}

TEST_F(QtHelpWindowTest, TheContentsFollowThePageShown) {
  EXPECT_EQ("One", CurrentContentsLine());
  ClickLink("two");
  EXPECT_EQ("Two", CurrentContentsLine());
  QTest::mouseClick(Child<QToolButton>("helpBack"), Qt::LeftButton);
  EXPECT_EQ("One", CurrentContentsLine());
}

TEST_F(QtHelpWindowTest, APageOutsideTheContentsIsNoLineOfThem) {
  window_.ShowPage("latin.htm");
  EXPECT_EQ("", CurrentContentsLine());
}

TEST_F(QtHelpWindowTest, SearchingListsThePagesInPlaceOfTheContents) {
  QTest::keyClicks(Child<QLineEdit>("helpSearch"), "WORD");
  EXPECT_EQ(QStringList{"sub/two.htm"}, Results());
  EXPECT_TRUE(Child<QListWidget>("helpResults")->isVisible());
  EXPECT_FALSE(Child<QTreeWidget>("helpContents")->isVisible());
}

TEST_F(QtHelpWindowTest, AFoundPageIsShownWithTheWordsMarked) {
  QTest::keyClicks(Child<QLineEdit>("helpSearch"), "word");
  auto* list = Child<QListWidget>("helpResults");
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                    list->visualItemRect(list->item(0)).center());
  EXPECT_EQ("Page two", Text());
  EXPECT_EQ(2, Page()->extraSelections().size());
}

TEST_F(QtHelpWindowTest, EnterShowsTheFirstFoundPage) {
  QTest::keyClicks(Child<QLineEdit>("helpSearch"), "word\r");
  EXPECT_EQ("Page two", Text());
}

TEST_F(QtHelpWindowTest, AWordThatNoPageHasIsReported) {
  QTest::keyClicks(Child<QLineEdit>("helpSearch"), "xyzzy\r");
  EXPECT_EQ(QStringList{"No page has these words."}, Results());
  EXPECT_EQ("Page one", Text());
}

TEST_F(QtHelpWindowTest, AnEmptySearchBoxBringsTheContentsBack) {
  QTest::keyClicks(Child<QLineEdit>("helpSearch"), "word");
  Child<QLineEdit>("helpSearch")->clear();
  EXPECT_TRUE(Child<QTreeWidget>("helpContents")->isVisible());
}

TEST_F(QtHelpWindowTest, EscapeClosesIt) {
  QTest::keyClick(Page(), Qt::Key_Escape);
  EXPECT_FALSE(window_.isVisible());
}

TEST_F(QtHelpWindowTest, ClosingItDoesNotEndTheProgram) {
  const QSignalSpy last_closed(qApp, &QApplication::lastWindowClosed);
  window_.close();
  QCoreApplication::processEvents();
  EXPECT_EQ(0, last_closed.count());
}

TEST_F(QtHelpWindowTest, ADisabledWindowBesideItDoesNotDisableIt) {
  QPushButton other("other");
  other.show();
  other.setEnabled(false);
  ClickContents("Two");
  EXPECT_EQ("Page two", Text());
  EXPECT_FALSE(window_.isModal());
}

TEST_F(QtHelpWindowTest, EveryPartHasANameForAssistants) {
  for (const char* name :
       {"helpPage", "helpContents", "helpSearch", "helpResults", "helpBack", "helpForward"}) {
    const auto* part = Child<QWidget>(name);
    ASSERT_NE(nullptr, part) << name;
    EXPECT_NE("", part->accessibleName().toStdString()) << name;
  }
}

TEST_F(QtHelpWindowTest, APageOfTheSameNameInAnotherFileIsShown) {
  window_.ShowFile(std::make_shared<const ChmArchive>(
      std::vector<HelpObject>{{"/one.htm", "<h1>Another one</h1>"}}));
  window_.ShowPage("one.htm");
  EXPECT_EQ("Another one", Text());
  EXPECT_FALSE(Child<QToolButton>("helpBack")->isEnabled());
}

TEST_F(QtHelpWindowTest, AFailureStandsInPlaceOfAnyPage) {
  window_.ShowFailure("The help file cannot be read.");
  EXPECT_EQ("The help file cannot be read.", Text());
  EXPECT_EQ(0, Child<QTreeWidget>("helpContents")->topLevelItemCount());
  EXPECT_FALSE(Child<QToolButton>("helpBack")->isEnabled());
}

TEST_F(QtHelpWindowTest, AfterAFailureAnotherFileIsShown) {
  window_.ShowFailure("The help file cannot be read.");
  window_.ShowFile(SampleFile());
  window_.ShowPage("one.htm");
  EXPECT_EQ("Page one", Text());
  EXPECT_TRUE(Child<QLineEdit>("helpSearch")->isEnabled());
}

}  // namespace
}  // namespace veyra
