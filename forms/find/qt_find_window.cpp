#include "forms/find/qt_find_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

#include "forms/widgets/qt_list_keys.h"
#include "forms/widgets/qt_text.h"
#include "forms/widgets/qt_whole_rows.h"

namespace veyra {
namespace {

constexpr int kMargin = 10;
constexpr int kDividerIndent = 4;
constexpr QSize kComfortableSize(640, 460);
constexpr double kShareOfScreen = 0.85;

/// Which line of frmFind an item stands for.
constexpr int kLineRole = Qt::UserRole;

}  // namespace

QtFindWindow::QtFindWindow(const HandlerGuard& guard) : guard_(guard) {
  setObjectName(QStringLiteral("frmFind"));
  setWindowTitle(ToQString(Phrase::Tr("Find a Booking")));
  BuildContents();
  auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
  connect(escape, &QShortcut::activated, this, &QWidget::close);
  resize(kComfortableSize.boundedTo(screen()->availableSize() * kShareOfScreen));
}

void QtFindWindow::BuildContents() {
  auto* contents = new QWidget(this);
  auto* label = new QLabel(ToQString(Phrase::Tr("&Name")), contents);
  Text1_ = new QLineEdit(contents);
  Text1_->setObjectName(QStringLiteral("Text1"));
  Text1_->setAccessibleName(ToQString(Phrase::Tr("Name")));
  Text1_->setClearButtonEnabled(true);
  label->setBuddy(Text1_);
  List1_ = new QListWidget(contents);
  List1_->setObjectName(QStringLiteral("List1"));
  List1_->setAccessibleName(ToQString(Phrase::Tr("Bookings")));
  // Else every line would be measured at every key.
  List1_->setUniformItemSizes(true);
  List1_->setTextElideMode(Qt::ElideRight);
  List1_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  auto* keys = new QtListKeys(
      *List1_, [this] { ReportChosen(); }, this);
  keys->Watch(*Text1_);
  keys->Watch(*List1_);
  lblState_ = new QLabel(contents);
  lblState_->setObjectName(QStringLiteral("lblState"));
  lblState_->setTextFormat(Qt::PlainText);
  auto* column = new QVBoxLayout(contents);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->addWidget(label);
  column->addWidget(Text1_);
  column->addWidget(new QtWholeRows(List1_, [this] { return List1_->sizeHintForRow(0); }), 1);
  column->addWidget(lblState_);
  setCentralWidget(contents);
  Text1_->setFocus();
  connect(Text1_, &QLineEdit::textChanged, this, [this](const QString& text) {
    guard_.Run([&] { handler_->Text1_Change(ToUtf8(text)); });
  });
  connect(List1_, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
    if (item->flags().testFlag(Qt::ItemIsEnabled)) {
      ReportChosen();
    }
  });
}

void QtFindWindow::ShowFound(const FindPicture& picture) {
  const QString chosen = ChosenLine(*List1_);
  List1_->clear();
  AddLines(picture.Upcoming, 0);
  if (!picture.Past.empty()) {
    AddDivider();
  }
  AddLines(picture.Past, static_cast<int>(picture.Upcoming.size()));
  ChooseLine(*List1_, chosen, picture.Upcoming.empty() && !picture.Past.empty() ? 1 : 0);
  lblState_->setText(ToQString(picture.State));
}

void QtFindWindow::AddLines(const std::vector<Phrase>& lines, int first) {
  for (const Phrase& phrase : lines) {
    const QString line = ToQString(phrase);
    auto* item = new QListWidgetItem(OneLine(line), List1_);
    item->setToolTip(PlainToolTip(line));
    item->setData(kLineRole, first++);
  }
}

void QtFindWindow::AddDivider() {
  auto* item = new QListWidgetItem(List1_);
  item->setFlags(Qt::NoItemFlags);
  item->setData(Qt::AccessibleTextRole, ToQString(Phrase::Tr("Past")));
  auto* divider = new QWidget;
  auto* line = new QFrame(divider);
  line->setFrameShape(QFrame::HLine);
  line->setFrameShadow(QFrame::Sunken);
  auto* row = new QHBoxLayout(divider);
  row->setContentsMargins(kDividerIndent, 0, kDividerIndent, 0);
  row->addWidget(new QLabel(ToQString(Phrase::Tr("Past")), divider));
  row->addWidget(line, 1);
  List1_->setItemWidget(item, divider);
}

void QtFindWindow::KeepWorking(bool working) {
  work_.KeepWorking(working);
}

void QtFindWindow::CloseWindow() {
  close();
}

void QtFindWindow::ReportChosen() {
  const QListWidgetItem* item = List1_->currentItem();
  if (item != nullptr && item->flags().testFlag(Qt::ItemIsEnabled)) {
    const auto line = static_cast<std::size_t>(item->data(kLineRole).toInt());
    guard_.Run([&] { handler_->List1_Chosen(line); });
  }
}

void QtFindWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  guard_.Run([this] { handler_->Form_Unload(); });
}

}  // namespace veyra
