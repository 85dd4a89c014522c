#pragma once

#include <QLabel>

namespace veyra {

/// A line right below a control that tells what is wrong with its contents. It lies over what is
/// there, as wide as its text needs and the window allows.
class QtHint : public QLabel {
  Q_OBJECT

 public:
  /// Hidden at first. `control` must outlive the hint.
  explicit QtHint(QWidget& control);

  /// Shows the text and has assistive programs say it; an empty one hides the line.
  void ShowText(const QString& text);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Place();

  QWidget& control_;
};

}  // namespace veyra
