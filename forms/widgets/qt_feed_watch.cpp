#include "forms/widgets/qt_feed_watch.h"

#include <QAbstractEventDispatcher>
#include <QSocketNotifier>
#include <utility>

namespace veyra {

QtFeedWatch::QtFeedWatch(Desk desk) : desk_(std::move(desk)) {}

QtFeedWatch::~QtFeedWatch() = default;

/// A box or a drag ends with an event, after which the program comes to rest.
void QtFeedWatch::Watch(int descriptor) {
  auto* events = QAbstractEventDispatcher::instance();
  disconnect(events, nullptr, this, nullptr);
  notifier_.reset();
  is_wanted_ = false;
  if (descriptor < 0) {
    return;
  }
  connect(events, &QAbstractEventDispatcher::aboutToBlock, this, [this] { LookWhetherDone(); });
  notifier_ = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
  connect(notifier_.get(), &QSocketNotifier::activated, this, [this] {
    is_wanted_ = desk_.Take() || is_wanted_;
    LookWhetherDone();
  });
}

void QtFeedWatch::LookWhetherDone() {
  if (is_wanted_ && !is_due_ && !desk_.IsBusy()) {
    is_due_ = true;
    QMetaObject::invokeMethod(
        this, [this] { ShowNow(); }, Qt::QueuedConnection);
  }
}

/// Wanted no more before it is shown: that may show a box, and so come back here.
void QtFeedWatch::ShowNow() {
  is_due_ = false;
  if (is_wanted_ && !desk_.IsBusy()) {
    is_wanted_ = false;
    desk_.Show();
  }
}

}  // namespace veyra
