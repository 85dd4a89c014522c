#pragma once

#include <QWidget>

#include "forms/settings/frmSettings.h"
#include "forms/settings/palette.h"

namespace veyra {

class QtSwatch;

/// The palette: the squares Colors(1) to Colors(48). Tab leads to one of them, the arrow keys from
/// there to the others.
class QtColorSelector : public QWidget {
  Q_OBJECT

 public:
  explicit QtColorSelector(QWidget* parent = nullptr);

 signals:
  void Pressed(std::size_t index, veyra::SwatchClick click);

 private:
  void AddSquare(std::size_t index);
  void Move(std::size_t index, int key);
  void MakeTabStop(std::size_t index);

  OneBased<QtSwatch*, decltype(kPalette)::size()> Colors_;
  std::size_t tab_stop_ = 1;
};

}  // namespace veyra
