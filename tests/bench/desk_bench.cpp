#include <benchmark/benchmark.h>
#include <malloc.h>
#include <unistd.h>

#include <chrono>
#include <cstdint>
#include <fstream>
#include <string>

#include "tests/bench/desk.h"
#include "tests/bench/raw_calendar.h"
#include "tests/bench/sizes.h"

namespace veyra {
namespace {

using Clock = std::chrono::steady_clock;

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

/// The yardstick of a check: the bookings of each date that hold one of its two slots, asked for by
/// hand.
void DatesCheckedByHand(benchmark::State& state) {
  for (auto _ : state) {
    const Desk desk({FileKind::Sqlite, state.range(1)});
    RawFile raw(desk.FileName());
    sqlite3_stmt* query = raw.Prepare(
        "SELECT Event FROM Reserv WHERE DateOfRes = date('2027-01-01', '+' || ? || ' days')"
        " AND (TimeFrom <= 19 AND TimeTo >= 19 OR TimeFrom <= 21 AND TimeTo >= 21)");
    const auto start = Clock::now();
    for (std::int64_t day = 0; day < state.range(0); ++day) {
      Check(sqlite3_bind_int64(query, 1, day));
      Check(sqlite3_step(query));
      Check(sqlite3_reset(query));
    }
    state.SetIterationTime(SecondsSince(start));
  }
}

/// The yardstick of the month: its lines by one statement a day that is prepared once.
void MonthByHand(benchmark::State& state) {
  constexpr int kDaysOfMonth = 31;
  const Desk desk({FileKind::Sqlite, state.range(0)});
  RawFile raw(desk.FileName());
  sqlite3_stmt* query = raw.Prepare(
      "SELECT rowid, * FROM Reserv WHERE RmID = 1"
      " AND DateOfRes = date('2016-01-01', '+' || ? || ' days') ORDER BY TimeFrom, rowid");
  for (auto _ : state) {
    const auto start = Clock::now();
    for (int day = 0; day < kDaysOfMonth; ++day) {
      Check(sqlite3_bind_int(query, 1, day));
      while (sqlite3_step(query) == SQLITE_ROW) {
        const unsigned char* event = sqlite3_column_text(query, 2);
        benchmark::DoNotOptimize(std::string(reinterpret_cast<const char*>(event)));
      }
      Check(sqlite3_reset(query));
    }
    state.SetIterationTime(SecondsSince(start));
  }
}

/// The yardstick of a booking: one row by hand, on the disk when it is done.
void RowAddedByHand(benchmark::State& state) {
  for (auto _ : state) {
    const Desk desk({FileKind::Sqlite, state.range(0)});
    RawFile raw(desk.FileName());
    raw.Run("PRAGMA synchronous = FULL");
    const auto start = Clock::now();
    raw.Run(
        "INSERT INTO Reserv(RmID, Event, DateOfRes, TimeFrom, TimeTo, MultKey)"
        " VALUES (1, 'Choir', '2027-01-01', 19, 21, 0)");
    state.SetIterationTime(SecondsSince(start));
  }
}

void Month(benchmark::State& state, FileKind kind) {
  Desk desk({kind, state.range(0)});
  for (auto _ : state) {
    const auto start = Clock::now();
    desk.ReadFirstMonth();
    state.SetIterationTime(SecondsSince(start));
  }
}

/// The memory that this process holds, in kilobytes; what is free in it is given back first.
double KilobytesHeld() {
  malloc_trim(0);
  std::ifstream statm("/proc/self/statm");
  double whole = 0;
  double held = 0;
  statm >> whole >> held;
  return held * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1024;
}

/// What a calendar takes whose month has been read.
void Memory(benchmark::State& state, FileKind kind) {
  { const Desk made({kind, state.range(0)}); }
  for (auto _ : state) {
    const double before = KilobytesHeld();
    Desk desk({kind, state.range(0)});
    desk.ReadFirstMonth();
    state.counters["kilobytes"] = KilobytesHeld() - before;
  }
}

/// The yardstick of the memory: SQLite has gone through the file once.
void MemoryByHand(benchmark::State& state) {
  const Desk desk({FileKind::Sqlite, state.range(0)});
  for (auto _ : state) {
    const double before = KilobytesHeld();
    RawFile raw(desk.FileName());
    sqlite3_stmt* query = raw.Prepare("SELECT * FROM Reserv");
    while (sqlite3_step(query) == SQLITE_ROW) {
    }
    state.counters["kilobytes"] = KilobytesHeld() - before;
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
    ->ArgsProduct({{365, 3650}, BookingCounts()})
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();
BENCHMARK(DatesCheckedByHand)
    ->ArgsProduct({{365, 3650}, BookingCounts()})
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();
BENCHMARK(MonthByHand)->Apply(OfAllSizes)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(RowAddedByHand)->Apply(OfAllSizes)->Unit(benchmark::kMillisecond)->UseManualTime();
BOTH_KINDS(Month, Apply(OfAllSizes));
BOTH_KINDS(Series, ArgsProduct({{365, 3650}, BookingCounts()}));
BOTH_KINDS(CheckOfSeries, ArgsProduct({{365, 3650}, BookingCounts()}));
BOTH_KINDS(OneBooking, Apply(OfAllSizes));
BOTH_KINDS(DeletedSeries, ArgsProduct({{365}, BookingCounts()}));
BOTH_KINDS(RenamedSeries, ArgsProduct({{365}, BookingCounts()}));
BENCHMARK(RowsDeletedByHand)->Apply(OfAllSizes)->Unit(benchmark::kMillisecond)->UseManualTime();
BOTH_KINDS(DeletedFacility, Apply(OfAllSizes));
BENCHMARK(MemoryByHand)->Apply(OfAllSizes)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK_CAPTURE(Memory, Sqlite, FileKind::Sqlite)
    ->Apply(OfAllSizes)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);
BENCHMARK_CAPTURE(Memory, Access, FileKind::Access)
    ->Apply(OfAllSizes)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);

}  // namespace
}  // namespace veyra
