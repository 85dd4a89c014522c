#include <QAbstractButton>
#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <map>

#include "tests/qt/program_fixture.h"

namespace veyra {
namespace {

class AltKeysTest : public ProgramFixture {
 protected:
  /// The captions of a window's buttons, menus and labels by their Alt keys; "?" for those without.
  static std::map<std::string, std::vector<std::string>> CaptionsByKey(QWidget* window) {
    std::map<std::string, std::vector<std::string>> captions;
    const auto add = [&captions](const QString& caption) {
      const auto mark = caption.indexOf(QLatin1Char('&'));
      const QString key = mark < 0 ? QStringLiteral("?") : caption.mid(mark + 1, 1).toUpper();
      captions[key.toStdString()].push_back(Words(caption));
    };
    for (const auto* button : window->findChildren<QAbstractButton*>()) {
      if (!button->text().isEmpty() && qobject_cast<const QToolButton*>(button) == nullptr) {
        add(button->text());
      }
    }
    for (const auto* label : window->findChildren<QLabel*>()) {
      if (label->buddy() != nullptr) {
        add(label->text());
      }
    }
    if (const auto* bar = window->findChild<QMenuBar*>()) {
      for (const QAction* action : bar->actions()) {
        add(action->text());
      }
    }
    return captions;
  }

  static void ExpectOneCaptionToEachKey(QWidget* window) {
    ASSERT_NE(nullptr, window);
    for (const auto& [key, captions] : CaptionsByKey(window)) {
      EXPECT_NE("?", key) << captions.front();
      EXPECT_EQ(1u, captions.size()) << key << ": " << captions.back();
    }
  }

  static std::string Title() { return In<QLabel>(Month(), "lblMonth").text().toStdString(); }

  /// A button is pressed for a moment before it is clicked.
  static void Alt(QWidget* window, Qt::Key key) {
    QTest::keyClick(window->focusWidget(), key, Qt::AltModifier);
  }
};

TEST_F(AltKeysTest, EachCaptionOfEachWindowHasOneOfItsOwn) {
  StartAndOpenDay();
  ExpectOneCaptionToEachKey(Day());
  In<QRadioButton>(Day(), "Book(1)").click();
  ExpectOneCaptionToEachKey(Window("frmMultiDay"));
  Window("frmMultiDay")->close();
  Day()->close();
  ExpectOneCaptionToEachKey(Month());
  In<QAction>(Month(), "mnuSettings").trigger();
  ExpectOneCaptionToEachKey(Window("frmSettings"));
  Window("frmSettings")->close();
  In<QAction>(Month(), "mnuAbout").trigger();
  ExpectOneCaptionToEachKey(Window("frmAbout"));
}

TEST_F(AltKeysTest, TheyWorkInTheMonthWindow) {
  Start();
  Alt(Month(), Qt::Key_N);
  EXPECT_TRUE(QTest::qWaitFor([] { return Title() == "April 2014"; }));
  Alt(Month(), Qt::Key_P);
  EXPECT_TRUE(QTest::qWaitFor([] { return Title() == "March 2014"; }));
  Alt(Month(), Qt::Key_F);
  EXPECT_TRUE(Names(Month()).hasFocus());
  dialogs_.AnswerNext(Answer::No);
  Alt(Month(), Qt::Key_D);
  EXPECT_TRUE(QTest::qWaitFor([this] { return dialogs_.Boxes().size() == 1; }));
}

TEST_F(AltKeysTest, TheyWorkInTheDayWindow) {
  StartAndOpenDay();
  Grid().setFocus();
  Alt(Day(), Qt::Key_G);
  EXPECT_TRUE(Names(Day()).hasFocus());
  Alt(Day(), Qt::Key_M);
  ASSERT_TRUE(QTest::qWaitFor([] { return Window("frmMultiDay") != nullptr; }));
  QWidget* plan = Window("frmMultiDay");
  ASSERT_TRUE(IsInUse(plan));
  Alt(plan, Qt::Key_U);
  EXPECT_TRUE(QTest::qWaitFor([plan] { return In<QCheckBox>(plan, "Days(3)").isChecked(); }));
  Alt(plan, Qt::Key_T);
  EXPECT_TRUE(In<QLineEdit>(plan, "Text1(1)").hasFocus());
  Alt(plan, Qt::Key_C);
  ASSERT_TRUE(IsInUse(Day()));
  Alt(Day(), Qt::Key_C);
  EXPECT_TRUE(QTest::qWaitFor([] { return Day() == nullptr; }));
}

}  // namespace
}  // namespace veyra
