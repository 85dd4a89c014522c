#include "forms/day/qt_slot_grid.h"

#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>
#include <array>

#include "forms/day/qt_slot_delegate.h"
#include "forms/widgets/qt_colors.h"
#include "forms/widgets/qt_notice.h"
#include "forms/widgets/qt_placed_items.h"
#include "forms/widgets/qt_pointer_hint.h"
#include "forms/widgets/qt_text.h"
#include "logic/slots.h"

namespace veyra {
namespace {

constexpr int kRows = modRes::kLastSlot;
constexpr int kTimeColumn = 0;
constexpr int kGuestColumn = 1;
constexpr modRes::TimeSlot kNoon = 25;
constexpr int kRowPadding = 5;
constexpr int kRowStretch = 3;
constexpr double kSmallestFont = 6.5;
constexpr double kFontStep = 0.25;
constexpr int kScrollMilliseconds = 60;

QTableWidgetItem* MakeItem() {
  auto* item = new QTableWidgetItem;
  item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
  return item;
}

QTableWidgetItem* MakeTimeItem(int row) {
  auto* item = MakeItem();
  const QPalette theme = QGuiApplication::palette();
  item->setText(ToQString(modRes::LongSlotLabel(row)));
  item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
  item->setBackground(theme.color(QPalette::Button));
  item->setForeground(theme.color(QPalette::ButtonText));
  return item;
}

QTableWidgetItem* MakeGuestItem() {
  auto* item = new QtPlacedCell;
  item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
  return item;
}

/// Of the heights from `least` on that look alike, the one of which whole rows leave over the least
/// of the room.
int LeastLeftOver(int room, int least) {
  int best = least;
  for (int height = least; height <= least + kRowStretch; ++height) {
    if (room % height < room % best) {
      best = height;
    }
  }
  return best;
}

/// What a screen reader says of a half hour.
QString Spoken(int row, const QString& guest) {
  return ToQString(modRes::LongSlotLabel(row)) + QStringLiteral(", ") +
         (guest.isEmpty() ? ToQString(Phrase::Tr("free")) : guest);
}

}  // namespace

QtSlotGrid::QtSlotGrid(QWidget* parent)
    : QTableWidget(kRows, 2, parent), hint_(new QtPointerHint(*this)) {
  setItemDelegate(new QtSlotDelegate(this));
  setShowGrid(false);
  setSelectionMode(QAbstractItemView::ContiguousSelection);
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  setCornerButtonEnabled(false);
  setTabKeyNavigation(false);
  setAutoScroll(false);
  setWordWrap(false);
  AddRows();
}

void QtSlotGrid::AddRows() {
  setHorizontalHeaderLabels({QStringLiteral("Time"), QStringLiteral("Guest")});
  horizontalHeader()->setSectionsClickable(false);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->hide();
  verticalHeader()->setMinimumSectionSize(1);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  for (int row = 1; row <= kRows; ++row) {
    setItem(row - 1, kTimeColumn, MakeTimeItem(row));
    setItem(row - 1, kGuestColumn, MakeGuestItem());
  }
  SetCurrentRow(1);
}

void QtSlotGrid::ShowGuests(const DayGrid& grid) {
  const QPalette theme = QGuiApplication::palette();
  const std::array<QBrush, 2> shades = {BookedColor(theme), OtherBookedColor(theme)};
  for (int row = 1; row <= kRows; ++row) {
    const GridBooking* booking = grid.At(row);
    QTableWidgetItem* cell = item(row - 1, kGuestColumn);
    cell->setText(OneLine(grid.Guest[row]));
    cell->setData(Qt::AccessibleTextRole, Spoken(row, cell->text()));
    const QBrush& shade = shades.at(grid.Number[row] % 2 == 0 ? 0 : 1);
    cell->setBackground(booking == nullptr ? QBrush() : shade);
    cell->setData(QtSlotDelegate::kBookingRole, grid.Number[row]);
    cell->setData(QtSlotDelegate::kSeriesRole, booking != nullptr && booking->Group.has_value());
  }
  viewport()->update();
}

void QtSlotGrid::ScrollToRow(int row) {
  wanted_top_row_ = row;
  if (isVisible()) {
    StretchRows();
    verticalScrollBar()->setValue(row - 1);
  }
}

/// On a high screen the rows are made so high that those above the wanted one can be scrolled away.
/// They fill the height, so that the last one seen is not cut; the header takes what is left over.
void QtSlotGrid::StretchRows() {
  const int header = horizontalHeader()->sizeHint().height();
  const int room = contentsRect().height() - header;
  const int seen_at_most = kRows - std::max(wanted_top_row_, 1) + 1;
  const int least =
      std::max(fontMetrics().height() + kRowPadding, (room + seen_at_most - 1) / seen_at_most);
  const int height = LeastLeftOver(room, least);
  verticalHeader()->setDefaultSectionSize(height);
  horizontalHeader()->setMinimumHeight(header + (room < height ? 0 : room % height));
  updateGeometries();
}

void QtSlotGrid::SetCurrentRow(int row) {
  anchor_row_ = row;
  end_row_ = row;
  selectionModel()->setCurrentIndex(model()->index(row - 1, kTimeColumn),
                                    QItemSelectionModel::NoUpdate);
  viewport()->update();
}

/// The first row is the one that is seen for certain.
void QtSlotGrid::ChooseRows(int first, int last) {
  stays_chosen_ = true;
  SetCurrentRow(first);
  StretchRangeTo(last);
  scrollTo(model()->index(last - 1, kTimeColumn));
  scrollTo(model()->index(first - 1, kTimeColumn));
}

void QtSlotGrid::StretchRangeTo(int row) {
  end_row_ = row;
  const auto [upper, lower] = std::minmax({anchor_row_, end_row_});
  const QItemSelection range(model()->index(upper - 1, kTimeColumn),
                             model()->index(lower - 1, kGuestColumn));
  selectionModel()->select(range, QItemSelectionModel::ClearAndSelect);
  emit Stretched(anchor_row_, end_row_);
}

int QtSlotGrid::RowNear(int y) const {
  const int row = rowAt(std::clamp(y, 0, viewport()->height() - 1)) + 1;
  return row == 0 ? kRows : row;
}

int QtSlotGrid::FirstRowSeen() const {
  return RowNear(0);
}

int QtSlotGrid::LastRowSeen() const {
  const int row = RowNear(viewport()->height() - 1);
  const bool whole = rowViewportPosition(row - 1) + rowHeight(row - 1) <= viewport()->height();
  return whole || row == FirstRowSeen() ? row : row - 1;
}

bool QtSlotGrid::IsRowSeen(int row) const {
  return row >= FirstRowSeen() && row <= LastRowSeen();
}

void QtSlotGrid::mousePressEvent(QMouseEvent* event) {
  const int row = rowAt(event->pos().y()) + 1;
  if (event->button() != Qt::LeftButton || row == 0) {
    return;
  }
  HideHint();
  dragging_ = true;
  has_moved_ = false;
  pointer_ = event->globalPosition().toPoint();
  const int current_row = CurrentRow();
  anchor_row_ = row;
  StretchRangeTo(row);
  emit Pressed(row, current_row);
}

void QtSlotGrid::mouseDoubleClickEvent(QMouseEvent* event) {
  mousePressEvent(event);
}

void QtSlotGrid::mouseMoveEvent(QMouseEvent* event) {
  if (dragging_) {
    const QPoint place = event->globalPosition().toPoint();
    has_moved_ =
        has_moved_ || (place - pointer_).manhattanLength() >= QApplication::startDragDistance();
    pointer_ = place;
    StretchRangeTo(RowNear(event->pos().y()));
    ScrollWhileDragging(event->pos().y());
  }
}

void QtSlotGrid::ScrollWhileDragging(int y) {
  drag_y_ = y;
  const bool outside = y < 0 || y >= viewport()->height();
  if (!outside) {
    scroll_timer_.stop();
  } else if (!scroll_timer_.isActive()) {
    scroll_timer_.start(kScrollMilliseconds, this);
  }
}

void QtSlotGrid::timerEvent(QTimerEvent* event) {
  if (event->timerId() != scroll_timer_.timerId()) {
    QTableWidget::timerEvent(event);
    return;
  }
  QScrollBar* bar = verticalScrollBar();
  bar->setValue(bar->value() + (drag_y_ < 0 ? -1 : 1));
  StretchRangeTo(drag_y_ < 0 ? FirstRowSeen() : LastRowSeen());
}

void QtSlotGrid::mouseReleaseEvent(QMouseEvent* event) {
  if (!dragging_ || event->button() != Qt::LeftButton) {
    return;
  }
  dragging_ = false;
  HideHint();
  scroll_timer_.stop();
  const QPoint position = event->pos();
  const bool in_header = position.y() < 0 && position.y() >= -horizontalHeader()->height();
  const bool in_times = position.x() < columnViewportPosition(kGuestColumn);
  Report(in_header ? 0 : RowNear(position.y()), in_times ? kTimeColumn : kGuestColumn);
}

void QtSlotGrid::Report(int row, int column) {
  stays_chosen_ = false;
  emit Released(row, column);
  if (!stays_chosen_) {
    clearSelection();
  }
}

void QtSlotGrid::keyPressEvent(QKeyEvent* event) {
  const bool stretch = event->modifiers().testFlag(Qt::ShiftModifier);
  const int page = std::max(1, LastRowSeen() - FirstRowSeen());
  switch (event->key()) {
    case Qt::Key_Up:
      return MoveTo(end_row_ - 1, stretch);
    case Qt::Key_Down:
      return MoveTo(end_row_ + 1, stretch);
    case Qt::Key_PageUp:
      return MoveTo(end_row_ - page, stretch);
    case Qt::Key_PageDown:
      return MoveTo(end_row_ + page, stretch);
    case Qt::Key_Home:
      return MoveTo(1, stretch);
    case Qt::Key_End:
      return MoveTo(kRows, stretch);
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return EndRange();
    default:
      event->ignore();
  }
}

void QtSlotGrid::EndRange() {
  HideHint();
  const int end_row = end_row_;
  StretchRangeTo(end_row);
  emit Pressed(anchor_row_, CurrentRow());
  Report(end_row, kGuestColumn);
}

void QtSlotGrid::MoveTo(int row, bool stretch) {
  const int target = std::clamp(row, 1, kRows);
  if (!stretch) {
    SetCurrentRow(target);
  }
  scrollTo(model()->index(target - 1, kTimeColumn));
  choosing_by_key_ = stretch;
  StretchRangeTo(target);
  if (!stretch && row_hint_) {
    ShowHintBelow(target, ToQString(row_hint_(target)));
  }
}

/// Who comes to the grid with the Tab key begins where he looks.
void QtSlotGrid::focusInEvent(QFocusEvent* event) {
  QTableWidget::focusInEvent(event);
  const bool by_key =
      event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
  if (by_key && !IsRowSeen(CurrentRow())) {
    SetCurrentRow(FirstRowSeen());
  }
}

void QtSlotGrid::focusOutEvent(QFocusEvent* event) {
  QTableWidget::focusOutEvent(event);
  HideHint();
}

void QtSlotGrid::showEvent(QShowEvent* event) {
  QTableWidget::showEvent(event);
  if (wanted_top_row_ != 0) {
    StretchRows();
    verticalScrollBar()->setValue(wanted_top_row_ - 1);
  }
}

void QtSlotGrid::resizeEvent(QResizeEvent* event) {
  QTableWidget::resizeEvent(event);
  const int time_width = viewport()->width() - columnWidth(kGuestColumn);
  setColumnWidth(kTimeColumn, std::max(1, time_width));
  ShrinkFontTo(time_width);
  StretchRows();
}

void QtSlotGrid::ShrinkFontTo(int time_width) {
  const int margin = style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1;
  const QString widest = ToQString(modRes::LongSlotLabel(kNoon));
  QFont fitting = font();
  while (QFontMetrics(fitting).horizontalAdvance(widest) + 2 * margin > time_width &&
         fitting.pointSizeF() > kSmallestFont) {
    fitting.setPointSizeF(fitting.pointSizeF() - kFontStep);
  }
  setFont(fitting);
}

bool QtSlotGrid::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    if (SayWhatIsAt(help->pos(), help->globalPos())) {
      return true;
    }
    QToolTip::hideText();
  }
  return QTableWidget::viewportEvent(event);
}

