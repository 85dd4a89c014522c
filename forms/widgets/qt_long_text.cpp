#include "forms/widgets/qt_long_text.h"

#include <QEvent>
#include <QLabel>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>

#include "forms/widgets/qt_painted_text.h"

namespace veyra {
namespace {

constexpr int kGap = 4;

struct Parts {
  QString First;
  QString Middle;
  QString Last;
};

/// A text of less than three lines is all middle.
Parts PartsOf(const QString& text) {
  const qsizetype first_end = text.indexOf(u'\n');
  const qsizetype last_begin = text.lastIndexOf(u'\n') + 1;
  if (first_end < 0 || last_begin == first_end + 1) {
    return {{}, text, {}};
  }
  return {text.left(first_end), text.mid(first_end + 1, last_begin - first_end - 2),
          text.mid(last_begin)};
}

int HeightOf(const QString& text, int width, QLabel& label) {
  return QtPaintedText(text, width, &label).height();
}

bool HasWordWiderThan(int width, const QLabel& label) {
  const QStringList words = label.text().split(QRegularExpression(QStringLiteral("\\s+")));
  return std::any_of(words.cbegin(), words.cend(), [&](const QString& word) {
    return label.fontMetrics().horizontalAdvance(word) > width;
  });
}

void ScrollByKey(Qt::Key key, QAbstractSlider::SliderAction action, QScrollArea* area) {
  auto* shortcut = new QShortcut(QKeySequence(key), area->window());
  QObject::connect(shortcut, &QShortcut::activated, area,
                   [area, action] { area->verticalScrollBar()->triggerAction(action); });
}

}  // namespace

void QtLongText::Fit(QLabel& label, int width, int most_height) {
  if (label.heightForWidth(width) > most_height || HasWordWiderThan(width, label)) {
    new QtLongText(label, width, most_height);
  }
}

QtLongText::QtLongText(QLabel& label, int width, int most_height)
    : QObject(&label), label_(label), width_(width), column_(new QVBoxLayout(&label)) {
  column_->setContentsMargins(0, 0, 0, 0);
  column_->setSpacing(kGap);
  label_.installEventFilter(this);
  const QString text = label_.text();
  const int whole = HeightOf(text, width, label_);
  const QMargins around = label_.contentsMargins();
  label_.setFixedSize(QSize(width, std::min(whole, most_height)).grownBy(around));
  if (whole <= most_height) {
    AddFixed(text);
    return;
  }
  const Parts parts = PartsOf(text);
  const int rest =
      most_height - HeightOf(parts.First, width, label_) - HeightOf(parts.Last, width, label_);
  if (rest < most_height / 2) {
    AddScrolling(text);
    return;
  }
  AddFixed(parts.First);
  AddScrolling(parts.Middle);
  AddFixed(parts.Last);
}

void QtLongText::AddFixed(const QString& text) {
  if (!text.isEmpty()) {
    column_->addWidget(new QtPaintedText(text, width_, &label_));
  }
}

void QtLongText::AddScrolling(const QString& text) {
  auto* area = new QScrollArea(&label_);
  area->setFrameShape(QFrame::NoFrame);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  const int bar_width = area->verticalScrollBar()->sizeHint().width();
  area->setWidget(new QtPaintedText(text, width_ - bar_width, area));
  ScrollByKey(Qt::Key_PageDown, QAbstractSlider::SliderPageStepAdd, area);
  ScrollByKey(Qt::Key_PageUp, QAbstractSlider::SliderPageStepSub, area);
  column_->addWidget(area, 1);
}

/// What the label itself would paint is painted by its parts.
bool QtLongText::eventFilter(QObject* watched, QEvent* event) {
  return event->type() == QEvent::Paint || QObject::eventFilter(watched, event);
}

}  // namespace veyra
