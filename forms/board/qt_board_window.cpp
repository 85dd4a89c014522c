#include "forms/board/qt_board_window.h"

#include <QCloseEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "data/shown_name.h"
#include "forms/widgets/qt_colors.h"
#include "forms/widgets/qt_help_item.h"
#include "forms/widgets/qt_placed_items.h"
#include "forms/widgets/qt_text.h"
#include "forms/widgets/qt_whole_rows.h"
#include "forms/widgets/qt_window_place.h"
#include "logic/slots.h"

namespace veyra {
namespace {

constexpr int kRows = modRes::kLastSlot;
constexpr int kFirstRowSeen = 11;  ///< 5:00 AM, as in the day window.
constexpr int kMargin = 8;
constexpr int kRowPadding = 5;
constexpr int kLeastWidth = 120;
constexpr QSize kComfortableSize(1000, 640);
constexpr double kShareOfScreen = 0.9;

/// What a screen reader says of a cell.
QString Spoken(const QString& facility, modRes::TimeSlot slot, const QString& guest) {
  return facility + QStringLiteral(", ") + ToQString(modRes::LongSlotLabel(slot)) +
         QStringLiteral(", ") + (guest.isEmpty() ? ToQString(Phrase::Tr("free")) : guest);
}

}  // namespace

QtBoardWindow::QtBoardWindow(const HandlerGuard& guard, QWidget& owner)
    : guard_(guard), owner_(owner) {
  setObjectName(QStringLiteral("frmBoard"));
  BuildContents();
  auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
  connect(escape, &QShortcut::activated, this, &QWidget::close);
  auto* today = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_T), this);
  connect(today, &QShortcut::activated, this, [this] { Report(&frmBoard::TodayKey); });
  AddHelpKey(*this, [this] { Report(&frmBoard::HelpKey); });
  resize(kComfortableSize.boundedTo(screen()->availableSize() * kShareOfScreen));
}

void QtBoardWindow::BuildContents() {
  auto* contents = new QWidget(this);
  BuildTable();
  lblState_ = new QLabel(contents);
  lblState_->setObjectName(QStringLiteral("lblState"));
  auto* column = new QVBoxLayout(contents);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->addWidget(BuildHead());
  column->addWidget(
      new QtWholeRows(Grid1_, [this] { return Grid1_->verticalHeader()->defaultSectionSize(); }),
      1);
  column->addWidget(lblState_);
  setCentralWidget(contents);
  Grid1_->setFocus();
}

QWidget* QtBoardWindow::BuildHead() {
  auto* head = new QWidget(this);
  lblDay_ = new QLabel(head);
  lblDay_->setObjectName(QStringLiteral("lblDay"));
  QFont large = lblDay_->font();
  large.setBold(true);
  large.setPointSizeF(large.pointSizeF() * 1.3);
  lblDay_->setFont(large);
  auto* row = new QHBoxLayout(head);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(lblDay_, 1);
  row->addWidget(AddButton("Command2", Phrase::Tr("<= &Previous"), &frmBoard::Command2_Click));
  row->addWidget(AddButton("Command1", Phrase::Tr("&Next =>"), &frmBoard::Command1_Click));
  return head;
}

QPushButton* QtBoardWindow::AddButton(const char* name, const Phrase& caption, Handler handler) {
  auto* button = new QPushButton(ToQString(caption), this);
  button->setObjectName(QLatin1String(name));
  button->setAutoDefault(true);
  button->installEventFilter(this);
  connect(button, &QPushButton::clicked, this, [this, handler] { Report(handler); });
  return button;
}

void QtBoardWindow::BuildTable() {
  Grid1_ = new QTableWidget(kRows, 0, this);
  Grid1_->setObjectName(QStringLiteral("Grid1"));
  Grid1_->setAccessibleName(ToQString(Phrase::Tr("Day board")));
  Grid1_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  Grid1_->setSelectionMode(QAbstractItemView::SingleSelection);
  Grid1_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  Grid1_->setTabKeyNavigation(false);
  Grid1_->setCornerButtonEnabled(false);
  Grid1_->setWordWrap(false);
  Grid1_->setTextElideMode(Qt::ElideRight);
  Grid1_->horizontalHeader()->setSectionsClickable(false);
  Grid1_->horizontalHeader()->setHighlightSections(false);
  Grid1_->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  Grid1_->horizontalHeader()->setMinimumSectionSize(1);
  QHeaderView* times = Grid1_->verticalHeader();
  times->setSectionsClickable(false);
  times->setSectionResizeMode(QHeaderView::Fixed);
  times->setMinimumSectionSize(1);
  times->setDefaultSectionSize(fontMetrics().height() + kRowPadding);
  times->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
  QStringList labels;
  for (modRes::TimeSlot slot = modRes::kFirstSlot; slot <= kRows; ++slot) {
    labels += ToQString(modRes::LongSlotLabel(slot));
  }
  Grid1_->setVerticalHeaderLabels(labels);
  Grid1_->installEventFilter(this);
  connect(Grid1_, &QTableWidget::cellClicked, this, &QtBoardWindow::ReportChosen);
}

