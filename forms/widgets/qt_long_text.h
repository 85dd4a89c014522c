#pragma once

#include <QObject>

class QLabel;
class QVBoxLayout;

namespace veyra {

/// Shows the plain text of a label that cannot show it itself: one that is higher than there is
/// room for, or has a word that is longer than a line. Of a text that is too high the first and the
/// last line stay in sight, what lies between them scrolls, Page Up and Page Down of the window
/// included. To assistive programs it stays one label with the whole text, to the letter.
class QtLongText : public QObject {
  Q_OBJECT

 public:
  /// Takes the label over, which owns it, when that is needed to keep within `width` pixels and
  /// `most_height`; does nothing otherwise.
  static void Fit(QLabel& label, int width, int most_height);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QtLongText(QLabel& label, int width, int most_height);

  void AddFixed(const QString& text);
  void AddScrolling(const QString& text);

  QLabel& label_;
  int width_;
  QVBoxLayout* column_;
};

}  // namespace veyra
