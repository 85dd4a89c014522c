#include "help/qt_help_window.h"

#include <QAction>
#include <QKeySequence>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStackedWidget>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QToolBar>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <utility>

#include "forms/widgets/qt_text.h"
#include "help/qt_help_page.h"

namespace veyra {
namespace {

constexpr int kPageRole = Qt::UserRole;
constexpr QSize kWindowSize{1040, 740};
constexpr double kShareOfScreen = 0.9;  ///< The desktop draws a frame around it.
constexpr int kSideWidth = 250;
constexpr int kResultSpacing = 3;
constexpr int kRoomForAccents = 4;

/// Leaves room for the accents of capitals, which stand higher than the rest of a font.
class RoomyLines : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, kRoomForAccents);
  }
};

QString PageOf(const QTreeWidgetItem& item) {
  return item.data(0, kPageRole).toString();
}

QString WithoutAnchor(const QString& reference) {
  return reference.section('#', 0, 0);
}

void Name(QWidget* widget, const char* object_name, const Phrase& accessible_name) {
  widget->setObjectName(object_name);
  widget->setAccessibleName(ToQString(accessible_name));
}

}  // namespace

QtHelpWindow::QtHelpWindow(Browser browser)
    : page_(new QtHelpPage(this)),
      search_box_(new QLineEdit(this)),
      contents_(new QTreeWidget(this)),
      results_(new QListWidget(this)),
      side_(new QStackedWidget(this)) {
  setAttribute(Qt::WA_QuitOnClose, false);
  setObjectName("helpWindow");
  Name(page_, "helpPage", Phrase::Tr("Help page"));
  resize(kWindowSize.boundedTo(screen()->availableSize() * kShareOfScreen));

  auto* splitter = new QSplitter(this);
  splitter->addWidget(MakeSide());
  splitter->addWidget(page_);
  splitter->setSizes({kSideWidth, width() - kSideWidth});
  splitter->setStretchFactor(1, 1);
  setCentralWidget(splitter);
  addToolBar(MakeToolBar());
  AddShortcuts();

  connect(page_, &QtHelpPage::OutsideLinkClicked, this, std::move(browser));
  connect(page_, &QTextBrowser::historyChanged, this, &QtHelpWindow::FollowShownPage);
}

QToolBar* QtHelpWindow::MakeToolBar() {
  auto* bar = new QToolBar(this);
  bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  bar->setMovable(false);
  bar->setContextMenuPolicy(Qt::PreventContextMenu);
  const auto add = [&](QStyle::StandardPixmap icon, const Phrase& text, const char* name) {
    QAction* action = bar->addAction(style()->standardIcon(icon), ToQString(text));
    Name(bar->widgetForAction(action), name, text);
    return action;
  };
  QAction* back = add(QStyle::SP_ArrowBack, Phrase::Tr("Back"), "helpBack");
  QAction* forward = add(QStyle::SP_ArrowForward, Phrase::Tr("Forward"), "helpForward");
  back->setShortcut(QKeySequence::Back);
  forward->setShortcut(QKeySequence::Forward);
  back->setEnabled(false);
  forward->setEnabled(false);
  connect(back, &QAction::triggered, page_, &QTextBrowser::backward);
  connect(forward, &QAction::triggered, page_, &QTextBrowser::forward);
  connect(page_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
  connect(page_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
  return bar;
}

QWidget* QtHelpWindow::MakeSide() {
  Name(search_box_, "helpSearch", Phrase::Tr("Search the help"));
  Name(contents_, "helpContents", Phrase::Tr("Contents"));
  Name(results_, "helpResults", Phrase::Tr("Search results"));
  search_box_->setPlaceholderText(ToQString(Phrase::Tr("Search the help")));
  search_box_->setClearButtonEnabled(true);
  contents_->setHeaderHidden(true);
  contents_->setItemDelegate(new RoomyLines(contents_));
  results_->setItemDelegate(new RoomyLines(results_));
  results_->setWordWrap(true);
  results_->setAlternatingRowColors(true);
  results_->setSpacing(kResultSpacing);
  side_->addWidget(contents_);
  side_->addWidget(results_);

  auto* panel = new QWidget(this);
  auto* layout = new QVBoxLayout(panel);
  layout->setContentsMargins(4, 4, 0, 4);
  layout->addWidget(search_box_);
  layout->addWidget(side_, 1);

  connect(search_box_, &QLineEdit::textChanged, this, &QtHelpWindow::Search);
  connect(results_, &QListWidget::currentRowChanged, this, &QtHelpWindow::ShowFoundPage);
  connect(contents_, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* item) {
    if (item != nullptr && !PageOf(*item).isEmpty()) {
      ShowPage(PageOf(*item).toStdString());
    }
  });
  return panel;
}

void QtHelpWindow::AddShortcuts() {
  connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
  connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
    search_box_->setFocus(Qt::ShortcutFocusReason);
    search_box_->selectAll();
  });
  connect(search_box_, &QLineEdit::returnPressed, this, [this] { results_->setCurrentRow(0); });
}

