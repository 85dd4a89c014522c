#pragma once

#include <QListWidget>
#include <optional>

#include "forms/month/qt_plain_lines.h"
#include "forms/mouse_button.h"
#include "logic/listings.h"

namespace veyra {

/// lstDay(i): lists the bookings of one day. Nothing is selected in it: it reports what is done to
/// the day as a whole. Control with the arrow keys scrolls it.
class QtDayList : public QListWidget {
  Q_OBJECT

 public:
  explicit QtDayList(QWidget* parent = nullptr);

  /// Shows these lines, each on one line, from the first one's beginning; where the list has been
  /// scrolled to when `stays` is true.
  void ShowLines(const modRes::DayLines& lines, bool stays = false);

  /// What is to be seen of a line: as the list begins it, its beginning and an ellipsis when it is
  /// longer than the list is wide; all of it once the list has been scrolled sideways.
  QString ShownText(const QString& line) const;

  /// How lines of plain signs are drawn in this font.
  const QtPlainLines& PlainLines() const;

  void SetBackground(const QColor& color);

  /// Sets the size of the fixed-pitch font.
  void SetPointSize(double size);

  /// The style of both scroll bars; it must outlive the list.
  void SetBarStyle(QStyle* style);

 signals:
  void Pressed(veyra::MouseButton button);  ///< By the mouse or by a key that means the same.
  void MoveKeyPressed(int key);             ///< An arrow key, Home or End, as Qt::Key.
  void FocusChanged();

 protected:
  bool viewportEvent(QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void ScrollBy(int key);

  modRes::DayLines lines_;
  mutable std::optional<QtPlainLines> plain_lines_;  ///< Nothing until a line is measured.
};

}  // namespace veyra
