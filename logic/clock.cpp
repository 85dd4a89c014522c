#include "logic/clock.h"

#include <ctime>
#include <stdexcept>

namespace veyra {

DateTime SystemClock::Now() const {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  if (localtime_r(&now, &local) == nullptr) {
    throw std::runtime_error("The clock of this machine cannot be read.");
  }
  const auto day = MakeDate(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
  return {day.value(), local.tm_hour, local.tm_min, local.tm_sec};
}

}  // namespace veyra
