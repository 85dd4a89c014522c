#pragma once

#include <chrono>
#include <string>

namespace veyra {

/// How long a store waits for another program to let go of the file before it gives up.
inline constexpr std::chrono::milliseconds kStoreTimeout{5000};

/// Is told while a store waits for another program, in the thread that uses the store and in the
/// middle of its work.
class WaitObserver {
 public:
  virtual ~WaitObserver() = default;

  /// Called every few milliseconds of a wait that began `waited` ago. Returns false to end it at
  /// once. Must not use any store, nor let anything run that does, and must not throw.
  virtual bool StillWaiting(const std::string& file, std::chrono::milliseconds waited) = 0;

  /// The wait is over: the file is free, or the store has given up. Follows the last StillWaiting.
  virtual void WaitEnded() = 0;
};

/// How a store waits for another program.
struct WaitPolicy {
  WaitPolicy(std::chrono::milliseconds timeout = kStoreTimeout, WaitObserver* observer = nullptr)
      : Timeout(timeout), Observer(observer) {}

  std::chrono::milliseconds Timeout;  ///< The longest wait of one call to the store.
  WaitObserver* Observer;             ///< Told of each wait; null for nobody. Outlives the store.
  std::string File;                   ///< What is waited for. Filled in by OpenStore.
};

/// One wait for another program, which begins when the store first has to wait.
class Wait {
 public:
  explicit Wait(WaitPolicy policy);
  ~Wait();
  Wait(const Wait&) = delete;
  Wait& operator=(const Wait&) = delete;

  /// Pauses for some milliseconds and returns true: try again. Returns false when the time is over
  /// or the observer has ended the wait.
  bool GoOn();

  /// Ends the wait, if one is on. The next GoOn begins another, with all the time again.
  void End();

  /// Whether the observer has ended the wait that is on, or the last one.
  bool WasCancelled() const { return cancelled_; }

 private:
  void Begin();

  WaitPolicy policy_;
  bool waiting_ = false;
  bool cancelled_ = false;
  std::chrono::steady_clock::time_point begun_;
};

}  // namespace veyra
