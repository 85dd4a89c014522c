#pragma once

#include <QLabel>

namespace veyra {

/// labAbout(i): a text that reports a click on it. As a link it looks like one, and Tab leads to
/// it: Enter and Space are its clicks.
class QtAboutLabel : public QLabel {
  Q_OBJECT

 public:
  explicit QtAboutLabel(const QString& text, QWidget* parent = nullptr);

  void MakeLink();

 signals:
  void Clicked();

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace veyra