void QtHelpWindow::ShowFile(std::shared_ptr<const ChmArchive> archive) {
  archive_ = std::move(archive);
  search_.reset();
  const QString title = QString::fromStdString(archive_->Title());
  setWindowTitle(title.isEmpty() ? ToQString(Phrase::Tr("Help")) : title);
  page_->SetArchive(archive_);
  search_box_->clear();
  search_box_->setEnabled(true);
  FillContents();
}

void QtHelpWindow::FillContents() {
  const QSignalBlocker quiet(contents_);
  contents_->clear();
  std::array<QTreeWidgetItem*, kDeepestLevel + 2> parents{contents_->invisibleRootItem()};
  std::size_t deepest_parent = 0;
  for (const ContentsEntry& entry : archive_->Contents()) {
    const std::size_t level =
        std::min<std::size_t>(static_cast<std::size_t>(std::max(entry.Level, 0)), deepest_parent);
    auto* item = new QTreeWidgetItem(parents[level], {QString::fromStdString(entry.Title)});
    item->setData(0, kPageRole, QString::fromStdString(PlainReference(entry.Page)));
    item->setToolTip(0, PlainToolTip(item->text(0)));
    parents[level + 1] = item;
    deepest_parent = level + 1;
  }
  contents_->expandAll();
}

void QtHelpWindow::ShowPage(const std::string& reference) {
  page_->ShowPage(reference);
}

/// Makes the line of the page shown the current one of the contents.
void QtHelpWindow::FollowShownPage() {
  const QString shown = QString::fromStdString(page_->ShownPage());
  QTreeWidgetItem* line = nullptr;
  for (QTreeWidgetItemIterator item(contents_); *item != nullptr; ++item) {
    const QString page = PageOf(**item);
    const bool same = page.compare(shown, Qt::CaseInsensitive) == 0;
    if (same || (line == nullptr && page.compare(WithoutAnchor(shown), Qt::CaseInsensitive) == 0)) {
      line = *item;
    }
    if (same) {
      break;
    }
  }
  const QSignalBlocker quiet(contents_);
  contents_->setCurrentItem(line);
}

QStringList QtHelpWindow::SearchedWords() const {
  return search_box_->text().simplified().split(' ', Qt::SkipEmptyParts);
}

void QtHelpWindow::Search(const QString& words) {
  side_->setCurrentWidget(SearchedWords().isEmpty() ? static_cast<QWidget*>(contents_) : results_);
  const QSignalBlocker quiet(results_);
  results_->clear();
  page_->setExtraSelections({});
  if (!archive_ || SearchedWords().isEmpty()) {
    return;
  }
  if (!search_) {
    search_.emplace(*archive_);
  }
  for (const FoundTopic& topic : search_->Find(words.toStdString())) {
    auto* item =
        new QListWidgetItem(QString::fromStdString(topic.Title + "\n" + topic.Excerpt), results_);
    item->setData(kPageRole, QString::fromStdString(topic.Page));
  }
  if (results_->count() > 0) {
    return;
  }
  auto* nothing = new QListWidgetItem(ToQString(Phrase::Tr("No page has these words.")), results_);
  nothing->setFlags(Qt::ItemIsEnabled);
}

void QtHelpWindow::ShowFoundPage(int row) {
  const QListWidgetItem* item = results_->item(row);
  if (item == nullptr || item->data(kPageRole).toString().isEmpty()) {
    return;
  }
  ShowPage(item->data(kPageRole).toString().toStdString());
  page_->MarkWords(SearchedWords());
}

void QtHelpWindow::ShowFailure(const Phrase& text) {
  archive_.reset();
  search_.reset();
  setWindowTitle(ToQString(Phrase::Tr("Help")));
  contents_->clear();
  search_box_->clear();
  search_box_->setEnabled(false);
  page_->SetArchive(nullptr);
  page_->setPlainText(ToQString(text));
}

void QtHelpWindow::BringUp() {
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
}

}  // namespace veyra
