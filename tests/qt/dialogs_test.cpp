#include <gtest/gtest.h>

#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <functional>

#include "forms/widgets/qt_dialogs.h"

namespace veyra {
namespace {

/// Does this to the box as soon as it is there.
template <typename Box>
void WhenShown(const std::function<void(Box&)>& act) {
  auto* timer = new QTimer(qApp);
  QObject::connect(timer, &QTimer::timeout, timer, [timer, act] {
    if (auto* box = qobject_cast<Box*>(QApplication::activeModalWidget())) {
      timer->deleteLater();
      act(*box);
    }
  });
  timer->start(1);
}

Answer AnswerToKey(Qt::Key key, Buttons choice) {
  WhenShown<QMessageBox>([key](QMessageBox& box) { QTest::keyClick(&box, key); });
  return QtDialogs().MsgBox({.Text = "Well?", .Choice = choice});
}

struct KeyCase {
  const char* Name;
  Qt::Key Key;
  Buttons Choice;
  Answer Expected;
};

class MsgBoxKeys : public testing::TestWithParam<KeyCase> {};

TEST_P(MsgBoxKeys, Answer) {
  EXPECT_EQ(GetParam().Expected, AnswerToKey(GetParam().Key, GetParam().Choice));
}

INSTANTIATE_TEST_SUITE_P(
    All, MsgBoxKeys,
    testing::Values(KeyCase{"EnterOk", Qt::Key_Return, Buttons::Ok, Answer::Ok},
                    KeyCase{"EnterOkCancel", Qt::Key_Return, Buttons::OkCancel, Answer::Ok},
                    KeyCase{"EnterYesNo", Qt::Key_Return, Buttons::YesNo, Answer::Yes},
                    KeyCase{"EscapeOk", Qt::Key_Escape, Buttons::Ok, Answer::Ok},
                    KeyCase{"EscapeOkCancel", Qt::Key_Escape, Buttons::OkCancel, Answer::Cancel},
                    KeyCase{"EscapeYesNo", Qt::Key_Escape, Buttons::YesNo, Answer::No}),
    [](const auto& test_case) { return std::string(test_case.param.Name); });

TEST(MsgBox, ItsCloseBoxAnswersNo) {
  WhenShown<QMessageBox>([](QMessageBox& box) { box.close(); });
  EXPECT_EQ(Answer::No, QtDialogs().MsgBox({.Text = "Well?", .Choice = Buttons::YesNo}));
}

TEST(MsgBox, AButtonAnswers) {
  WhenShown<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::No)->click(); });
  EXPECT_EQ(Answer::No, QtDialogs().MsgBox({.Text = "Well?", .Choice = Buttons::YesNo}));
}

TEST(MsgBox, ShowsTitleIconAndPlainTextWithItsLineBreaks) {
  WhenShown<QMessageBox>([](QMessageBox& box) {
    EXPECT_EQ("Veyra Calendar", box.windowTitle().toStdString());
    EXPECT_EQ(QMessageBox::Question, box.icon());
    EXPECT_EQ(Qt::PlainText, box.textFormat());
    EXPECT_EQ("<b>a</b>\nb", box.text().toStdString());
    box.accept();
  });
  QtDialogs().MsgBox({.Text = "<b>a</b>\r\nb", .Sign = Icon::Question});
}

struct LongText {
  const char* Name;
  std::string Text;
};

class MsgBoxLongTexts : public testing::TestWithParam<LongText> {};

TEST_P(MsgBoxLongTexts, StayOnTheScreen) {
  WhenShown<QMessageBox>([](QMessageBox& box) {
    const QSize screen = box.screen()->availableSize();
    EXPECT_LE(box.width(), screen.width());
    EXPECT_LE(box.height(), screen.height());
    const QRect button = box.button(QMessageBox::Ok)->geometry();
    EXPECT_TRUE(box.rect().contains(button));
    box.accept();
  });
  QtDialogs().MsgBox({.Text = GetParam().Text});
}

std::string ManyLines() {
  std::string text;
  for (int i = 0; i < 400; ++i) text += "There is a clash on 3/" + std::to_string(i) + "\r\n";
  return text;
}

std::string ManyWords() {
  std::string text;
  for (int i = 0; i < 3000; ++i) text += "word ";
  return text;
}

INSTANTIATE_TEST_SUITE_P(All, MsgBoxLongTexts,
                         testing::Values(LongText{"Word", std::string(10000, 'x')},
                                         LongText{"Lines", ManyLines()},
                                         LongText{"Words", ManyWords()}),
                         [](const auto& test_case) { return std::string(test_case.param.Name); });

TEST(InputBox, GivesTheTextThatWasTypedOverTheDefault) {
  WhenShown<QInputDialog>([](QInputDialog& box) {
    EXPECT_EQ("Booking Name", box.windowTitle().toStdString());
    EXPECT_EQ("Enter a Name", box.labelText().toStdString());
    EXPECT_EQ("old", box.textValue().toStdString());
    QTest::keyClicks(box.focusWidget(), QStringLiteral("new"));
    QTest::keyClick(&box, Qt::Key_Return);
  });
  EXPECT_EQ("new", QtDialogs().InputBox("Enter a Name", "Booking Name", "old"));
}

TEST(InputBox, IsEmptyWhenCancelled) {
  WhenShown<QInputDialog>([](QInputDialog& box) { QTest::keyClick(&box, Qt::Key_Escape); });
  EXPECT_EQ("", QtDialogs().InputBox("Enter a Name", "Booking Name", "old"));
}

TEST(ProgressBox, AShortActionPassesUnseen) {
  const auto progress = QtDialogs().StartProgress("Counting", BreakOff::Allowed);
  EXPECT_TRUE(progress->Report(1, 2));
  EXPECT_TRUE(progress->Report(2, 2));
  EXPECT_EQ(nullptr, QApplication::activeModalWidget());
}

}  // namespace
}  // namespace veyra
