#include "data/sqlite/delayed_flush.h"

#include "data/errors.h"
#include "data/store_errors.h"

namespace veyra::sqlite {

namespace {

/// The longest that a change waits to be flushed while others are made.
constexpr std::chrono::seconds kLongestDelay{1};

}  // namespace

void DelayedFlush::Delay() {
  try {
    database_.SetFlushesEachChange(false);
  } catch (const DatabaseError&) {
    return;  // Each change is flushed by itself, then.
  }
  delays_ = true;
  does_it_itself_ = true;
  last_try_ = now_();
}

void DelayedFlush::AfterChange() {
  if (!does_it_itself_) {
    return;
  }
  is_flushed_ = false;
  if (!delays_) {
    FlushLog();
  } else if (now_() - last_try_ >= kLongestDelay) {
    try {
      FlushLog();
    } catch (const OutcomeUnknownError&) {
      // Tried again before anything is told of the changes: by Flush.
    }
  }
}

void DelayedFlush::Flush() {
  delays_ = false;
  FlushLog();
  if (does_it_itself_) {
    database_.SetFlushesEachChange(true);
    does_it_itself_ = false;
  }
}

void DelayedFlush::FlushLog() {
  if (is_flushed_) {
    return;
  }
  last_try_ = now_();
  try {
    database_.FlushLog();
  } catch (const DatabaseError& failure) {
    throw OutcomeUnknown(database_.file(), failure.report().Cause);
  }
  is_flushed_ = true;
}

}  // namespace veyra::sqlite
