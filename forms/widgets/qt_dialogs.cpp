#include "forms/widgets/qt_dialogs.h"

#include <QAbstractButton>
#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QLayout>
#include <QMessageBox>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <algorithm>

#include "forms/widgets/qt_progress.h"
#include "forms/widgets/qt_text.h"

namespace veyra {
namespace {

constexpr qsizetype kLongestWord = 60;
constexpr int kWidestText = 480;

QMessageBox::Icon IconOf(Icon sign) {
  switch (sign) {
    case Icon::Critical:
      return QMessageBox::Critical;
    case Icon::Question:
      return QMessageBox::Question;
    case Icon::Exclamation:
      return QMessageBox::Warning;
    case Icon::Information:
      return QMessageBox::Information;
    case Icon::None:
      break;
  }
  return QMessageBox::NoIcon;
}

/// The button of a box that stands first and answers the Enter key, and the one that closes it.
struct ButtonPair {
  QMessageBox::StandardButton First;
  QMessageBox::StandardButton Escape;
};

ButtonPair ButtonsOf(Buttons choice) {
  switch (choice) {
    case Buttons::OkCancel:
      return {QMessageBox::Ok, QMessageBox::Cancel};
    case Buttons::YesNo:
      return {QMessageBox::Yes, QMessageBox::No};
    case Buttons::Ok:
      break;
  }
  return {QMessageBox::Ok, QMessageBox::Ok};
}

Answer AnswerOf(int button, ButtonPair buttons) {
  switch (button) {
    case QMessageBox::Ok:
      return Answer::Ok;
    case QMessageBox::Cancel:
      return Answer::Cancel;
    case QMessageBox::Yes:
      return Answer::Yes;
    case QMessageBox::No:
      return Answer::No;
    default:
      return AnswerOf(buttons.Escape, buttons);
  }
}

/// A label breaks lines at blanks only: a word that is too long for it gets places to break at.
QString WithBreakableWords(const QString& text) {
  QString broken;
  broken.reserve(text.size());
  qsizetype word_length = 0;
  for (const QChar character : text) {
    word_length = character.isSpace() ? 0 : word_length + 1;
    if (word_length > kLongestWord && !character.isLowSurrogate() && !character.isMark()) {
      broken.append(QChar(0x200B));
      word_length = 1;
    }
    broken.append(character);
  }
  return broken;
}

QString ShownText(const std::string& text) {
  QString shown = ToQString(text);
  shown.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  return WithBreakableWords(shown);
}

QSize ScreenSize(const QWidget& widget) {
  return widget.screen()->availableSize();
}

/// Puts a text that would make the box higher than the screen into a scrolling area.
void KeepOnScreen(QMessageBox& box) {
  auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
  if (label == nullptr || box.layout() == nullptr) {
    return;
  }
  const int width = std::min(kWidestText, ScreenSize(box).width() / 2);
  const int highest = ScreenSize(box).height() / 2;
  label->setWordWrap(true);
  const int height = label->heightForWidth(width);
  if (height <= highest) {
    return;
  }
  auto* area = new QScrollArea(&box);
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->setFixedSize(width + area->verticalScrollBar()->sizeHint().width(), highest);
  delete box.layout()->replaceWidget(label, area);
  area->setWidget(label);
}

}  // namespace

Answer QtDialogs::MsgBox(const Message& message) {
  QMessageBox box(QApplication::activeWindow());
  const ButtonPair buttons = ButtonsOf(message.Choice);
  box.setWindowTitle(ToQString(message.Title));
  box.setIcon(IconOf(message.Sign));
  box.setTextFormat(Qt::PlainText);
  box.setText(ShownText(message.Text));
  box.setStandardButtons(buttons.First | buttons.Escape);
  box.setDefaultButton(buttons.First);
  box.setEscapeButton(buttons.Escape);
  KeepOnScreen(box);
  return AnswerOf(box.exec(), buttons);
}

std::string QtDialogs::InputBox(const std::string& prompt, const std::string& title,
                                const std::string& default_text) {
  QInputDialog box(QApplication::activeWindow());
  box.setInputMode(QInputDialog::TextInput);
  box.setWindowTitle(ToQString(title));
  box.setLabelText(ShownText(prompt));
  box.setTextValue(ToQString(default_text));
  if (auto* label = box.findChild<QLabel*>()) {
    label->setTextFormat(Qt::PlainText);
  }
  return box.exec() == QDialog::Accepted ? ToUtf8(box.textValue()) : std::string();
}

std::unique_ptr<Progress> QtDialogs::StartProgress(const std::string& text, BreakOff break_off) {
  return std::make_unique<QtProgress>(text, break_off);
}

}  // namespace veyra
