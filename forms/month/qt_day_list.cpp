#include "forms/month/qt_day_list.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QToolTip>

#include "forms/widgets/qt_colors.h"
#include "forms/widgets/qt_cut_line.h"
#include "forms/widgets/qt_gesture_guard.h"
#include "forms/widgets/qt_keys.h"
#include "forms/widgets/qt_mouse_button.h"
#include "forms/widgets/qt_placed_items.h"
#include "forms/widgets/qt_text.h"

namespace veyra {
namespace {

constexpr int kPointSize = 9;

/// Lines bear no focus frame of their own, and are drawn as far as they are to be seen.
class LineDelegate : public QStyledItemDelegate {
 public:
  explicit LineDelegate(QtDayList* list) : QStyledItemDelegate(list), list_(*list) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    const QString shown = list_.ShownText(TextOf(index));
    if (IsPlain(option, shown)) {
      list_.PlainLines().Draw(*painter, option, shown);
      return;
    }
    QStyleOptionViewItem line = option;
    initStyleOption(&line, index);
    line.text = shown;
    list_.style()->drawControl(QStyle::CE_ItemViewItem, &line, painter, &list_);
  }

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const QString line = TextOf(index);
    return IsPlain(option, line) ? list_.PlainLines().SizeOf(line)
                                 : QStyledItemDelegate::sizeHint(option, index);
  }

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    option->state &= ~QStyle::State_HasFocus;
  }

 private:
  static QString TextOf(const QModelIndex& index) { return index.data(Qt::DisplayRole).toString(); }
  bool IsPlain(const QStyleOptionViewItem& option, const QString& line) const {
    return option.direction == Qt::LeftToRight && list_.PlainLines().Covers(line);
  }

  const QtDayList& list_;
};

QFont FixedPitchFont() {
  QFont font(QStringLiteral("Courier New"), kPointSize);
  font.setStyleHint(QFont::Monospace);
  return font;
}

bool IsEnter(int key) {
  return key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool IsMoveKey(int key) {
  return (key >= Qt::Key_Left && key <= Qt::Key_Down) || key == Qt::Key_Home || key == Qt::Key_End;
}

bool IsEnd(int key) {
  return key == Qt::Key_Home || key == Qt::Key_End;
}

void Step(QScrollBar* bar, int steps) {
  bar->setValue(bar->value() + steps * bar->singleStep());
}

}  // namespace

QtDayList::QtDayList(QWidget* parent) : QListWidget(parent) {
  setFont(FixedPitchFont());
  setItemDelegate(new LineDelegate(this));
  setFrameShape(QFrame::NoFrame);
  setSelectionMode(QAbstractItemView::NoSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setTextElideMode(Qt::ElideNone);
  setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  auto* corner = new QWidget(this);
  corner->setBackgroundRole(QPalette::Base);
  corner->setAutoFillBackground(true);
  setCornerWidget(corner);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
  setToolTip(QStringLiteral(
      "Left Click to Add/Change the Bookings for this Day    Right Click for Larger View"));
}

void QtDayList::ShowLines(const modRes::DayLines& lines, bool stays) {
  const QPoint place =
      stays ? QPoint(horizontalScrollBar()->value(), verticalScrollBar()->value()) : QPoint();
  if (lines != lines_) {
    lines_ = lines;
    clear();
    for (const std::string& line : lines) {
      addItem(new QtPlacedLine(OneLine(line)));
    }
    doItemsLayout();
  }
  horizontalScrollBar()->setValue(place.x());
  verticalScrollBar()->setValue(place.y());
}

QString QtDayList::ShownText(const QString& line) const {
  if (horizontalScrollBar()->value() != 0) {
    return line;
  }
  const int margin = style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1;
  const int width = viewport()->width() - 2 * margin;
  return PlainLines().Covers(line) ? PlainLines().Cut(line, width)
                                   : CutLine(line, fontMetrics(), width);
}

const QtPlainLines& QtDayList::PlainLines() const {
  if (!plain_lines_) {
    plain_lines_.emplace(*this);
  }
  return *plain_lines_;
}

void QtDayList::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
    plain_lines_.reset();
  }
  QListWidget::changeEvent(event);
}

/// Over a line that is cut, the whole of it; the list's own tooltip over all else.
bool QtDayList::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    const QListWidgetItem* line = itemAt(help->pos());
    if (line != nullptr && ShownText(line->text()) != line->text()) {
      QToolTip::showText(help->globalPos(), PlainToolTip(ToUtf8(line->text())), viewport(),
                         visualItemRect(line).intersected(viewport()->rect()));
      return true;
    }
  }
  return QListWidget::viewportEvent(event);
}

void QtDayList::SetBackground(const QColor& color) {
  QPalette colors = palette();
  colors.setColor(QPalette::Base, color);
  colors.setColor(QPalette::Text, ReadableOn(color, colors.color(QPalette::Text)));
  setPalette(colors);
}

void QtDayList::SetPointSize(double size) {
  if (QFont resized = font(); resized.pointSizeF() != size) {
    resized.setPointSizeF(size);
    setFont(resized);
  }
}

void QtDayList::SetBarStyle(QStyle* style) {
  horizontalScrollBar()->setStyle(style);
  verticalScrollBar()->setStyle(style);
}

/// The window may be hidden before the handler returns, so the press is not the list's to follow.
void QtDayList::mousePressEvent(QMouseEvent* event) {
  event->accept();
  emit Pressed(ToMouseButton(event->button()));
}

void QtDayList::mouseDoubleClickEvent(QMouseEvent* event) {
  mousePressEvent(event);
}

void QtDayList::mouseMoveEvent(QMouseEvent* event) {
  event->accept();
}

void QtDayList::mouseReleaseEvent(QMouseEvent* event) {
  event->accept();
}

/// The press or the key that asks for a menu is dealt with as what it is.
void QtDayList::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
}

void QtDayList::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (IsEnter(key) || IsMenuKey(*event)) {
    if (!event->isAutoRepeat()) {
      // Held down, it is one click still: this one may only have ended the printed layout.
      QtGestureGuard::EndGestures(*this);
      emit Pressed(IsEnter(key) ? MouseButton::Left : MouseButton::Right);
    }
  } else if (IsMoveKey(key) && !IsEnd(key) && event->modifiers() & Qt::ControlModifier) {
    ScrollBy(key);
  } else if (IsMoveKey(key)) {
    emit MoveKeyPressed(key);
  } else {
    event->ignore();
  }
}

void QtDayList::ScrollBy(int key) {
  switch (key) {
    case Qt::Key_Left:
      return Step(horizontalScrollBar(), -1);
    case Qt::Key_Right:
      return Step(horizontalScrollBar(), 1);
    case Qt::Key_Up:
      return Step(verticalScrollBar(), -1);
    case Qt::Key_Down:
      return Step(verticalScrollBar(), 1);
    default:
      return;
  }
}

/// No line becomes the current one: the focus is the day's.
void QtDayList::focusInEvent(QFocusEvent* event) {
  event->accept();
  emit FocusChanged();
}

void QtDayList::focusOutEvent(QFocusEvent* event) {
  QListWidget::focusOutEvent(event);
  emit FocusChanged();
}

}  // namespace veyra
