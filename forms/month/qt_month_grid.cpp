#include "forms/month/qt_month_grid.h"

#include <QGridLayout>
#include <QLabel>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <functional>

#include "forms/month/qt_day_cell.h"
#include "forms/month/qt_day_list.h"
#include "forms/month/qt_slim_bars.h"

namespace veyra {
namespace {

using modRes::MonthCell;

constexpr int kColumns = 7;
constexpr int kWeeks = 6;
constexpr int kSpacing = 3;
constexpr int kHintMargin = 16;

/// A cell below this height has no room for a number above its list.
constexpr int kLowCell = 60;

/// The lists' font is as large as leaves room for so many lines, and so many characters: a wide
/// window shows larger text, and more of each name as well.
constexpr int kLinesSeen = 5;
constexpr int kCharactersSeen = 20;
constexpr int kCharactersSeenWhenLarge = 28;
constexpr double kUsualFont = 9;
constexpr int kCells = 42;
constexpr double kLargestFont = 18;
constexpr double kSmallestFont = 8;
constexpr double kFontStep = 0.5;
constexpr int kListMargins = 16;

constexpr std::array<const char*, kColumns> kWeekdays = {
    "Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};

int StepOf(int key) {
  switch (key) {
    case Qt::Key_Left:
      return -1;
    case Qt::Key_Right:
      return 1;
    case Qt::Key_Up:
      return -kColumns;
    case Qt::Key_Down:
      return kColumns;
    case Qt::Key_Home:
      return -kCells;
    default:
      return kCells;
  }
}

/// So many times the room of the lines fits into a cell. Above them stands the number, about as
/// high as one of them.
double TimesItFits(QFont font, double size, const QSize& cell) {
  font.setPointSizeF(size);
  const QFontMetrics metrics(font);
  const int characters = size > kUsualFont ? kCharactersSeenWhenLarge : kCharactersSeen;
  const double width = metrics.horizontalAdvance(QString(characters, QChar(u'0')));
  const double height = (kLinesSeen + 1) * metrics.height();
  return std::min((cell.width() - kListMargins) / width, (cell.height() - kListMargins) / height);
}

bool Fits(const QFont& font, double size, const QSize& cell) {
  return TimesItFits(font, size, cell) >= 1;
}

/// A size that is too large, or the largest: to load the font in a size takes a while. Sizes grow
/// evenly but for the rounding of a letter's width.
double LargeEnoughPointSize(const QFont& font, const QSize& cell) {
  constexpr double kRounding = 1.2;
  const double size = kUsualFont * TimesItFits(font, kUsualFont, cell) * kRounding;
  return std::clamp(std::ceil(size / kFontStep) * kFontStep, kSmallestFont, kLargestFont);
}

double FittingPointSize(const QFont& font, const QSize& cell) {
  double size = LargeEnoughPointSize(font, cell);
  while (size > kSmallestFont && !Fits(font, size, cell)) {
    size -= kFontStep;
  }
  return size;
}

/// The cell of today, or the first one when today is not among them.
int TodayIn(const OneBased<MonthCell, 42>& cells) {
  const auto today = std::find_if(cells.begin(), cells.end(), [](const MonthCell& cell) {
    return cell.Visible && cell.IsToday;
  });
  return today == cells.end() ? 1 : cells.NumberOf(today);
}

}  // namespace

QtMonthGrid::QtMonthGrid(QWidget* parent) : QWidget(parent) {
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(kSpacing);
  AddHeaders();
  AddCells();
  AddHint();
}

void QtMonthGrid::AddHeaders() {
  auto* grid = static_cast<QGridLayout*>(layout());
  for (int column = 0; column < kColumns; ++column) {
    auto* header = new QLabel(QLatin1String(kWeekdays.at(static_cast<std::size_t>(column))), this);
    header->setObjectName(QStringLiteral("Label2(%1)").arg(column));
    QFont font(QStringLiteral("MS Sans Serif"), header->font().pointSize());
    font.setWeight(QFont::DemiBold);
    header->setFont(font);
    header->setAlignment(Qt::AlignCenter);
    header->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    grid->addWidget(header, 0, column);
    grid->setColumnStretch(column, 1);
    Label2_.at(static_cast<std::size_t>(column)) = header;
  }
}

void QtMonthGrid::AddCells() {
  auto* grid = static_cast<QGridLayout*>(layout());
  auto* slim_bars = new QtSlimBars(this);
  for (int index = 1; index <= kCells; ++index) {
    auto* cell = new QtDayCell(index, this);
    cells_[index] = cell;
    const int row = 1 + (index - 1) / kColumns;
    grid->addWidget(cell, row, (index - 1) % kColumns);
    grid->setRowStretch(row, 1);
    QtDayList& list = cell->List();
    list.setFocusPolicy(Qt::ClickFocus);
    list.SetBarStyle(slim_bars);
    connect(&list, &QtDayList::Pressed, this,
            [this, index](MouseButton button) { emit DayPressed(index, button); });
    connect(&list, &QtDayList::MoveKeyPressed, this, [this, index](int key) { Move(index, key); });
    connect(&list, &QtDayList::FocusChanged, this, [this, index] {
      if (Cell(index).List().hasFocus()) {
        MakeTabStop(index);
      }
    });
  }
}

/// It lies over the days and takes no click from them.
void QtMonthGrid::AddHint() {
  hint_ = new QLabel(this);
  hint_->setObjectName(QStringLiteral("emptyHint"));
  hint_->setTextFormat(Qt::PlainText);
  hint_->setAlignment(Qt::AlignCenter);
  hint_->setMargin(kHintMargin);
  hint_->setFrameShape(QFrame::Box);
  hint_->setAutoFillBackground(true);
  hint_->setAttribute(Qt::WA_TransparentForMouseEvents);
  QPalette colors = QToolTip::palette();
  colors.setColor(QPalette::Window, colors.color(QPalette::ToolTipBase));
  colors.setColor(QPalette::WindowText, colors.color(QPalette::ToolTipText));
  hint_->setPalette(colors);
  hint_->hide();
  static_cast<QGridLayout*>(layout())->addWidget(hint_, 1, 0, kWeeks, kColumns, Qt::AlignCenter);
}

void QtMonthGrid::ShowHint(const QString& hint) {
  hint_->setText(hint);
  hint_->setVisible(!hint.isEmpty());
  hint_->raise();
}

void QtMonthGrid::ShowCells(const OneBased<modRes::MonthCell, 42>& cells) {
  const bool focused = tab_stop_ == 0 || window()->focusWidget() == &Cell(tab_stop_).List();
  std::transform(cells.begin(), cells.end(), has_day_.begin(), std::mem_fn(&MonthCell::Visible));
  for (int index = 1; index <= kCells; ++index) {
    if (HasDay(index)) {
      Cell(index).ShowDay(cells[index], background_);
    }
  }
  MakeTabStop(NearestDay(tab_stop_ == 0 ? TodayIn(cells) : tab_stop_));
  if (focused) {
    Cell(tab_stop_).List().setFocus(Qt::OtherFocusReason);
  }
  // Last, for a list that is hidden while it has the focus passes it to any other control.
  for (int index = 1; index <= kCells; ++index) {
    if (!HasDay(index)) {
      Cell(index).ShowDay(cells[index], background_);
    }
  }
  CollapseEmptyWeeks();
  LayOut();
  // At once, so that the month is painted once.
  layout()->activate();
}

/// The room of the last weeks that hold no day is shared out among the others. All cells keep their
/// places in the six rows.
void QtMonthGrid::CollapseEmptyWeeks() {
  weeks_ = kWeeks;
  while (weeks_ > 1 && std::none_of(has_day_.begin() + std::ptrdiff_t{weeks_ - 1} * kColumns,
                                    has_day_.begin() + std::ptrdiff_t{weeks_} * kColumns,
                                    [](bool has_day) { return has_day; })) {
    --weeks_;
  }
  for (int index = 1; index <= kCells; ++index) {
    Cell(index).setVisible(index <= weeks_ * kColumns);
  }
  for (int week = 1; week <= kWeeks; ++week) {
    static_cast<QGridLayout*>(layout())->setRowStretch(week, week <= weeks_ ? 1 : 0);
  }
}

void QtMonthGrid::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  LayOut();
}

/// All cells are laid out alike.
void QtMonthGrid::LayOut() {
  const QSize cell((width() - (kColumns - 1) * kSpacing) / kColumns,
                   (height() - Label2_[0]->height()) / weeks_ - kSpacing);
  const double point_size = FittingPointSize(Cell(1).List().font(), cell);
  for (int index = 1; index <= kCells; ++index) {
    Cell(index).SetLayout(cell.height() < kLowCell, point_size);
  }
  for (QLabel* header : Label2_) {
    QFont larger = header->font();
    larger.setPointSizeF(std::max(font().pointSizeF(), point_size));
    header->setFont(larger);
  }
}

void QtMonthGrid::ShowLines(int index, const modRes::DayLines& lines) {
  Cell(index).List().ShowLines(lines);
}

void QtMonthGrid::ShowFacility(const QString& name) {
  for (int index = 1; index <= kCells; ++index) {
    if (Cell(index).List().accessibleDescription() != name) {
      Cell(index).ForgetDay();
    }
    Cell(index).List().setAccessibleDescription(name);
  }
}

void QtMonthGrid::Choose(int index) {
  MakeTabStop(index);
  Cell(index).List().setFocus(Qt::OtherFocusReason);
}

void QtMonthGrid::SetColors(std::int32_t background, const QColor& header) {
  background_ = background;
  for (QLabel* weekday : Label2_) {
    QPalette colors = weekday->palette();
    colors.setColor(QPalette::WindowText, header);
    weekday->setPalette(colors);
  }
}

bool QtMonthGrid::IsHeader(const QWidget* widget) const {
  return std::find(Label2_.begin(), Label2_.end(), widget) != Label2_.end();
}

bool QtMonthGrid::HasDay(int index) const {
  return index >= 1 && index <= kCells && has_day_[index];
}

/// The cell nearest to `index` that holds a day; `index` itself when none does.
int QtMonthGrid::NearestDay(int index) const {
  for (int distance = 0; distance < kCells; ++distance) {
    if (HasDay(index - distance)) {
      return index - distance;
    }
    if (HasDay(index + distance)) {
      return index + distance;
    }
  }
  return index;
}

void QtMonthGrid::Move(int index, int key) {
  const int target = std::clamp(index + StepOf(key), 1, kCells);
  const bool to_the_end = key == Qt::Key_Home || key == Qt::Key_End;
  const int goal = to_the_end ? NearestDay(target) : index + StepOf(key);
  if (HasDay(goal)) {
    Cell(goal).List().setFocus(Qt::OtherFocusReason);
  }
}

void QtMonthGrid::MakeTabStop(int index) {
  if (tab_stop_ != 0) {
    Cell(tab_stop_).List().setFocusPolicy(Qt::ClickFocus);
  }
  tab_stop_ = index;
  Cell(index).List().setFocusPolicy(Qt::StrongFocus);
}

}  // namespace veyra
