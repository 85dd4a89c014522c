#include <QAction>
#include <QFrame>
#include <QLabel>
#include <QPushButton>

#include "forms/about/maker.h"
#include "tests/qt/program_fixture.h"

namespace veyra {
namespace {

const std::string kNoBrowser =
    "[OK Exclamation] There is no web browser on this machine that can open " +
    std::string(kAboutLabels[kLinkLabel]);

class AboutWindowTest : public ProgramFixture {
 protected:
  void Open() {
    Start();
    In<QAction>(Month(), "mnuAbout").trigger();
    ASSERT_NE(nullptr, About());
    ASSERT_TRUE(IsInUse(About()));
  }

  static QWidget* About() { return Window("frmAbout"); }
  static QLabel& Label(int index) {
    return In<QLabel>(About(), QStringLiteral("labAbout(%1)").arg(index));
  }
};

TEST_F(AboutWindowTest, ItsTextsAreTheMakers) {
  Open();
  EXPECT_EQ("Veyra About", About()->windowTitle().toStdString());
  for (std::size_t index = 0; index < kAboutLabels.size(); ++index) {
    EXPECT_EQ(kAboutLabels.at(index), Label(static_cast<int>(index)).text().toStdString());
  }
  EXPECT_EQ("Exit", Words(In<QPushButton>(About(), "Command1").text()));
  EXPECT_EQ("Palatino Linotype", Label(0).font().family().toStdString());
  EXPECT_EQ("MS Sans Serif", Label(5).font().family().toStdString());
}

TEST_F(AboutWindowTest, AnEmptyLineIsLeftOut) {
  Open();
  for (int index = 0; index < static_cast<int>(kAboutLabels.size()); ++index) {
    const bool is_empty = Label(index).text().isEmpty();
    EXPECT_NE(is_empty, Label(index).isVisible()) << index;
  }
}

TEST_F(AboutWindowTest, ItHasItsPictureInItsFrame) {
  Open();
  EXPECT_TRUE(In<QFrame>(About(), "Frame1").isAncestorOf(&In<QWidget>(About(), "Picture2")));
}

TEST_F(AboutWindowTest, TheLinkLooksLikeOne) {
  Open();
  EXPECT_TRUE(Label(4).font().underline());
  EXPECT_EQ(QPalette::Link, Label(4).foregroundRole());
  EXPECT_EQ(Qt::PointingHandCursor, Label(4).cursor().shape());
}

// There is no browser on the offscreen platform.
TEST_F(AboutWindowTest, AClickOnTheLinkTellsThatThereIsNoBrowser) {
  Open();
  QTest::mouseClick(&Label(4), Qt::LeftButton);
  EXPECT_EQ(kNoBrowser, dialogs_.OnlyBox());
}

TEST_F(AboutWindowTest, TheLinkIsReachedByKeyboard) {
  Open();
  for (int presses = 0; presses < 3 && !Label(4).hasFocus(); ++presses) {
    QTest::keyClick(About()->focusWidget(), Qt::Key_Tab);
  }
  ASSERT_TRUE(Label(4).hasFocus());
  QTest::keyClick(&Label(4), Qt::Key_Return);
  EXPECT_EQ(kNoBrowser, dialogs_.OnlyBox());
}

TEST_F(AboutWindowTest, AClickOnAnyOtherLabelDoesNothing) {
  Open();
  for (const int index : {0, 1, 2, 3, 5}) {
    QTest::mouseClick(&Label(index), Qt::LeftButton);
  }
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(AboutWindowTest, ARightClickOnTheLinkDoesNothing) {
  Open();
  QTest::mouseClick(&Label(4), Qt::RightButton);
  EXPECT_TRUE(dialogs_.Boxes().empty());
}

TEST_F(AboutWindowTest, ExitClosesIt) {
  Open();
  In<QPushButton>(About(), "Command1").click();
  EXPECT_EQ(nullptr, About());
  EXPECT_TRUE(Month()->isEnabled());
}

}  // namespace
}  // namespace veyra
