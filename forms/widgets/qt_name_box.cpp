#include "forms/widgets/qt_name_box.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QScopedValueRollback>
#include <QStringListModel>
#include <QWheelEvent>
#include <algorithm>
#include <iterator>
#include <utility>

#include "forms/widgets/qt_hint.h"
#include "forms/widgets/qt_match_list.h"
#include "forms/widgets/qt_text.h"

namespace veyra {
namespace {

constexpr int kMostNamesSeen = 16;
constexpr std::size_t kMostMatches = 8;

/// Whether the focus only pauses: the window is left, or a menu or the list has opened.
bool IsPause(Qt::FocusReason reason) {
  return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
         reason == Qt::MenuBarFocusReason || QApplication::activePopupWidget() != nullptr;
}

}  // namespace

QtNameBox::QtNameBox(QWidget* parent)
    : QComboBox(parent),
      list_(new QStringListModel(this)),
      hint_(new QtHint(*this)),
      match_list_(new QtMatchList(*this)) {
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  setMaxVisibleItems(kMostNamesSeen);
  setModel(list_);
  qobject_cast<QListView*>(view())->setUniformItemSizes(true);
  setEditable(true);
  setInsertPolicy(QComboBox::NoInsert);
  setCompleter(nullptr);
  setFocusPolicy(Qt::StrongFocus);
  // Finishing a text that equals an entry would count as picking the entry.
  disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
  lineEdit()->installEventFilter(this);
  // An assistive program sets the text without an edit.
  connect(lineEdit(), &QLineEdit::textChanged, this, &QtNameBox::ReportText);
  connect(this, &QComboBox::currentIndexChanged, this, [this](int index) { index_ = index; });
  connect(lineEdit(), &QLineEdit::returnPressed, this, &QtNameBox::EnterPressed);
  connect(match_list_, &QtMatchList::NamePicked, this, [this](const std::string& name) {
    ShowText(name);
    emit Picked(name);
  });
  connect(this, &QComboBox::activated, this, [this](int index) {
    match_list_->hide();
    lineEdit()->home(false);
    ShowHint({});
    emit Picked(names_.at(static_cast<std::size_t>(index)));
  });
}

void QtNameBox::SetSpokenName(const QString& name) {
  setAccessibleName(name);
  lineEdit()->setAccessibleName(name);
}

void QtNameBox::ShowNames(const NameBox& box) {
  if (names_ != box.Items) {
    FillList(box.Items);
  }
  matches_.SetNames(box.Items, box.Used);
  ShowText(box.Text);
}

void QtNameBox::ShowText(const std::string& text) {
  const QString shown = OneLine(text);
  const auto listed = std::find(names_.begin(), names_.end(), text);
  const int index = listed == names_.end() ? -1 : static_cast<int>(listed - names_.begin());
  if (shown == lineEdit()->text() && (index == currentIndex() || index < 0)) {
    return;
  }
  const QScopedValueRollback silence(silent_, true);
  ShowHint({});
  match_list_->hide();
  setCurrentIndex(index);
  setEditText(shown);
  lineEdit()->home(false);
}

void QtNameBox::ShowHint(const QString& hint) {
  hint_->ShowText(hint);
  lineEdit()->setAccessibleDescription(hint_->text());
}

void QtNameBox::SelectAllText() {
  SelectKeepingTheBeginningInSight();
  select_after_click_ = focused_by_click_;
}

/// Of a name that is longer than the box the beginning tells more than the end.
void QtNameBox::SelectKeepingTheBeginningInSight() {
  const int length = static_cast<int>(lineEdit()->text().size());
  lineEdit()->setSelection(length, -length);
}

/// A text that comes with another entry was picked, and is reported as that.
void QtNameBox::ReportText(const QString& text) {
  if (!silent_ && currentIndex() == index_) {
    emit Typed(ToUtf8(text));
    OfferMatches(lineEdit()->text());
  }
}

/// Not while something is wrong with the text, which is said in the same place; and not what stands
/// there already.
void QtNameBox::OfferMatches(const QString& text) {
  std::vector<std::string> names;
  if (hasFocus() && hint_->text().isEmpty()) {
    names = matches_.Find(ToUtf8(text), kMostMatches);
  }
  if (names.size() == 1 && OneLine(names.front()) == text) {
    names.clear();
  }
  match_list_->ShowMatches(names);
}

void QtNameBox::keyPressEvent(QKeyEvent* event) {
  if (match_list_->TakesKey(event->key())) {
    event->accept();
  } else {
    QComboBox::keyPressEvent(event);
  }
}

void QtNameBox::hideEvent(QHideEvent* event) {
  QComboBox::hideEvent(event);
  match_list_->hide();
}

void QtNameBox::FillList(const std::vector<std::string>& names) {
  names_ = names;
  QStringList lines;
  lines.reserve(static_cast<qsizetype>(names.size()));
  std::transform(names.begin(), names.end(), std::back_inserter(lines),
                 [](const std::string& name) { return OneLine(name); });
  const QString text = lineEdit()->text();
  const int cursor = lineEdit()->cursorPosition();
  const int selected = static_cast<int>(lineEdit()->selectedText().size());
  const int anchor = lineEdit()->selectionStart() < cursor ? cursor - selected : cursor + selected;
  const QScopedValueRollback silence(silent_, true);
  list_->setStringList(lines);
  setCurrentIndex(-1);
  setEditText(text);
  lineEdit()->setSelection(anchor, cursor - anchor);
}

void QtNameBox::focusInEvent(QFocusEvent* event) {
  QComboBox::focusInEvent(event);
  focused_by_click_ = event->reason() == Qt::MouseFocusReason;
  if (!std::exchange(has_focus_, true)) {
    emit FocusArrived();
  }
}

void QtNameBox::focusOutEvent(QFocusEvent* event) {
  QComboBox::focusOutEvent(event);
  select_after_click_ = false;
  match_list_->hide();
  if (!IsPause(event->reason()) && std::exchange(has_focus_, false)) {
    lineEdit()->home(false);
    emit FocusLeft();
  }
}

/// Turning the wheel over the box picks nothing unless the operator is working in it.
void QtNameBox::wheelEvent(QWheelEvent* event) {
  if (hasFocus()) {
    QComboBox::wheelEvent(event);
  } else {
    event->ignore();
  }
}

/// While nothing was typed, what is to be undone is not in the box. Escape is the list's first.
bool QtNameBox::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && match_list_->isVisible() &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    event->accept();
    return true;
  }
  if (event->type() == QEvent::ShortcutOverride && !lineEdit()->isUndoAvailable() &&
      static_cast<QKeyEvent*>(event)->matches(QKeySequence::Undo)) {
    event->ignore();
    return false;
  }
  return QComboBox::event(event);
}

bool QtNameBox::eventFilter(QObject* watched, QEvent* event) {
  if (watched == lineEdit() && event->type() == QEvent::MouseButtonRelease) {
    focused_by_click_ = false;
    if (std::exchange(select_after_click_, false) && !lineEdit()->hasSelectedText()) {
      SelectKeepingTheBeginningInSight();
    }
  }
  return QComboBox::eventFilter(watched, event);
}

}  // namespace veyra
