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

  void Run(const std::function<void()>& handler) const;

 private:
  Dialogs& dialogs_;
};

}  // namespace veyra
