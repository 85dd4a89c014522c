#include "forms/qt_progress.h"

#include <QApplication>
#include <QCloseEvent>
#include <algorithm>

#include "forms/qt_text.h"

namespace veyra {
namespace {

constexpr int kMillisecondsUnseen = 500;
constexpr int kSteps = 1000;

}  // namespace

QtProgress::QtProgress(const std::string& text, BreakOff break_off)
    : QProgressDialog(QApplication::activeWindow()), break_off_(break_off) {
  setWindowTitle(QLatin1String(kApplicationTitle));
  setWindowModality(Qt::ApplicationModal);
  setLabelText(OneLine(text));
  setMinimumDuration(kMillisecondsUnseen);
  setRange(0, kSteps);
  setAutoClose(false);
  setAutoReset(false);
  if (break_off == BreakOff::Refused) {
    setCancelButton(nullptr);
  }
  setValue(0);
}

bool QtProgress::Report(std::int64_t done, std::int64_t total) {
  const double share =
      static_cast<double>(done) / static_cast<double>(std::max<std::int64_t>(total, 1));
  setValue(static_cast<int>(std::clamp(share, 0.0, 1.0) * kSteps));
  return break_off_ == BreakOff::Refused || !wasCanceled();
}

void QtProgress::reject() {
  if (break_off_ == BreakOff::Allowed) {
    cancel();
  }
}

void QtProgress::closeEvent(QCloseEvent* event) {
  if (break_off_ == BreakOff::Allowed) {
    QProgressDialog::closeEvent(event);
  } else {
    event->ignore();
  }
}

}  // namespace veyra
