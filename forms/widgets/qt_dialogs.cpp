#include "forms/widgets/qt_dialogs.h"

#include <QAbstractButton>
#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <algorithm>
#include <map>
#include <vector>

#include "forms/widgets/qt_long_text.h"
#include "forms/widgets/qt_progress.h"
#include "forms/widgets/qt_text.h"
#include "forms/widgets/qt_window_in_use.h"

namespace veyra {
namespace {

constexpr int kWidestText = 480;
constexpr double kSmallerText = 0.92;

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

/// A button of a box and what it answers. A standard button brings its own caption.
struct Choice {
  Answer Meaning;
  QMessageBox::StandardButton Standard;
  const char* Caption = "";
};

/// The buttons of a box, the last of which is what closing the box answers.
std::vector<Choice> ChoicesOf(Buttons choice) {
  switch (choice) {
    case Buttons::OkCancel:
      return {{Answer::Ok, QMessageBox::Ok}, {Answer::Cancel, QMessageBox::Cancel}};
    case Buttons::YesNo:
      return {{Answer::Yes, QMessageBox::Yes}, {Answer::No, QMessageBox::No}};
    case Buttons::ContinueUndoKeep:
      return {{Answer::Continue, QMessageBox::NoButton, "&Continue"},
              {Answer::Undo, QMessageBox::NoButton, "&Undo"},
              {Answer::Keep, QMessageBox::NoButton, "&Keep"}};
    case Buttons::Ok:
      break;
  }
  return {{Answer::Ok, QMessageBox::Ok}};
}

QPushButton* AddButton(QMessageBox& box, const Choice& choice) {
  return choice.Standard == QMessageBox::NoButton
             ? box.addButton(QLatin1String(choice.Caption), QMessageBox::ActionRole)
             : box.addButton(choice.Standard);
}

QString ShownText(const Phrase& text) {
  QString shown = ToQString(text);
  shown.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  return shown;
}

QLabel* TextOf(QMessageBox& box) {
  return box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
}

QLabel* DetailsOf(QMessageBox& box) {
  return box.findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel"));
}

void MakeSmaller(QLabel& label) {
  QFont font = label.font();
  font.setPointSizeF(font.pointSizeF() * kSmallerText);
  label.setFont(font);
}

int WidestLine(const QLabel& label) {
  int widest = 0;
  for (const QString& line : label.text().split(QLatin1Char('\n'))) {
    widest = std::max(widest, label.fontMetrics().horizontalAdvance(line) + 1);
  }
  return widest;
}

/// Gives the label at least that width; a label that needs more by itself keeps it.
void Widen(QLabel& label, int least) {
  if (std::max(label.minimumWidth(), WidestLine(label)) < least) {
    label.setMinimumWidth(least);
  }
}

/// Keeps the box on the screen whatever its texts: together they take at most two thirds of it.
void LayOutTexts(QMessageBox& box) {
  const QSize screen = box.screen()->availableSize();
  const int width = std::min(kWidestText, screen.width() / 2);
  const int most_text_height = screen.height() / 2;
  QLabel& text = *TextOf(box);
  text.setWordWrap(true);
  QtLongText::Fit(text, width, most_text_height);
  const int title_width = box.fontMetrics().horizontalAdvance(box.windowTitle());
  Widen(text, std::min(2 * title_width, width));
  if (QLabel* details = DetailsOf(box)) {
    details->setTextFormat(Qt::PlainText);
    const int text_height = std::min(text.heightForWidth(width), most_text_height);
    MakeSmaller(*details);
    QtLongText::Fit(*details, width, screen.height() * 2 / 3 - text_height);
    Widen(text, std::min(WidestLine(*details), width));
  }
}

}  // namespace

Answer QtDialogs::MsgBox(const Message& message) {
  QMessageBox box(WindowInUse());
  box.setWindowTitle(ToQString(message.Title));
  box.setIcon(IconOf(message.Sign));
  box.setTextFormat(Qt::PlainText);
  box.setText(ShownText(message.Text));
  box.setInformativeText(ShownText(message.Details));
  const std::vector<Choice> choices = ChoicesOf(message.Choice);
  std::map<QAbstractButton*, Answer> answers;
  for (const Choice& choice : choices) {
    QPushButton* button = AddButton(box, choice);
    answers[button] = choice.Meaning;
    if (choice.Meaning == message.Default.value_or(choices.front().Meaning)) {
      box.setDefaultButton(button);
    }
    if (choice.Meaning == choices.back().Meaning) {
      box.setEscapeButton(button);
    }
  }
  LayOutTexts(box);
  box.exec();
  const auto clicked = answers.find(box.clickedButton());
  return clicked == answers.end() ? choices.back().Meaning : clicked->second;
}

std::string QtDialogs::InputBox(const Phrase& prompt, const Phrase& title,
                                const std::string& default_text) {
  QInputDialog box(WindowInUse());
  box.setInputMode(QInputDialog::TextInput);
  box.setWindowTitle(ToQString(title));
  box.setLabelText(ShownText(prompt));
  box.setTextValue(ToQString(default_text));
  if (auto* label = box.findChild<QLabel*>()) {
    label->setTextFormat(Qt::PlainText);
  }
  return box.exec() == QDialog::Accepted ? ToUtf8(box.textValue()) : std::string();
}

std::unique_ptr<Progress> QtDialogs::StartProgress(const Phrase& text, EarlyEnd early_end) {
  return std::make_unique<QtProgress>(text, early_end);
}

}  // namespace veyra
