#pragma once

#include <QLabel>
#include <QPointer>
#include <QTimer>
#include <string>
#include <vector>

#include "forms/desk_undo.h"

namespace veyra {

/// A line over the foot of a window, in its right corner. It moves nothing.
class QtFootLabel : public QLabel {
  Q_OBJECT

 public:
  /// Hidden at first. The window owns it.
  explicit QtFootLabel(QWidget& window);

  /// Shows the text and has assistive programs say it; an empty one hides the line.
  void ShowLine(const QString& line);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Place();

  QString line_;
};

/// The line at the foot of all windows that were added and are still there.
class QtFootLine : public QObject, public FootLine {
  Q_OBJECT

 public:
  /// How long the line is shown, in ms.
  static constexpr int kShown = 30'000;

  /// `shown`: see kShown.
  explicit QtFootLine(int shown = kShown);

  /// Adds a window, which shows from its first moment what is being shown.
  void Add(QWidget& window);

  void ShowFootLine(const Phrase& text) override;

 private:
  void ShowEverywhere();

  std::vector<QPointer<QtFootLabel>> labels_;
  QString line_;
  QTimer end_;
};

}  // namespace veyra
