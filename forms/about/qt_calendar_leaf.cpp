#include "forms/about/qt_calendar_leaf.h"

#include <QPainter>
#include <QPainterPath>

namespace veyra {
namespace {

// The leaf is drawn on a sheet of 96 by 104 and scaled to the widget.
constexpr double kWidth = 96;
constexpr double kHeight = 104;
constexpr QRectF kLeaf(6, 12, 84, 86);
constexpr double kHeadHeight = 24;
constexpr double kRound = 6;
constexpr int kColumns = 7;
constexpr int kRows = 4;
constexpr int kMarkedDay = 17;
constexpr QColor kHeadColor(0, 0, 192);
constexpr QColor kPaperColor(255, 255, 255);
constexpr QColor kEdgeColor(128, 128, 128);
constexpr QColor kDayColor(208, 208, 216);
constexpr QColor kMarkColor(224, 64, 32);

void DrawPaper(QPainter& painter) {
  painter.setPen(QPen(kEdgeColor, 1));
  painter.setBrush(kPaperColor);
  painter.drawRoundedRect(kLeaf, kRound, kRound);
}

void DrawHead(QPainter& painter) {
  QPainterPath leaf;
  leaf.addRoundedRect(kLeaf, kRound, kRound);
  QPainterPath head;
  head.addRect(QRectF(kLeaf.x(), kLeaf.y(), kLeaf.width(), kHeadHeight));
  painter.setPen(Qt::NoPen);
  painter.setBrush(kHeadColor);
  painter.drawPath(leaf.intersected(head));
}

void DrawRings(QPainter& painter) {
  painter.setPen(QPen(kEdgeColor, 4, Qt::SolidLine, Qt::RoundCap));
  for (const double x : {28.0, 68.0}) {
    painter.drawLine(QPointF(x, 6), QPointF(x, 20));
  }
}

void DrawDays(QPainter& painter) {
  const double step_x = (kLeaf.width() - 8) / kColumns;
  const double step_y = (kLeaf.height() - kHeadHeight - 8) / kRows;
  painter.setPen(Qt::NoPen);
  for (int day = 0; day < kColumns * kRows; ++day) {
    const double x = kLeaf.x() + 4 + step_x * (day % kColumns);
    const double y = kLeaf.y() + kHeadHeight + 4 + step_y * static_cast<int>(day / kColumns);
    painter.setBrush(day == kMarkedDay ? kMarkColor : kDayColor);
    painter.drawRect(QRectF(x, y, step_x, step_y).adjusted(1.5, 2, -1.5, -2));
  }
}

}  // namespace

QtCalendarLeaf::QtCalendarLeaf(QWidget* parent) : QWidget(parent) {
  setFixedSize(static_cast<int>(kWidth), static_cast<int>(kHeight));
}

void QtCalendarLeaf::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(width() / kWidth, height() / kHeight);
  DrawPaper(painter);
  DrawHead(painter);
  DrawRings(painter);
  DrawDays(painter);
}

}  // namespace veyra
