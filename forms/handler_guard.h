#pragma once

#include <exception>
#include <functional>
#include <utility>

#include "logic/dialogs.h"

namespace veyra {

/// The standard error report: what the operator is told of an exception that no handler dealt with.
Message StandardReport(const std::exception& failure);

/// Runs event handlers. An exception that leaves one ends the action; what is shown is filled anew,
/// and the exception is shown as the standard report. The program goes on.
class HandlerGuard {
 public:
  /// `dialogs` must outlive the guard.
  explicit HandlerGuard(Dialogs& dialogs) : dialogs_(dialogs) {}

  /// `open_anew` opens the calendar file anew and shows what is in it. It is offered to the
  /// operator when a handler has found the file replaced; when it throws, that is reported too.
  void SetReopening(std::function<void()> open_anew) { open_anew_ = std::move(open_anew); }

  /// `fill_anew` shows what the calendar holds. When it throws, the report says that what is shown
  /// may be old.
  void SetRecovery(std::function<void()> fill_anew) { fill_anew_ = std::move(fill_anew); }

  /// `tell` is called when a handler has returned. What it throws is dealt with like the handler's.
  void SetAfterwards(std::function<void()> tell) { tell_ = std::move(tell); }

  /// Runs a handler, or nothing while handlers are held back.
  void Run(const std::function<void()>& handler) const;

  /// Whether a handler is running, or a box of its is shown.
  bool IsRunning() const { return running_ > 0; }

  /// Holds handlers back, or lets them run again. For the middle of a call to a store.
  void Hold(bool held) { held_ = held; }

 private:
  void OfferToOpenAnew() const;
  bool IsFilledAnew() const;

  Dialogs& dialogs_;
  std::function<void()> fill_anew_;
  bool held_ = false;
  mutable int running_ = 0;  ///< How many handlers, one within the other.
  std::function<void()> open_anew_;
  std::function<void()> tell_;
};

}  // namespace veyra
