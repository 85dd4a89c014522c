#pragma once

#include <QObject>
#include <functional>

#include "logic/clock.h"

namespace veyra {

/// Has what is shown read anew when the program comes to the front after another one was used, and
/// when midnight has passed. While the operator must not be disturbed it waits.
class FrontRefresh : public QObject {
 public:
  /// How often it looks at the clock, and whether the wait is over, in ms.
  static constexpr int kLook = 5'000;

  struct Desk {
    std::function<bool()> IsBusy;
    std::function<void()> ReadAnew;
  };

  /// `owner` owns it; `clock` must outlive it. REQUIRES: a QApplication.
  FrontRefresh(QObject* owner, const Clock& clock, Desk desk, int look = kLook);

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  void Want();

  const Clock& clock_;
  Desk desk_;
  Date today_;
  bool was_away_ = false;  ///< Another program is being used.
  bool is_wanted_ = false;
};

}  // namespace veyra
