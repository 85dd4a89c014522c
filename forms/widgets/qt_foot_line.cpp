#include "forms/widgets/qt_foot_line.h"

#include <QEvent>
#include <algorithm>

#include "forms/widgets/qt_notice.h"
#include "forms/widgets/qt_text.h"

namespace veyra {
namespace {

constexpr int kPadding = 4;
constexpr int kGap = 2;

/// In the month window what lies to the left of it may be a day.
constexpr double kShareOfWideWindow = 5.0 / 7;
constexpr int kNarrow = 500;

}  // namespace

QtFootLabel::QtFootLabel(QWidget& window) : QLabel(&window) {
  setObjectName(QStringLiteral("footLine"));
  DressAsNotice(*this, kPadding);
  window.installEventFilter(this);
}

void QtFootLabel::ShowLine(const QString& line) {
  line_ = line;
  setAccessibleName(line);
  setVisible(!line.isEmpty());
  if (line.isEmpty()) {
    return;
  }
  Place();
  raise();
  Announce(*this);
}

/// A narrow window has buttons above its foot, and little room below them. The end of the line,
/// which tells the key, stays in sight.
void QtFootLabel::Place() {
  const QWidget& window = *parentWidget();
  const bool is_narrow = window.width() < kNarrow;
  const int most = is_narrow ? window.width() - 2 * kGap
                             : static_cast<int>(window.width() * kShareOfWideWindow) - kGap;
  setMargin(is_narrow ? 0 : kPadding);
  const int frame = 2 * (margin() + frameWidth()) + 2;
  setText(fontMetrics().elidedText(line_, Qt::ElideMiddle, most - frame));
  setToolTip(PlainToolTip(line_));
  const QSize size(std::min(fontMetrics().horizontalAdvance(text()) + frame, most),
                   fontMetrics().height() + 2 * (margin() + frameWidth()));
  setGeometry(
      QRect({window.width() - kGap - size.width(), window.height() - kGap - size.height()}, size));
}

bool QtFootLabel::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize && isVisible()) {
    Place();
  }
  return QLabel::eventFilter(watched, event);
}

QtFootLine::QtFootLine(int shown) {
  end_.setSingleShot(true);
  end_.setInterval(shown);
  connect(&end_, &QTimer::timeout, this, [this] {
    line_.clear();
    ShowEverywhere();
  });
}

void QtFootLine::Add(QWidget& window) {
  std::erase_if(labels_, [](const auto& label) { return label.isNull(); });
  labels_.emplace_back(new QtFootLabel(window));
  labels_.back()->ShowLine(line_);
}

void QtFootLine::ShowFootLine(const Phrase& text) {
  line_ = OneLine(ToQString(text));
  ShowEverywhere();
  end_.start();
}

void QtFootLine::ShowEverywhere() {
  for (const auto& label : labels_) {
    if (label) {
      label->ShowLine(line_);
    }
  }
}

}  // namespace veyra
