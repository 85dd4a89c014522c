#include "forms/widgets/qt_hint.h"

#include <QEvent>
#include <algorithm>

#include "forms/widgets/qt_notice.h"

namespace veyra {
namespace {

constexpr int kGap = 2;
constexpr int kPadding = 4;

}  // namespace

QtHint::QtHint(QWidget& control) : QLabel(&control), control_(control) {
  setObjectName(QStringLiteral("hint"));
  DressAsNotice(*this, kPadding);
  setWordWrap(true);
}

void QtHint::ShowText(const QString& text) {
  if (text == this->text()) {
    return;
  }
  setText(text);
  if (text.isEmpty()) {
    hide();
    return;
  }
  if (parentWidget() != control_.window()) {
    setParent(control_.window());
    parentWidget()->installEventFilter(this);
  }
  Place();
  show();
  raise();
  Announce(*this);
}

void QtHint::Place() {
  const QWidget& window = *parentWidget();
  const QPoint below = control_.mapTo(&window, QPoint(0, control_.height() + kGap));
  const int one_line = fontMetrics().horizontalAdvance(text()) + 2 * (kPadding + frameWidth()) + 2;
  const int width = std::min(one_line, window.width() - 2 * kGap);
  const int left = std::clamp(below.x(), kGap, window.width() - kGap - width);
  setGeometry(left, below.y(), width, heightForWidth(width));
}

/// The control takes its new place only after its window has taken its size.
bool QtHint::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize && isVisible()) {
    QMetaObject::invokeMethod(this, &QtHint::Place, Qt::QueuedConnection);
  }
  return QLabel::eventFilter(watched, event);
}

}  // namespace veyra
