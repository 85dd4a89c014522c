#include "forms/month/qt_day_cell.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

#include "forms/month/qt_day_list.h"
#include "forms/qt_colors.h"
#include "forms/qt_text.h"

namespace veyra {
namespace {

constexpr int kMargin = 3;
constexpr double kFrameStrength = 0.25;

QString IndexedName(const char* control, int index) {
  return QStringLiteral("%1(%2)").arg(QLatin1String(control)).arg(index);
}

}  // namespace

QtDayCell::QtDayCell(int index, QWidget* parent)
    : QWidget(parent), lblDate_(new QLabel(this)), lstDay_(new QtDayList(this)) {
  lblDate_->setObjectName(IndexedName("lblDate", index));
  lblDate_->setTextFormat(Qt::PlainText);
  lstDay_->setObjectName(IndexedName("lstDay", index));
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kMargin - 1, kMargin, kMargin);
  column->setSpacing(1);
  column->addWidget(lblDate_);
  column->addWidget(lstDay_, 1);
  lblDate_->setIndent(kMargin);
  lblDate_->hide();
  lstDay_->hide();
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
  connect(lstDay_, &QtDayList::FocusChanged, this, qOverload<>(&QWidget::update));
}

void QtDayCell::ShowDay(const modRes::MonthCell& cell) {
  has_day_ = cell.Visible;
  is_today_ = cell.Visible && cell.IsToday;
  if (cell.Visible) {
    ShowNumber(cell);
    lstDay_->setAccessibleName(QStringLiteral("Bookings on ") + ToQString(DateText(cell.Day)));
    if (cell.ListColor) {
      lstDay_->SetBackground(ToQColor(*cell.ListColor, QGuiApplication::palette()));
    }
    lstDay_->ShowLines(cell.Lines);
  }
  lblDate_->setVisible(cell.Visible);
  lstDay_->setVisible(cell.Visible);
  update();
}

void QtDayCell::ShowNumber(const modRes::MonthCell& cell) {
  QFont font = lblDate_->font();
  font.setBold(cell.IsToday);
  lblDate_->setFont(font);
  QPalette colors = lblDate_->palette();
  colors.setColor(QPalette::WindowText, ToQColor(cell.NumberColor, QGuiApplication::palette()));
  lblDate_->setPalette(colors);
  lblDate_->setText(ToQString(cell.Number));
}

QColor QtDayCell::FrameColor() const {
  if (is_today_) {
    return lblDate_->palette().color(QPalette::WindowText);
  }
  const QColor background = palette().color(QPalette::Window);
  return Blend(background, ReadableOn(background, background), kFrameStrength);
}

void QtDayCell::paintEvent(QPaintEvent*) {
  if (!has_day_) {
    return;
  }
  const bool focused = lstDay_->hasFocus();
  const int width = focused || is_today_ ? 2 : 1;
  const QColor color = focused ? palette().color(QPalette::Highlight) : FrameColor();
  QPainter painter(this);
  painter.setPen(QPen(color, width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  const double inset = width / 2.0;
  painter.drawRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset));
}

}  // namespace veyra
