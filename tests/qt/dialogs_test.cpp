#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <functional>

#include "forms/widgets/qt_dialogs.h"
#include "forms/widgets/qt_painted_text.h"

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

QLabel& Text(const QMessageBox& box) {
  return *box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
}

/// Whether all that the label says is in sight, be it in several lines.
bool IsWhole(const QLabel& label) {
  return label.wordWrap() ? label.height() >= label.heightForWidth(label.width())
                          : label.width() >= label.fontMetrics().horizontalAdvance(label.text());
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
    testing::Values(
        KeyCase{"EnterOk", Qt::Key_Return, Buttons::Ok, Answer::Ok},
        KeyCase{"EnterOkCancel", Qt::Key_Return, Buttons::OkCancel, Answer::Ok},
        KeyCase{"EnterYesNo", Qt::Key_Return, Buttons::YesNo, Answer::Yes},
        KeyCase{"EscapeOk", Qt::Key_Escape, Buttons::Ok, Answer::Ok},
        KeyCase{"EscapeOkCancel", Qt::Key_Escape, Buttons::OkCancel, Answer::Cancel},
        KeyCase{"EscapeYesNo", Qt::Key_Escape, Buttons::YesNo, Answer::No},
        KeyCase{"EnterThreeWays", Qt::Key_Return, Buttons::ContinueUndoKeep, Answer::Continue},
        KeyCase{"EscapeThreeWays", Qt::Key_Escape, Buttons::ContinueUndoKeep, Answer::Keep}),
    [](const auto& test_case) { return std::string(test_case.param.Name); });

TEST(MsgBox, ItsCloseBoxAnswersNo) {
  WhenShown<QMessageBox>([](QMessageBox& box) { box.close(); });
  EXPECT_EQ(Answer::No, QtDialogs().MsgBox({.Text = "Well?", .Choice = Buttons::YesNo}));
}

TEST(MsgBox, AButtonAnswers) {
  WhenShown<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::No)->click(); });
  EXPECT_EQ(Answer::No, QtDialogs().MsgBox({.Text = "Well?", .Choice = Buttons::YesNo}));
}

TEST(MsgBox, EnterAnswersTheDefaultButton) {
  WhenShown<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
  EXPECT_EQ(Answer::No,
            QtDialogs().MsgBox({.Text = "Well?", .Choice = Buttons::YesNo, .Default = Answer::No}));
}

TEST(MsgBox, OffersThreeWaysInTheirOrder) {
  WhenShown<QMessageBox>([](QMessageBox& box) {
    std::string captions;
    for (QAbstractButton* button : box.buttons()) {
      captions += button->text().toStdString() + " ";
    }
    EXPECT_EQ("&Continue &Undo &Keep ", captions);
    box.buttons().at(1)->click();
  });
  EXPECT_EQ(Answer::Undo,
            QtDialogs().MsgBox({.Text = "Well?", .Choice = Buttons::ContinueUndoKeep}));
}

TEST(MsgBox, ShowsItsDetailsSmallerBelowItsText) {
  WhenShown<QMessageBox>([](QMessageBox& box) {
    const QLabel& text = Text(box);
    const QLabel& details = *box.findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel"));
    EXPECT_EQ("Delete?", text.text().toStdString());
    EXPECT_EQ("Main Hall\n3/14/2026", details.text().toStdString());
    EXPECT_LT(details.font().pointSizeF(), text.font().pointSizeF());
    EXPECT_GE(details.y(), text.geometry().bottom());
    EXPECT_GE(details.height(), 2 * details.fontMetrics().height());
    box.accept();
  });
  QtDialogs().MsgBox({.Text = "Delete?", .Details = "Main Hall\r\n3/14/2026"});
}

TEST(MsgBox, ShowsItsDetailsToTheLetter) {
  WhenShown<QMessageBox>([](QMessageBox& box) {
    const QLabel& details = *box.findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel"));
    EXPECT_EQ(Qt::PlainText, details.textFormat());
    EXPECT_GE(details.width(), details.fontMetrics().horizontalAdvance(details.text()));
    box.accept();
  });
  QtDialogs().MsgBox({.Text = "Delete?", .Details = "<b>Pool</b>, Sunday 4/6/2014"});
}

TEST(MsgBox, BreaksNoLineOfItsDetailsThatFits) {
  WhenShown<QMessageBox>([](QMessageBox& box) {
    const QLabel& details = *box.findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel"));
    const int text_width = details.fontMetrics().horizontalAdvance(details.text());
    EXPECT_GE(details.width(), text_width);
    EXPECT_LT(text_width, box.width());
    box.accept();
  });
  QtDialogs().MsgBox(
      {.Text = "Stopped.", .Details = "Continue books the other dates, as a part of the group."});
}

TEST(MsgBox, IsWideEnoughForItsTextWhateverItsTitleAndDetails) {
  const std::string text = "Do You wand to Delete this Booking for Liam Fairbrother?";
  for (const char* details : {"", "Main Hall", "Main Hall, Wednesday 11/18/2026, 10:00A-12:00P"}) {
    WhenShown<QMessageBox>([](QMessageBox& box) {
      EXPECT_TRUE(IsWhole(Text(box)));
      box.accept();
    });
    QtDialogs().MsgBox({.Text = text, .Sign = Icon::Critical, .Details = details});
  }
}