/// Whether there is anything to be said of the row there, which is then said.
bool QtSlotGrid::SayWhatIsAt(const QPoint& position, const QPoint& screen_position) {
  const int row = rowAt(position.y()) + 1;
  const Phrase hint = row == 0 || !row_hint_ ? Phrase() : row_hint_(row);
  if (hint.IsEmpty()) {
    return false;
  }
  const int top = rowViewportPosition(row - 1);
  QToolTip::showText(screen_position, PlainToolTip(ToQString(hint)), viewport(),
                     {0, top, viewport()->width(), rowHeight(row - 1)});
  return true;
}

void QtSlotGrid::ShowRangeHint(const QString& hint) {
  if (dragging_ && has_moved_) {
    hint_->ShowBeside(pointer_, hint);
  } else if (choosing_by_key_) {
    ShowHintBelow(end_row_, hint);
  }
}

void QtSlotGrid::ShowHintBelow(int row, const QString& hint) {
  const QPoint corner(columnViewportPosition(kGuestColumn),
                      rowViewportPosition(row - 1) + rowHeight(row - 1) / 2);
  hint_->ShowBeside(viewport()->mapToGlobal(corner), hint);
  if (!hint.isEmpty()) {
    Announce(*hint_);
  }
}

void QtSlotGrid::HideHint() {
  choosing_by_key_ = false;
  hint_->hide();
}

}  // namespace veyra
