#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdint>
#include <string>

#include "tests/bench/desk.h"
#include "tests/bench/raw_calendar.h"

namespace veyra {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::int64_t kSmall = 1'000;
constexpr std::int64_t kLarge = 100'000;

double SecondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

/// Measures `action` on a fresh desk; `prepare` goes before it.
template <typename Prepare, typename Action>
void Measure(benchmark::State& state, const DeskCalendar& calendar, const Prepare& prepare,
             const Action& action) {
  double longest = 0;
  for (auto _ : state) {
    Desk desk(calendar);
    prepare(desk);
    const double before = desk.Operator().LongestWait();
    const auto start = Clock::now();
    action(desk);
    state.SetIterationTime(SecondsSince(start));
    longest = std::max(before, desk.Operator().LongestWait());
    state.SetLabel(desk.Operator().LastBox());
  }
  state.counters["longest_wait_ms"] = longest * 1000;
}

void Nothing(Desk&) {}

void Series(benchmark::State& state, FileKind kind) {
  const auto dates = static_cast<int>(state.range(0));
  Measure(state, {kind, state.range(1)}, Nothing, [&](Desk& desk) { desk.BookSeries(dates); });
}

void CheckOfSeries(benchmark::State& state, FileKind kind) {
  const auto dates = static_cast<int>(state.range(0));
  Measure(state, {kind, state.range(1)}, Nothing, [&](Desk& desk) { desk.CheckSeries(dates); });
}

void OneBooking(benchmark::State& state, FileKind kind) {
  Measure(state, {kind, state.range(0)}, Nothing, [](Desk& desk) { desk.BookOne(); });
}

void DeletedSeries(benchmark::State& state, FileKind kind) {
  const auto dates = static_cast<int>(state.range(0));
  Measure(
      state, {kind, state.range(1)}, [&](Desk& desk) { desk.BookSeries(dates); },
      [](Desk& desk) { desk.DeleteSeries(); });
}

void RenamedSeries(benchmark::State& state, FileKind kind) {
  const auto dates = static_cast<int>(state.range(0));
  Measure(
      state, {kind, state.range(1)}, [&](Desk& desk) { desk.BookSeries(dates); },
      [](Desk& desk) { desk.RenameSeries(); });
}

void DeletedFacility(benchmark::State& state, FileKind kind) {
  Measure(state, {kind, state.range(0), 1}, Nothing, [](Desk& desk) { desk.DeleteFacility(); });
}

/// The yardstick of the facility: its rows deleted by hand, each a change of its own, with one
/// flush at the end.
void RowsDeletedByHand(benchmark::State& state) {
  for (auto _ : state) {
    const Desk desk({FileKind::Sqlite, state.range(0), 1});
    RawFile raw(desk.FileName());
    raw.Run("PRAGMA synchronous = NORMAL");
    sqlite3_stmt* remove = raw.Prepare("DELETE FROM Reserv WHERE rowid = ?");
    const auto start = Clock::now();
    for (std::int64_t row = 1; row <= state.range(0); ++row) {
      Check(sqlite3_bind_int64(remove, 1, row));
      Check(sqlite3_step(remove));
      Check(sqlite3_reset(remove));
    }
    raw.Run("PRAGMA wal_checkpoint");
    state.SetIterationTime(SecondsSince(start));
  }
}

/// The yardstick of a series: its rows added by hand, with one flush at the end.
void RowsAddedByHand(benchmark::State& state) {
  for (auto _ : state) {
    const Desk desk({FileKind::Sqlite, state.range(1)});
    RawFile raw(desk.FileName());
    raw.Run("PRAGMA synchronous = NORMAL");
    sqlite3_stmt* insert = raw.Prepare(
        "INSERT INTO Reserv(RmID, Event, DateOfRes, TimeFrom, TimeTo, MultKey)"
        " VALUES (1, 'Choir', date('2027-01-01', '+' || ? || ' days'), 19, 21, 20270101090000)");
    const auto start = Clock::now();
    for (std::int64_t day = 0; day < state.range(0); ++day) {
      Check(sqlite3_bind_int64(insert, 1, day));
      Check(sqlite3_step(insert));
      Check(sqlite3_reset(insert));
    }
    raw.Run("PRAGMA wal_checkpoint");
    state.SetIterationTime(SecondsSince(start));
  }
}

#define BOTH_KINDS(name, arguments)                 \
  BENCHMARK_CAPTURE(name, Sqlite, FileKind::Sqlite) \
      ->arguments->Unit(benchmark::kMillisecond)    \
      ->UseManualTime();                            \
  BENCHMARK_CAPTURE(name, Access, FileKind::Access) \
      ->arguments->Unit(benchmark::kMillisecond)    \
      ->UseManualTime()

BENCHMARK(RowsAddedByHand)
    ->ArgsProduct({{365, 3650}, {kSmall, kLarge}})
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();
BOTH_KINDS(Series, ArgsProduct({{365, 3650}, {kSmall, kLarge}}));
BOTH_KINDS(CheckOfSeries, ArgsProduct({{365, 3650}, {kSmall, kLarge}}));
BOTH_KINDS(OneBooking, Arg(kSmall)->Arg(kLarge));
BOTH_KINDS(DeletedSeries, ArgsProduct({{365}, {kSmall, kLarge}}));
BOTH_KINDS(RenamedSeries, ArgsProduct({{365}, {kSmall, kLarge}}));
BENCHMARK(RowsDeletedByHand)
    ->Arg(kSmall)
    ->Arg(kLarge)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();
BOTH_KINDS(DeletedFacility, Arg(kSmall)->Arg(kLarge));

}  // namespace
}  // namespace veyra
