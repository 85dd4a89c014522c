#pragma once

#include <QAbstractButton>
#include <QColor>

#include "forms/settings/frmSettings.h"

namespace veyra {

/// A square of one colour with an edge that stands out from any. A press of the mouse is a click
/// on it, as is Space or Enter, with or without Shift.
class QtSwatch : public QAbstractButton {
  Q_OBJECT

 public:
  explicit QtSwatch(QWidget* parent = nullptr);

  void ShowColor(const QColor& color);
  const QColor& Color() const { return color_; }

  QSize sizeHint() const override;

 signals:
  void Pressed(veyra::SwatchClick click);
  void MoveKeyPressed(int key);  ///< An arrow key, as Qt::Key.

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor color_;
};

/// "#C04000"
QString WebName(const QColor& color);

}  // namespace veyra
