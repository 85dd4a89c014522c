#include "forms/widgets/qt_progress.h"

#include <QApplication>
#include <algorithm>

#include "forms/widgets/qt_progress_box.h"
#include "forms/widgets/qt_text.h"
#include "forms/widgets/qt_window_in_use.h"

namespace veyra {
namespace {

constexpr qint64 kUnseenMilliseconds = 500;
constexpr qint64 kMillisecondsBetweenLooks = 40;
constexpr int kBarSteps = 1000;

int BarValue(std::int64_t done, std::int64_t total) {
  if (total <= 0) {
    return 0;
  }
  const double share = static_cast<double>(done) / static_cast<double>(total);
  return static_cast<int>(std::clamp(share, 0.0, 1.0) * kBarSteps);
}

}  // namespace

QtProgress::QtProgress(const Phrase& text, EarlyEnd early_end)
    : text_(text), early_end_(early_end) {
  since_start_.start();
  since_look_.start();
}

QtProgress::~QtProgress() = default;

bool QtProgress::Report(std::int64_t done, std::int64_t total) {
  if (ended_ || since_start_.elapsed() < kUnseenMilliseconds ||
      (box_ && since_look_.elapsed() < kMillisecondsBetweenLooks)) {
    return !ended_;
  }
  if (!box_) {
    Show();
  }
  box_->setLabelText(ToQString(text_ + "\n" + Phrase::Tr("%1 of %2", done, total)));
  box_->setValue(BarValue(done, total));
  QCoreApplication::processEvents();
  since_look_.restart();
  ended_ = box_->wasCanceled();
  return !ended_;
}

void QtProgress::Show() {
  box_ = std::make_unique<QtProgressBox>(early_end_, WindowInUse());
  box_->setRange(0, kBarSteps);
  box_->show();
}

}  // namespace veyra
