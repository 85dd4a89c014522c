#include "forms/widgets/qt_progress_box.h"

#include <QCloseEvent>
#include <QLabel>
#include <limits>

namespace veyra {
namespace {

constexpr int kWidth = 340;

}  // namespace

QtProgressBox::QtProgressBox(BreakOff break_off, QWidget* parent)
    : QProgressDialog(parent), break_off_(break_off) {
  setWindowTitle(QLatin1String(kApplicationTitle));
  setWindowModality(Qt::ApplicationModal);
  setAutoReset(false);
  setAutoClose(false);
  setMinimumWidth(kWidth);
  findChild<QLabel*>()->setTextFormat(Qt::PlainText);
  // The box is shown by its owner alone.
  setMinimumDuration(std::numeric_limits<int>::max());
  if (break_off == BreakOff::Refused) {
    setCancelButton(nullptr);
  }
}

void QtProgressBox::reject() {
  if (break_off_ == BreakOff::Allowed) {
    cancel();
  }
}

void QtProgressBox::closeEvent(QCloseEvent* event) {
  event->ignore();
  reject();
}

}  // namespace veyra
