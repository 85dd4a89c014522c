#pragma once

#include <QTimer>
#include <functional>

namespace veyra {

/// Has a piece of work done again and again while it is switched on, between the events of the
/// windows.
class QtPiecework {
 public:
  explicit QtPiecework(const std::function<void()>& piece) {
    QObject::connect(&timer_, &QTimer::timeout, piece);
  }

  void KeepWorking(bool working) {
    if (!working) {
      timer_.stop();
    } else if (!timer_.isActive()) {
      timer_.start();
    }
  }

 private:
  QTimer timer_;
};

}  // namespace veyra
