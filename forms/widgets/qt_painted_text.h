#pragma once

#include <QString>
#include <QTextDocument>
#include <QWidget>

namespace veyra {

/// A plain text that is only for the eye: assistive programs find it elsewhere. Its lines break at
/// blanks, and within a word that is too long for a line.
class QtPaintedText : public QWidget {
  Q_OBJECT

 public:
  /// The widget is as high as the text is in lines of `width` pixels.
  QtPaintedText(const QString& text, int width, QWidget* parent);

  QString Text() const { return lines_.toPlainText(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QTextDocument lines_;
};

}  // namespace veyra
