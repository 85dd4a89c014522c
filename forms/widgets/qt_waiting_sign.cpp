#include "forms/widgets/qt_waiting_sign.h"

#include <QApplication>

#include "forms/widgets/qt_progress_box.h"
#include "forms/widgets/qt_text.h"
#include "forms/widgets/qt_window_in_use.h"

namespace veyra {
namespace {

constexpr std::chrono::milliseconds kUnseen{500};

}  // namespace

QtWaitingSign::QtWaitingSign(HandlerGuard& guard) : guard_(guard) {}

QtWaitingSign::~QtWaitingSign() = default;

bool QtWaitingSign::StillWaiting(const std::string& file, std::chrono::milliseconds waited) {
  waiting_ = true;
  if (waited < kUnseen) {
    return true;
  }
  if (!box_) {
    Show(file);
  }
  QCoreApplication::processEvents();
  return !box_->wasCanceled();
}

void QtWaitingSign::WaitEnded() {
  waiting_ = false;
  if (box_) {
    box_.reset();
    guard_.Hold(false);
  }
}

void QtWaitingSign::Show(const std::string& file) {
  guard_.Hold(true);
  box_ = std::make_unique<QtProgressBox>(EarlyEnd::Cancel, WindowInUse());
  box_->setLabelText(ToQString(Phrase::Tr("Waiting for another program …") + "\n" + file));
  // No end can be foreseen: the bar only shows that the program is alive.
  box_->setRange(0, 0);
  box_->show();
}

}  // namespace veyra
