#pragma once

#include "data/date.h"

namespace veyra {

/// What time it is here. Handed in, so that a test can say.
class Clock {
 public:
  virtual ~Clock() = default;

  /// The local date and time of day.
  virtual DateTime Now() const = 0;

  /// The local date.
  Date Today() const { return Now().Day; }
};

/// The clock of this machine, in its time zone.
class SystemClock : public Clock {
 public:
  DateTime Now() const override;
};

}  // namespace veyra
