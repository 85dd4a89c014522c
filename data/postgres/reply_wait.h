#pragma once

#include <chrono>

#include "data/waiting.h"

namespace veyra::postgres {

/// One wait for the server, which tells the policy's observer how long it has lasted.
class ReplyWait {
 public:
  explicit ReplyWait(const WaitPolicy& policy) : policy_(policy) {}
  ~ReplyWait();
  ReplyWait(const ReplyWait&) = delete;
  ReplyWait& operator=(const ReplyWait&) = delete;

  /// Waits until the socket can be read, or written to where that is asked for, but only for some
  /// milliseconds; then the observer is told. Returns whether it can be.
  bool Poll(int socket, bool for_writing);

  /// Whether the observer has ended the wait.
  bool WasCancelled() const { return was_cancelled_; }

  std::chrono::milliseconds Lasted() const;

 private:
  const WaitPolicy& policy_;
  std::chrono::steady_clock::time_point begun_ = std::chrono::steady_clock::now();
  bool was_told_ = false;
  bool was_cancelled_ = false;
};

}  // namespace veyra::postgres