TEST(MsgBox, IsWideEnoughForItsTitleWhateverItSays) {
  WhenShown<QMessageBox>([](QMessageBox& box) {
    constexpr int kIconAndButtonsOfTitleBar = 90;
    EXPECT_GE(box.width(),
              box.fontMetrics().horizontalAdvance(box.windowTitle()) + kIconAndButtonsOfTitleBar);
    box.accept();
  });
  QtDialogs().MsgBox({.Text = "Done."});
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

std::string ManyLines() {
  std::string text;
  for (int i = 0; i < 400; ++i) {
    text += "There is a clash on 3/" + std::to_string(i) + "\n";
  }
  return text;
}

std::string ManyWords() {
  std::string text;
  for (int i = 0; i < 3000; ++i) {
    text += "word ";
  }
  return text;
}

struct LongText {
  const char* Name;
  std::string Text;
  std::string Details = {};
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
  QtDialogs().MsgBox({.Text = GetParam().Text, .Details = GetParam().Details});
}

TEST_P(MsgBoxLongTexts, StayToTheLetterForAssistivePrograms) {
  WhenShown<QMessageBox>([](QMessageBox& box) {
    const QString name = QAccessible::queryAccessibleInterface(&Text(box))->text(QAccessible::Name);
    EXPECT_EQ(GetParam().Text, name.toStdString());
    box.accept();
  });
  QtDialogs().MsgBox({.Text = GetParam().Text});
}

/// Whether the whole of the widget is to be seen.
bool IsInSight(const QWidget& widget) {
  return widget.visibleRegion().boundingRect() == widget.rect();
}

TEST(MsgBox, OfALongListTheFirstAndTheLastLineStayInSight) {
  WhenShown<QMessageBox>([](QMessageBox& box) {
    const QList<QtPaintedText*> parts = Text(box).findChildren<QtPaintedText*>();
    EXPECT_EQ(3, parts.size());
    std::string in_sight;
    for (const QtPaintedText* part : parts) {
      in_sight += IsInSight(*part) ? part->Text().toStdString() + " " : "";
    }
    EXPECT_EQ("First Last ", in_sight);
    box.accept();
  });
  QtDialogs().MsgBox({.Text = "First\n" + ManyLines() + "Last"});
}

TEST(MsgBox, PageDownScrollsALongList) {
  WhenShown<QMessageBox>([](QMessageBox& box) {
    const auto* area = Text(box).findChild<QScrollArea*>();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&box));
    QTest::keyClick(&box, Qt::Key_PageDown);
    EXPECT_GT(area->verticalScrollBar()->value(), 0);
    box.accept();
  });
  QtDialogs().MsgBox({.Text = "First\n" + ManyLines() + "Last"});
}

TEST(MsgBox, AWordLongerThanALineIsWhollyInSight) {
  WhenShown<QMessageBox>([](QMessageBox& box) {
    const QList<QtPaintedText*> parts = Text(box).findChildren<QtPaintedText*>();
    EXPECT_EQ(1, parts.size());
    for (const QtPaintedText* part : parts) {
      EXPECT_TRUE(IsInSight(*part));
      EXPECT_GT(part->height(), 2 * part->fontMetrics().height());
    }
    box.accept();
  });
  QtDialogs().MsgBox({.Text = "Delete " + std::string(150, 'W') + "?"});
}

INSTANTIATE_TEST_SUITE_P(All, MsgBoxLongTexts,
                         testing::Values(LongText{"Word", std::string(10000, 'x')},
                                         LongText{"Lines", ManyLines()},
                                         LongText{"Words", ManyWords()},
                                         LongText{"Details", "Well?", ManyLines()},
                                         LongText{"Both", ManyLines(), ManyLines()}),
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

TEST(InputBox, ANameThatIsNotChangedComesBackToTheLetter) {
  for (const std::string name : {"two\r\nlines", "a\tb", " blank ", "\u202Eloop"}) {
    WhenShown<QInputDialog>([](QInputDialog& box) { QTest::keyClick(&box, Qt::Key_Return); });
    EXPECT_EQ(name, QtDialogs().InputBox("Enter a Name", "Booking Name", name));
  }
}

TEST(InputBox, IsEmptyWhenCancelled) {
  WhenShown<QInputDialog>([](QInputDialog& box) { QTest::keyClick(&box, Qt::Key_Escape); });
  EXPECT_EQ("", QtDialogs().InputBox("Enter a Name", "Booking Name", "old"));
}

TEST(ProgressBox, AShortActionPassesUnseen) {
  const auto progress = QtDialogs().StartProgress("Counting", EarlyEnd::Cancel);
  EXPECT_TRUE(progress->Report(1, 2));
  EXPECT_TRUE(progress->Report(2, 2));
  EXPECT_EQ(nullptr, QApplication::activeModalWidget());
}

}  // namespace
}  // namespace veyra
