#include "forms/settings/qt_preview.h"

#include <QGuiApplication>
#include <QLabel>
#include <algorithm>

#include "forms/qt_colors.h"
#include "forms/settings/qt_spread_label.h"

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

void SetColor(QWidget* widget, QPalette::ColorRole role, const QColor& color) {
  QPalette colors = widget->palette();
  colors.setColor(role, color);
  widget->setPalette(colors);
}

}  // namespace

QtPreview::QtPreview(QWidget* parent) : QFrame(parent) {
  setObjectName(QStringLiteral("Frame1"));
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  Measure();
  AddHeader();
  AddLines();
  AddDays();
  AddToday();
  setFixedSize(2 * kMargin + kColumns * cell_width_ + 1,
               grid_top_ + kRows * cell_height_ + 1 + kMargin);
}

void QtPreview::Measure() {
  const QFontMetrics metrics = fontMetrics();
  text_height_ = metrics.height();
  title_height_ = static_cast<int>(kTitleFactor * text_height_);
  cell_width_ = metrics.horizontalAdvance(QStringLiteral("Today")) + 4 * kIndent;
  cell_height_ = 2 * text_height_ + 2 * kIndent;
  grid_top_ = kMargin / 2 + title_height_ + kIndent + text_height_ + kIndent;
}

void QtPreview::AddHeader() {
  Label1_ = new QLabel(QStringLiteral("Hearers"), this);
  Label1_->setObjectName(QStringLiteral("Label1"));
  QFont title = font();
  title.setPointSizeF(title.pointSizeF() * kTitleFactor);
  title.setWeight(QFont::DemiBold);
  Label1_->setFont(title);
  Label1_->setGeometry(kMargin, kMargin / 2, kColumns * cell_width_, title_height_ + kIndent);
  Label2_ =
      new QtSpreadLabel(QStringLiteral("Sun   Mon    Tue    Wed   Thu     Fri       Sat"), 0, this);
  Label2_->setObjectName(QStringLiteral("Label2"));
  Label2_->setAlignment(Qt::AlignCenter);
  Label2_->setIndent(0);
  Label2_->setGeometry(kMargin, grid_top_ - text_height_ - kIndent / 2, kColumns * cell_width_,
                       text_height_);
}

void QtPreview::AddLines() {
  const int right = kMargin + kColumns * cell_width_;
  const int bottom = grid_top_ + kRows * cell_height_;
  for (int row = 0; row <= kRows; ++row) {
    const int y = grid_top_ + row * cell_height_;
    AddLine("Line1", row, QRect(kMargin, y, right - kMargin + 1, 1));
  }
  for (int column = 0; column <= kColumns; ++column) {
    const int x = kMargin + column * cell_width_;
    AddLine("Line2", column, QRect(x, grid_top_, 1, bottom - grid_top_ + 1));
  }
}

void QtPreview::AddLine(const char* name, int index, const QRect& place) {
  auto* line = new QWidget(this);
  line->setObjectName(QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(index));
  line->setAutoFillBackground(true);
  line->setGeometry(place);
  lines_.push_back(line);
}

void QtPreview::AddDays() {
  for (int row = 0; row < kRows; ++row) {
    const Week& week = kWeeks.at(static_cast<std::size_t>(row));
    auto* label = new QtSpreadLabel(QLatin1String(week.Caption), week.FirstColumn, this);
    label->setObjectName(QStringLiteral("Label3(%1)").arg(row));
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    label->setIndent(kIndent);
    label->setGeometry(kMargin, grid_top_ + row * cell_height_ + kIndent / 2,
                       kColumns * cell_width_, text_height_);
    Label3_.at(static_cast<std::size_t>(row)) = label;
  }
}

void QtPreview::AddToday() {
  Label4_ = new QLabel(QStringLiteral("Today"), this);
  Label4_->setObjectName(QStringLiteral("Label4"));
  Label4_->setAlignment(Qt::AlignCenter);
  Label4_->setAutoFillBackground(true);
  const int left = kMargin + kTodayColumn * cell_width_ + 1;
  const int top = grid_top_ + kTodayRow * cell_height_ + kIndent / 2 + text_height_;
  const int bottom = grid_top_ + (kTodayRow + 1) * cell_height_;
  Label4_->setGeometry(left, top, cell_width_ - 1, bottom - top);
}

void QtPreview::ShowColors(const RoleColors& colors) {
  const auto color_of = [&colors, theme = QGuiApplication::palette()](ColorRole role) {
    return ToQColor(colors.at(static_cast<std::size_t>(role)), theme);
  };
  const QColor background = color_of(ColorRole::BackGround);
  SetColor(this, QPalette::Window, background);
  SetColor(Label1_, QPalette::WindowText, color_of(ColorRole::Header));
  SetColor(Label2_, QPalette::WindowText, color_of(ColorRole::Header));
  for (QLabel* week : Label3_) {
    SetColor(week, QPalette::WindowText, color_of(ColorRole::DayNumbers));
  }
  SetColor(Label4_, QPalette::WindowText, color_of(ColorRole::Today));
  SetColor(Label4_, QPalette::Window, color_of(ColorRole::TodayBackGround));
  const QColor line = Blend(background, ReadableOn(background, background), kLineStrength);
  for (QWidget* edge : lines_) {
    SetColor(edge, QPalette::Window, line);
  }
}

}  // namespace veyra
