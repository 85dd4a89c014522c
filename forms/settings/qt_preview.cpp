#include "forms/settings/qt_preview.h"

#include <QGuiApplication>
#include <QLabel>
#include <algorithm>

#include "forms/settings/qt_spread_label.h"
#include "forms/widgets/qt_colors.h"

namespace veyra {
namespace {

constexpr int kColumns = 7;
constexpr int kRows = 5;
constexpr int kMargin = 10;
constexpr int kIndent = 4;
constexpr int kTodayRow = 2;
constexpr int kTodayColumn = 3;
constexpr double kTitleFactor = 1.6;
constexpr double kLineStrength = 0.25;

/// The weeks of the sample month, which begins on a Monday.
struct Week {
  const char* Caption;
  int FirstColumn;
};

constexpr std::array<Week, kRows> kWeeks = {{{"1   2   3   4   5   6", 1},
                                             {"7   8   9   10   11   12   13", 0},
                                             {"14   15   16   17   18   19   20", 0},
                                             {"21   22   23   24   25   26   27", 0},
                                             {"28   29   30", 0}}};

}  // namespace

QtPreview::QtPreview(QWidget* parent)
    : QFrame(parent),
      text_height_(fontMetrics().height()),
      title_height_(static_cast<int>(kTitleFactor * text_height_) + kIndent) {
  setObjectName(QStringLiteral("Frame1"));
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  AddHeader();
  AddLines("Line1", kRows + 1, Line1_);
  AddLines("Line2", kColumns + 1, Line2_);
  AddDays();
  AddToday();
  const int least_cell = fontMetrics().horizontalAdvance(Label4_->text()) + 3 * kIndent;
  setMinimumWidth(2 * kMargin + kColumns * least_cell);
  setFixedHeight(RowTop(kRows) + kMargin);
}

void QtPreview::AddHeader() {
  Label1_ = new QLabel(QStringLiteral("Hearers"), this);
  Label1_->setObjectName(QStringLiteral("Label1"));
  QFont title = font();
  title.setPointSizeF(title.pointSizeF() * kTitleFactor);
  title.setWeight(QFont::DemiBold);
  Label1_->setFont(title);
  Label2_ =
      new QtSpreadLabel(QStringLiteral("Sun   Mon    Tue    Wed   Thu     Fri       Sat"), 0, this);
  Label2_->setObjectName(QStringLiteral("Label2"));
  Label2_->setAlignment(Qt::AlignCenter);
  Label2_->setIndent(0);
}

void QtPreview::AddLines(const char* name, std::size_t count, std::vector<QWidget*>& lines) {
  for (std::size_t index = 0; index < count; ++index) {
    auto* line = new QWidget(this);
    line->setObjectName(QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(index));
    line->setAutoFillBackground(true);
    lines.push_back(line);
  }
}

void QtPreview::AddDays() {
  for (std::size_t row = 0; row < kWeeks.size(); ++row) {
    const Week& week = kWeeks.at(row);
    auto* label = new QtSpreadLabel(QLatin1String(week.Caption), week.FirstColumn, this);
    label->setObjectName(QStringLiteral("Label3(%1)").arg(row));
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    label->setIndent(kIndent);
    Label3_.at(row) = label;
  }
}

void QtPreview::AddToday() {
  Label4_ = new QLabel(QStringLiteral("Today"), this);
  Label4_->setObjectName(QStringLiteral("Label4"));
  Label4_->setAlignment(Qt::AlignCenter);
  Label4_->setAutoFillBackground(true);
}

int QtPreview::CellHeight() const {
  return 2 * text_height_ + 2 * kIndent;
}

int QtPreview::GridTop() const {
  return kMargin / 2 + title_height_ + text_height_ + kIndent;
}

int QtPreview::ColumnLeft(int column) const {
  return kMargin + column * (width() - 2 * kMargin - 1) / kColumns;
}

int QtPreview::RowTop(int row) const {
  return GridTop() + row * CellHeight();
}

void QtPreview::resizeEvent(QResizeEvent* event) {
  QFrame::resizeEvent(event);
  PlaceHeader();
  PlaceGrid();
}

void QtPreview::PlaceHeader() {
  const int left = ColumnLeft(0);
  const int grid_width = ColumnLeft(kColumns) - left;
  Label1_->setGeometry(left, kMargin / 2, grid_width, title_height_);
  Label2_->setGeometry(left, GridTop() - text_height_ - kIndent / 2, grid_width, text_height_);
}

void QtPreview::PlaceGrid() {
  const int left = ColumnLeft(0);
  const int grid_width = ColumnLeft(kColumns) - left;
  for (int row = 0; row <= kRows; ++row) {
    Line1_.at(static_cast<std::size_t>(row))->setGeometry(left, RowTop(row), grid_width + 1, 1);
  }
  for (int column = 0; column <= kColumns; ++column) {
    Line2_.at(static_cast<std::size_t>(column))
        ->setGeometry(ColumnLeft(column), RowTop(0), 1, RowTop(kRows) - RowTop(0) + 1);
  }
  for (int row = 0; row < kRows; ++row) {
    Label3_.at(static_cast<std::size_t>(row))
        ->setGeometry(left, RowTop(row) + kIndent / 2, grid_width, text_height_);
  }
  const QPoint today(ColumnLeft(kTodayColumn) + 1, RowTop(kTodayRow) + kIndent / 2 + text_height_);
  const QPoint next(ColumnLeft(kTodayColumn + 1) - 1, RowTop(kTodayRow + 1) - 1);
  Label4_->setGeometry(QRect(today, next));
}

void QtPreview::ShowColors(const RoleColors& colors) {
  const QPalette theme = QGuiApplication::palette();
  const auto number_of = [&colors](ColorRole role) {
    return colors.at(static_cast<std::size_t>(role));
  };
  const auto text_on = [&](ColorRole background, ColorRole text) {
    return TextColorOn(number_of(background), number_of(text), theme);
  };
  const QColor background = ToQColor(number_of(ColorRole::BackGround), theme);
  SetColor(*this, QPalette::Window, background);
  const QColor header = text_on(ColorRole::BackGround, ColorRole::Header);
  SetColor(*Label1_, QPalette::WindowText, header);
  SetColor(*Label2_, QPalette::WindowText, header);
  for (QLabel* week : Label3_) {
    SetColor(*week, QPalette::WindowText, text_on(ColorRole::BackGround, ColorRole::DayNumbers));
  }
  SetColor(*Label4_, QPalette::WindowText, text_on(ColorRole::TodayBackGround, ColorRole::Today));
  SetColor(*Label4_, QPalette::Window, ToQColor(number_of(ColorRole::TodayBackGround), theme));
  const QColor line = Blend(background, ReadableOn(background, background), kLineStrength);
  for (const auto& lines : {Line1_, Line2_}) {
    for (QWidget* edge : lines) {
      SetColor(*edge, QPalette::Window, line);
    }
  }
}

}  // namespace veyra
