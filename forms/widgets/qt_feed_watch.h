#pragma once

#include <QObject>
#include <functional>
#include <memory>

class QSocketNotifier;

namespace veyra {

/// Waits in the event loop for what a feed tells, and has it shown when the operator is not in the
/// middle of anything. What is told at a stroke is shown at once. Nothing is done while nothing is
/// told: there is no timer.
class QtFeedWatch : public QObject {
 public:
  struct Desk {
    std::function<bool()> Take;    ///< Takes what was told; whether anything is to be shown.
    std::function<bool()> IsBusy;  ///< Whether the operator must not be disturbed now.
    std::function<void()> Show;
  };

  /// REQUIRES: a QApplication.
  explicit QtFeedWatch(Desk desk);
  ~QtFeedWatch() override;

  /// Waits on that descriptor from now on; on none when it is -1. To be called before a descriptor
  /// that is waited on is closed.
  void Watch(int descriptor);

 private:
  void LookWhetherDone();
  void ShowNow();

  Desk desk_;
  std::unique_ptr<QSocketNotifier> notifier_;
  bool is_wanted_ = false;
  bool is_due_ = false;  ///< It is shown as soon as the events before it are dealt with.
};

}  // namespace veyra
