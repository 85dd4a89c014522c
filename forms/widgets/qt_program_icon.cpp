#include "forms/widgets/qt_program_icon.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace veyra {
namespace {

// The icon is drawn on a sheet of 128 by 128, as packaging/veyra-calendar.svg is.
constexpr double kSheet = 128;
constexpr QRectF kPaper(14, 22, 100, 96);
constexpr double kHeadHeight = 24;
constexpr double kRound = 10;
constexpr QRectF kBooking(48, 67, 56, 28);
constexpr QColor kEdge(0x37, 0x47, 0x4f);
constexpr QColor kHead(0x2f, 0x5d, 0x8c);
constexpr QColor kRing(0xec, 0xef, 0xf1);
constexpr QColor kLine(0xcf, 0xd8, 0xdc);
constexpr QColor kBooked(0xe8, 0x83, 0x3a);

void DrawPaper(QPainter& painter) {
  QPainterPath paper;
  paper.addRoundedRect(kPaper, kRound, kRound);
  QPainterPath head;
  head.addRect(QRectF(kPaper.topLeft(), QSizeF(kPaper.width(), kHeadHeight)));
  painter.setPen(QPen(kEdge, 4));
  painter.setBrush(Qt::white);
  painter.drawPath(paper);
  painter.setBrush(kHead);
  painter.drawPath(paper.intersected(head));
}

void DrawRings(QPainter& painter) {
  painter.setPen(QPen(kEdge, 3));
  painter.setBrush(kRing);
  for (const double left : {34.0, 84.0}) {
    painter.drawRoundedRect(QRectF(left, 10, 10, 24), 5, 5);
  }
}

void DrawLines(QPainter& painter) {
  painter.setPen(QPen(kLine, 3, Qt::SolidLine, Qt::RoundCap));
  for (const double y : {60.0, 74.0, 88.0, 102.0}) {
    painter.drawLine(QPointF(26, y), QPointF(40, y));
  }
  for (const double y : {60.0, 102.0}) {
    painter.drawLine(QPointF(50, y), QPointF(102, y));
  }
}

void DrawBooking(QPainter& painter) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(kBooked);
  painter.drawRoundedRect(kBooking, 5, 5);
  painter.setPen(QPen(Qt::white, 6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(QPolygonF({{62, 81}, {70, 89}, {88, 71}}));
}

QPixmap Draw(int size) {
  QPixmap picture(size, size);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(size / kSheet, size / kSheet);
  DrawPaper(painter);
  DrawRings(painter);
  DrawLines(painter);
  DrawBooking(painter);
  return picture;
}

}  // namespace

QIcon ProgramIcon() {
  QIcon icon;
  for (const int size : {16, 22, 24, 32, 48, 64, 128, 256}) {
    icon.addPixmap(Draw(size));
  }
  return icon;
}

}  // namespace veyra
