#pragma once

#include <memory>
#include <string>

#include "data/waiting.h"
#include "forms/handler_guard.h"

namespace veyra {

class QtProgressBox;

/// The sign that a store waits for another program: from half a second on a box over the window in
/// use, whose "Cancel" ends the wait. While it is on the screen no other window takes input and no
/// event handler is run, for a handler could use the store that is waiting; before that no event is
/// looked at.
class QtWaitingSign : public WaitObserver {
 public:
  /// `guard` runs all event handlers that use a store. It must outlive the sign.
  explicit QtWaitingSign(HandlerGuard& guard);
  ~QtWaitingSign() override;

  bool StillWaiting(const std::string& file, std::chrono::milliseconds waited) override;
  void WaitEnded() override;

  /// Whether a store is waiting, in the middle of a call to it.
  bool IsWaiting() const { return waiting_; }

 private:
  void Show(const std::string& file);

  HandlerGuard& guard_;
  std::unique_ptr<QtProgressBox> box_;
  bool waiting_ = false;
};

}  // namespace veyra
