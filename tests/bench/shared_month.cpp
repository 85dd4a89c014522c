#include <benchmark/benchmark.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "data/open_store.h"

/// One desk among many on the shared calendar that the variable VEYRA_CALENDAR names: a month, and
/// a booking that is taken back.
namespace veyra {
namespace {

std::unique_ptr<Store> OpenShared() {
  const char* const file = std::getenv("VEYRA_CALENDAR");
  return OpenStore(file == nullptr ? "" : file, StoreAccess::ReadWrite,
                   WaitPolicy(std::chrono::seconds(30)));
}

std::vector<Query> DaysOfMonth(int month) {
  std::vector<Query> days;
  for (int day = 1; day <= 28; ++day) {
    days.push_back(ParseQuery("SELECT * FROM Reserv WHERE RmID = 3 AND DateOfRes = #" +
                              std::to_string(month) + "/" + std::to_string(day) +
                              "/2026# ORDER BY TimeFrom"));
  }
  return days;
}

void BM_Month(benchmark::State& state) {
  const auto store = OpenShared();
  int month = 0;
  std::int64_t bookings = 0;
  for (auto _ : state) {
    for (const auto& day : store->SelectAll(DaysOfMonth(1 + month++ % 12))) {
      for (Row row; day->Next(row);) {
        ++bookings;
      }
    }
  }
  state.counters["bookings"] =
      benchmark::Counter(static_cast<double>(bookings), benchmark::Counter::kAvgIterations);
}
BENCHMARK(BM_Month)->Unit(benchmark::kMillisecond);

void BM_BookAndDelete(benchmark::State& state) {
  const auto store = OpenShared();
  for (auto _ : state) {
    const Row row = store->Insert("Reserv", {{"RmID", std::int64_t{999}},
                                             {"Event", "Guest"},
                                             {"DateOfRes", MakeDate(2026, 3, 5).value()},
                                             {"TimeFrom", std::int64_t{1}},
                                             {"TimeTo", std::int64_t{2}},
                                             {"MultKey", 0.0}});
    store->Delete("Reserv", row);
  }
}
BENCHMARK(BM_BookAndDelete)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace veyra

BENCHMARK_MAIN();
