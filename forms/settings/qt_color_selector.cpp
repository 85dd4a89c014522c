#include "forms/settings/qt_color_selector.h"

#include <QGuiApplication>

#include "forms/settings/qt_swatch.h"
#include "forms/widgets/qt_colors.h"
#include "forms/widgets/qt_text.h"

namespace veyra {
namespace {

int ColumnOf(std::size_t index) {
  return (static_cast<int>(index) - 1) / kPaletteRows;
}

int RowOf(std::size_t index) {
  return (static_cast<int>(index) - 1) % kPaletteRows;
}

/// The near edge of the square in that row or column, or how far the squares reach.
Twips EdgeOf(int place) {
  return kFirstSquare + place * kSquareStep;
}

Twips Extent(int squares) {
  return EdgeOf(squares - 1) + kSquareSide + kFirstSquare;
}

/// The square that the arrow key leads to from `index`, or 0 beyond the palette's edge.
std::size_t Neighbour(std::size_t index, int key) {
  int column = ColumnOf(index);
  int row = RowOf(index);
  switch (key) {
    case Qt::Key_Left:
      --column;
      break;
    case Qt::Key_Right:
      ++column;
      break;
    case Qt::Key_Up:
      --row;
      break;
    default:
      ++row;
      break;
  }
  const bool inside = column >= 0 && column < kPaletteColumns && row >= 0 && row < kPaletteRows;
  return inside ? static_cast<std::size_t>(column * kPaletteRows + row + 1) : 0;
}

}  // namespace

QtColorSelector::QtColorSelector(QWidget* parent) : QWidget(parent) {
  for (std::size_t index = 1; index <= Colors_.size(); ++index) {
    AddSquare(index);
  }
  MakeTabStop(tab_stop_);
  setFixedSize(PixelsFromTwips(Extent(kPaletteColumns), logicalDpiX()),
               PixelsFromTwips(Extent(kPaletteRows), logicalDpiY()));
}

void QtColorSelector::AddSquare(std::size_t index) {
  auto* square = new QtSwatch(this);
  const QColor color = ToQColor(kPalette[index], QGuiApplication::palette());
  square->setObjectName(QStringLiteral("Colors(%1)").arg(index));
  square->setAccessibleName(ToQString(Phrase::Tr("Color %1", ToUtf8(WebName(color)))));
  square->setToolTip(WebName(color));
  square->ShowColor(color);
  square->setFocusPolicy(Qt::NoFocus);
  square->move(PixelsFromTwips(EdgeOf(ColumnOf(index)), logicalDpiX()),
               PixelsFromTwips(EdgeOf(RowOf(index)), logicalDpiY()));
  connect(square, &QtSwatch::Pressed, this, [this, index](SwatchClick click) {
    MakeTabStop(index);
    emit Pressed(index, click);
  });
  connect(square, &QtSwatch::MoveKeyPressed, this, [this, index](int key) { Move(index, key); });
  Colors_[index] = square;
}

void QtColorSelector::Move(std::size_t index, int key) {
  if (const std::size_t neighbour = Neighbour(index, key); neighbour != 0) {
    MakeTabStop(neighbour);
    Colors_[neighbour]->setFocus(Qt::OtherFocusReason);
  }
}

/// The square with the focus lies over the edges of its neighbours.
void QtColorSelector::MakeTabStop(std::size_t index) {
  Colors_[tab_stop_]->setFocusPolicy(Qt::NoFocus);
  tab_stop_ = index;
  Colors_[index]->setFocusPolicy(Qt::TabFocus);
  Colors_[index]->raise();
}

}  // namespace veyra