void QtBoardWindow::ShowBoard(const Phrase& day, const modRes::DayBoard& board) {
  setWindowTitle(ToQString(Phrase::Tr("Day Board: %1", day)));
  lblDay_->setText(ToQString(day));
  Grid1_->setAccessibleDescription(ToQString(day));
  SetColumns(board);
  const QBrush booked = BookedColor(palette());
  for (int column = 0; column < Grid1_->columnCount(); ++column) {
    const modRes::BoardColumn& shown = board.Columns.at(static_cast<std::size_t>(column));
    const QString facility = OneLine(shown.Facility);
    for (int row = 0; row < kRows; ++row) {
      const std::string& name = shown.Grid.Guest[row + 1];
      QTableWidgetItem* cell = Grid1_->item(row, column);
      cell->setText(OneLine(name));
      cell->setBackground(name.empty() ? QBrush() : booked);
      cell->setToolTip(name.empty() ? QString() : PlainToolTip(name));
      cell->setData(Qt::AccessibleTextRole, Spoken(facility, row + 1, OneLine(name)));
    }
  }
  lblState_->setText(board.Columns.empty()
                         ? ToQString(Phrase::Tr("There is no facility yet."))
                         : ToQString(Phrase::Tr("A click or Enter opens the day of the facility. "
                                                "Page Down and Page Up turn the days.")));
}

void QtBoardWindow::SetColumns(const modRes::DayBoard& board) {
  const int before = Grid1_->columnCount();
  names_.clear();
  Grid1_->setColumnCount(static_cast<int>(board.Columns.size()));
  for (int column = 0; column < Grid1_->columnCount(); ++column) {
    for (int row = 0; column >= before && row < kRows; ++row) {
      auto* cell = new QtPlacedCell;
      cell->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
      Grid1_->setItem(row, column, cell);
    }
    const std::string& facility = board.Columns.at(static_cast<std::size_t>(column)).Facility;
    auto* header = new QTableWidgetItem;
    header->setToolTip(PlainToolTip(facility));
    Grid1_->setHorizontalHeaderItem(column, header);
    names_ += OneLine(ShownName(facility));
  }
  if (before == 0 && Grid1_->columnCount() > 0) {
    Grid1_->setCurrentCell(kFirstRowSeen - 1, 0);
  }
  ShareOutWidth();
}

/// Few facilities share out the window's width; many are scrolled.
void QtBoardWindow::ShareOutWidth() {
  const int columns = Grid1_->columnCount();
  if (columns > 0) {
    const int share = Grid1_->viewport()->width() / columns;
    Grid1_->horizontalHeader()->setDefaultSectionSize(std::max(share, kLeastWidth));
  }
  // The header itself would cut a name at both ends.
  for (int column = 0; column < columns; ++column) {
    const int room = Grid1_->columnWidth(column) - 2 * kMargin;
    Grid1_->horizontalHeaderItem(column)->setText(
        Grid1_->horizontalHeader()->fontMetrics().elidedText(names_.at(column), Qt::ElideRight,
                                                             room));
  }
}

void QtBoardWindow::ShowWindow() {
  ShowOver(*this, owner_);
}

void QtBoardWindow::HideWindow() {
  hide();
}

void QtBoardWindow::Report(Handler handler) {
  frmBoard& board = *handler_;
  guard_.Run([&board, handler] { (board.*handler)(); });
}

void QtBoardWindow::ReportChosen(int row, int column) {
  if (row >= 0 && column >= 0) {
    guard_.Run([&] { handler_->Cell_Chosen(row + 1, static_cast<std::size_t>(column)); });
  }
}

bool QtBoardWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) {
    return QMainWindow::eventFilter(watched, event);
  }
  const auto& key = static_cast<QKeyEvent&>(*event);
  if (key.key() == Qt::Key_PageDown || key.key() == Qt::Key_PageUp) {
    Report(key.key() == Qt::Key_PageDown ? &frmBoard::Command1_Click : &frmBoard::Command2_Click);
    return true;
  }
  if (watched == Grid1_ && (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter)) {
    if (!key.isAutoRepeat()) {
      ReportChosen(Grid1_->currentRow(), Grid1_->currentColumn());
    }
    return true;
  }
  return QMainWindow::eventFilter(watched, event);
}

void QtBoardWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  Report(&frmBoard::Form_Unload);
}

void QtBoardWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  ShareOutWidth();
}

/// It begins with the hours with which the day window begins.
void QtBoardWindow::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  ShareOutWidth();
  if (!was_shown_) {
    was_shown_ = true;
    Grid1_->verticalScrollBar()->setValue(kFirstRowSeen - 1);
  }
}

}  // namespace veyra
