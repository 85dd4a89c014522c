#include "forms/month/qt_day_cell.h"

#include <QBoxLayout>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "forms/month/qt_day_list.h"
#include "forms/widgets/qt_colors.h"
#include "forms/widgets/qt_mouse_button.h"
#include "forms/widgets/qt_text.h"

namespace veyra {
namespace {

constexpr int kStrongFrame = 2;
constexpr int kMargin = 2 * kStrongFrame;
constexpr double kFrameStrength = 0.25;

QString IndexedName(const char* control, int index) {
  return QStringLiteral("%1(%2)").arg(QLatin1String(control)).arg(index);
}

}  // namespace

QtDayCell::QtDayCell(int index, QWidget* parent)
    : QWidget(parent),
      layout_(new QBoxLayout(QBoxLayout::TopToBottom, this)),
      lblDate_(new QLabel(this)),
      lstDay_(new QtDayList(this)) {
  lblDate_->setObjectName(IndexedName("lblDate", index));
  lblDate_->setTextFormat(Qt::PlainText);
  lstDay_->setObjectName(IndexedName("lstDay", index));
  layout_->setSpacing(1);
  layout_->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  layout_->addWidget(lblDate_, 0, Qt::AlignTop);
  layout_->addWidget(lstDay_, 1);
  lblDate_->hide();
  lstDay_->hide();
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
  connect(lstDay_, &QtDayList::FocusChanged, this, qOverload<>(&QWidget::update));
}

void QtDayCell::ShowDay(const modRes::MonthCell& cell, std::int32_t background) {
  has_day_ = cell.Visible;
  is_today_ = cell.Visible && cell.IsToday;
  if (cell.Visible) {
    ShowNumber(cell, background);
    lstDay_->setAccessibleName(ToQString(Phrase::Tr("Bookings on %1", DateText(cell.Day))));
    if (cell.ListColor) {
      lstDay_->SetBackground(ToQColor(*cell.ListColor, QGuiApplication::palette()));
    }
    lstDay_->ShowLines(cell.Lines, std::exchange(day_, cell.Day) == cell.Day);
  }
  setToolTip(cell.Visible ? lstDay_->toolTip() : QString());
  lblDate_->setVisible(cell.Visible);
  lstDay_->setVisible(cell.Visible);
  update();
}

void QtDayCell::SetLayout(bool number_beside, double point_size) {
  layout_->setDirection(number_beside ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
  lblDate_->setIndent(number_beside ? 1 : kStrongFrame + 1);
  QFont font = lblDate_->font();
  font.setPointSizeF(number_beside ? point_size : std::max(point_size, this->font().pointSizeF()));
  lblDate_->setFont(font);
  font.setBold(true);
  const int widest = QFontMetrics(font).horizontalAdvance(QStringLiteral("30")) + kStrongFrame;
  lblDate_->setMinimumWidth(number_beside ? widest : 0);
  lstDay_->SetPointSize(point_size);
  layout_->activate();
}

void QtDayCell::ShowNumber(const modRes::MonthCell& cell, std::int32_t background) {
  QFont font = lblDate_->font();
  font.setBold(cell.IsToday);
  lblDate_->setFont(font);
  QPalette colors = lblDate_->palette();
  colors.setColor(QPalette::WindowText,
                  TextColorOn(background, cell.NumberColor, QGuiApplication::palette()));
  lblDate_->setPalette(colors);
  lblDate_->setText(ToQString(cell.Number));
}

/// What is done beside the list, on the number's row or below the last line, is done to the day.
void QtDayCell::mousePressEvent(QMouseEvent* event) {
  event->setAccepted(has_day_);
  if (has_day_) {
    emit lstDay_->Pressed(ToMouseButton(event->button()));
  }
}

void QtDayCell::mouseReleaseEvent(QMouseEvent* event) {
  event->setAccepted(has_day_);
}

void QtDayCell::contextMenuEvent(QContextMenuEvent* event) {
  event->setAccepted(has_day_);
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
  QPainter painter(this);
  DrawFrame(painter, FrameColor(), 0, is_today_ ? kStrongFrame : 1);
  if (lstDay_->hasFocus()) {
    DrawFrame(painter, palette().color(QPalette::Highlight), is_today_ ? kStrongFrame : 0,
              kStrongFrame);
  }
}

void QtDayCell::DrawFrame(QPainter& painter, const QColor& color, int outside, int width) const {
  painter.setPen(QPen(color, width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  const double inset = outside + width / 2.0;
  painter.drawRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset));
}

}  // namespace veyra
