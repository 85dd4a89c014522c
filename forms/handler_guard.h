#pragma once

#include <exception>
#include <functional>

#include "logic/dialogs.h"

namespace veyra {

/// The standard error report: what the operator is told of an exception that no handler dealt with.
Message StandardReport(const std::exception& failure);

/// Runs event handlers. An exception that leaves one ends the action and is shown as the standard
/// report; the program goes on.
class HandlerGuard {
 public:
  /// `dialogs` must outlive the guard.
  explicit HandlerGuard(Dialogs& dialogs) : dialogs_(dialogs) {}

  /// Runs a handler, or nothing while handlers are held back.
  void Run(const std::function<void()>& handler) const;

  /// Holds handlers back, or lets them run again. For the middle of a call to a store.
  void Hold(bool held) { held_ = held; }

 private:
  Dialogs& dialogs_;
  bool held_ = false;
};

}  // namespace veyra
