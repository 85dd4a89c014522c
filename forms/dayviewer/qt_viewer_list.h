#pragma once

#include <QListWidget>
#include <string>
#include <vector>

#include "forms/mouse_button.h"
#include "logic/listings.h"

namespace veyra {

/// lstDay: the bookings of a day in large type, of which several can be selected.
class QtViewerList : public QListWidget {
  Q_OBJECT

 public:
  explicit QtViewerList(QWidget* parent = nullptr);

  /// Shows these lines. Those that stay are still selected, and the list where it was scrolled to.
  void ShowLines(const modRes::DayLines& lines);

  /// The lines that are selected, top to bottom.
  std::vector<std::string> SelectedLines() const;

 signals:
  /// By the mouse or by a key that means the same. A press has changed the selection by then.
  void Pressed(veyra::MouseButton button);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  modRes::DayLines lines_;
};

}  // namespace veyra
