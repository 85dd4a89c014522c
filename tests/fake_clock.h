#pragma once

#include "logic/clock.h"

namespace veyra {

/// A clock that stands still: noon of the day it is set to.
class FakeClock : public Clock {
 public:
  explicit FakeClock(int year, int month, int day) { Set(year, month, day); }

  void Set(int year, int month, int day) { now_ = {MakeDate(year, month, day).value(), 12, 0, 0}; }
  void SetTime(int hour, int minute, int second) {
    now_.Hour = hour;
    now_.Minute = minute;
    now_.Second = second;
  }

  DateTime Now() const override { return now_; }

 private:
  DateTime now_;
};

}  // namespace veyra
