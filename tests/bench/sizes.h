#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdlib>
#include <vector>

namespace veyra {

/// How many bookings the calendars have that are measured: a thousand and a hundred thousand, and a
/// million when VEYRA_BENCH_MILLION is set.
inline std::vector<std::int64_t> BookingCounts() {
  std::vector<std::int64_t> counts{1'000, 100'000};
  if (std::getenv("VEYRA_BENCH_MILLION") != nullptr) {
    counts.push_back(1'000'000);
  }
  return counts;
}

/// Registers a row of each size.
inline void OfAllSizes(benchmark::internal::Benchmark* row) {
  row->ArgsProduct({BookingCounts()});
}

}  // namespace veyra
