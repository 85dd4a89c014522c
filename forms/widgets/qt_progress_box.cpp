#include "forms/widgets/qt_progress_box.h"

#include <QCloseEvent>
#include <QLabel>
#include <limits>

namespace veyra {
namespace {

constexpr int kWidth = 340;

}  // namespace

QtProgressBox::QtProgressBox(EarlyEnd early_end, QWidget* parent)
    : QProgressDialog(parent), early_end_(early_end) {
  setWindowTitle(QLatin1String(kApplicationTitle));
  setWindowModality(Qt::ApplicationModal);
  setAutoReset(false);
  setAutoClose(false);
  setMinimumWidth(kWidth);
  findChild<QLabel*>()->setTextFormat(Qt::PlainText);
  // The box is shown by its owner alone.
  setMinimumDuration(std::numeric_limits<int>::max());
  if (early_end == EarlyEnd::None) {
    setCancelButton(nullptr);
  } else {
    setCancelButtonText(early_end == EarlyEnd::Stop ? QStringLiteral("&Stop")
                                                    : QStringLiteral("&Cancel"));
  }
}

void QtProgressBox::reject() {
  if (early_end_ != EarlyEnd::None) {
    cancel();
  }
}

void QtProgressBox::closeEvent(QCloseEvent* event) {
  event->ignore();
  reject();
}

}  // namespace veyra
