#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "data/access/access_store.h"
#include "data/open_file_store.h"
#include "data/schema.h"
#include "tests/bench/raw_calendar.h"
#include "tests/bench/sizes.h"
#include "tests/temp_folder.h"
#include "tools/rewritten_file.h"

namespace veyra {
namespace {

namespace fs = std::filesystem;

constexpr std::int64_t kBookingsOfSeries = 100'000;
constexpr std::int64_t kTurned = 4'576;
constexpr int kTurnovers = 10;
constexpr std::size_t kWeeksOfAYear = 52;
constexpr std::size_t kRowsAtOnce = 20'000;
const Date kFirstDay = DateFromIsoText("2014-03-01").value();
const Date kToday = DateFromIsoText("2026-11-21").value();

FieldValues BookingOf(std::int64_t number) {
  const std::int64_t slot = number % 47 + 1;
  return {{"RmID", number % 50 + 1},
          {"Event", "Guest number " + std::to_string(number)},
          {"DateOfRes", AddDays(kFirstDay, number / 50 % 4000)},
          {"TimeFrom", slot},
          {"TimeTo", slot + 1},
          {"MultKey", 0.0}};
}

std::vector<FieldValues> Bookings(std::int64_t count) {
  std::vector<FieldValues> rows;
  for (std::int64_t i = 0; i < count; ++i) {
    rows.push_back(BookingOf(i));
  }
  return rows;
}

/// Adds rows as many at a time as the conversion does.
void AddAll(Store& store, const std::vector<FieldValues>& rows) {
  for (std::size_t at = 0; at < rows.size(); at += kRowsAtOnce) {
    const auto end =
        rows.begin() + static_cast<std::ptrdiff_t>(std::min(at + kRowsAtOnce, rows.size()));
    store.InsertAll("Reserv", {rows.begin() + static_cast<std::ptrdiff_t>(at), end});
  }
}

std::string MakeCalendar(const TempFolder& folder, FileKind kind, std::int64_t bookings) {
  const std::string file = folder.File("Calendar.mdb").string();
  const auto store = CreateFileStore(file, Durability::WhenAsked, kind);
  store->CreateTable(RoomsTable());
  store->CreateTable(ReservTable());
  AddAll(*store, Bookings(bookings));
  return file;
}

FileKind OtherThan(FileKind kind) {
  return kind == FileKind::Access ? FileKind::Sqlite : FileKind::Access;
}

/// The yardstick of the conversion, whatever kind of file it makes: the rows of one SQLite file are
/// read and added to another by SQLite alone, nothing is planned, compared or checked.
void RowsCopiedByHand(benchmark::State& state) {
  const TempFolder folder;
  const std::string file = MakeCalendar(folder, FileKind::Sqlite, state.range(0));
  for (auto _ : state) {
    const TempFolder other;
    const std::string copy = other.File("Calendar.mdb").string();
    MakeRawCalendar(copy, {});
    RawFile from(file);
    RawFile to(copy);
    to.Run("BEGIN");
    sqlite3_stmt* read =
        from.Prepare("SELECT RmID, Event, DateOfRes, TimeFrom, TimeTo, MultKey FROM Reserv");
    sqlite3_stmt* insert = to.Prepare(
        "INSERT INTO Reserv(RmID, Event, DateOfRes, TimeFrom, TimeTo, MultKey)"
        " VALUES (?, ?, ?, ?, ?, ?)");
    while (sqlite3_step(read) == SQLITE_ROW) {
      for (int column = 0; column < sqlite3_column_count(read); ++column) {
        Check(sqlite3_bind_value(insert, column + 1, sqlite3_column_value(read, column)));
      }
      Check(sqlite3_step(insert));
      Check(sqlite3_reset(insert));
    }
    to.Run("COMMIT");
  }
}

void Conversion(benchmark::State& state, FileKind to) {
  for (auto _ : state) {
    state.PauseTiming();
    const TempFolder folder;
    const std::string file = MakeCalendar(folder, OtherThan(to), state.range(0));
    state.ResumeTiming();
    RewriteFile(file, to, kToday, [](const CopyStep&) {});
  }
}

/// The yardstick of the check: every byte of the file, read once.
void FileReadOnce(benchmark::State& state, FileKind kind) {
  const TempFolder folder;
  const std::string name = MakeCalendar(folder, kind, state.range(0));
  for (auto _ : state) {
    std::ifstream file(name, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    benchmark::DoNotOptimize(bytes.data());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(fs::file_size(name)) *
                          static_cast<std::int64_t>(state.iterations()));
}

void Check(benchmark::State& state, FileKind kind) {
  const TempFolder folder;
  const std::string name = MakeCalendar(folder, kind, state.range(0));
  for (auto _ : state) {
    benchmark::DoNotOptimize(OpenFileStore(name, StoreAccess::ReadOnly)->Verify().size());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(fs::file_size(name)) *
                          static_cast<std::int64_t>(state.iterations()));
}

/// How much a file grows whose bookings are all deleted and made anew, ten times.
void Turnovers(benchmark::State& state) {
  for (auto _ : state) {
    const TempFolder folder;
    const std::string name = folder.File("Calendar.mdb").string();
    const auto store = CreateFileStore(name, Durability::WhenAsked, FileKind::Access);
    store->CreateTable(ReservTable());
    std::vector<Row> rows = store->InsertAll("Reserv", Bookings(kTurned));
    const auto before = static_cast<double>(fs::file_size(name));
    for (int turn = 0; turn < kTurnovers; ++turn) {
      std::vector<RowChange> changes;
      for (const Row& row : rows) {
        changes.push_back({.What = RowChange::Kind::Remove, .Table = "Reserv", .Before = row});
      }
      store->ChangeAll(changes, {});
      rows = store->InsertAll("Reserv", Bookings(kTurned));
    }
    state.counters["grown"] = static_cast<double>(fs::file_size(name)) / before;
  }
}

/// How many times the disk is waited for, by a series of so many dates.
void Series(benchmark::State& state) {
  const TempFolder folder;
  const std::string name = MakeCalendar(folder, FileKind::Access, kBookingsOfSeries);
  int steps = 0;
  const auto store =
      OpenAccessStore(name, StoreAccess::ReadWrite, {}, [&steps](access::CommitStep) { ++steps; });
  const std::vector<FieldValues> dates = Bookings(state.range(0));
  for (auto _ : state) {
    for (std::size_t at = 0; at < dates.size(); at += store->RowsAtOnce()) {
      const std::size_t end = std::min(at + store->RowsAtOnce(), dates.size());
      store->InsertAll("Reserv", {dates.begin() + static_cast<std::ptrdiff_t>(at),
                                  dates.begin() + static_cast<std::ptrdiff_t>(end)});
    }
  }
  state.counters["steps"] = static_cast<double>(steps) / static_cast<double>(state.iterations());
}

#define OF_ALL_SIZES(registered) \
  registered->Unit(benchmark::kMillisecond)->UseRealTime()->Apply(OfAllSizes)

OF_ALL_SIZES(BENCHMARK(RowsCopiedByHand));
OF_ALL_SIZES(BENCHMARK_CAPTURE(Conversion, ToSqlite, FileKind::Sqlite));
OF_ALL_SIZES(BENCHMARK_CAPTURE(Conversion, ToAccess, FileKind::Access));
OF_ALL_SIZES(BENCHMARK_CAPTURE(FileReadOnce, Access, FileKind::Access));
OF_ALL_SIZES(BENCHMARK_CAPTURE(Check, Access, FileKind::Access));
OF_ALL_SIZES(BENCHMARK_CAPTURE(FileReadOnce, Sqlite, FileKind::Sqlite));
OF_ALL_SIZES(BENCHMARK_CAPTURE(Check, Sqlite, FileKind::Sqlite));
BENCHMARK(Turnovers)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(Series)
    ->Arg(1)
    ->Arg(kWeeksOfAYear)
    ->Arg(365)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
}  // namespace veyra
