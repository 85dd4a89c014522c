#pragma once

#include <chrono>
#include <functional>
#include <utility>

#include "data/sqlite/database.h"

namespace veyra::sqlite {

/// Has the changes of a file that is kept with a log flushed together, see Store::DelayFlushes: the
/// log is a chain, of which a loss of power leaves the beginning.
class DelayedFlush {
 public:
  using Clock = std::chrono::steady_clock;

  /// `database` must outlive it. Each change is flushed by itself until Delay is called.
  explicit DelayedFlush(Database& database, std::function<Clock::time_point()> now = Clock::now)
      : database_(database), now_(std::move(now)) {}

  /// REQUIRES: the file is kept with a log; no change is open.
  void Delay();

  /// To be called after each change. Throws OutcomeUnknownError only when Flush has done so, and
  /// the change cannot be flushed either.
  void AfterChange();

  /// Ends the delay; throws OutcomeUnknownError when the disk fails.
  void Flush();

 private:
  void FlushLog();

  Database& database_;
  std::function<Clock::time_point()> now_;
  bool delays_ = false;
  bool does_it_itself_ = false;  ///< SQLite does not flush changes.
  bool is_flushed_ = true;
  Clock::time_point last_try_;
};

}  // namespace veyra::sqlite
