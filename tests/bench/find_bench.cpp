#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>

#include "data/open_store.h"
#include "logic/find_bookings.h"
#include "tests/bench/raw_calendar.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

using modRes::BookingFinder;

constexpr int kDays = 4000;
constexpr int kPastDays = 3000;
const Date kToday = DateFromIsoText("2014-03-01").value();

/// What only a few bookings are called, and what none is.
constexpr const char* kRare = "zsolnay";
constexpr const char* kNone = "nobody";

std::string NameOf(std::int64_t booking) {
  return (booking % 100'003 == 77 ? "Quentin Zsolnay " : "Guest number ") + std::to_string(booking);
}

/// A calendar of so many bookings, each of another name.
const std::string& CalendarOf(std::int64_t bookings) {
  static const TempFolder folder;
  static std::string file;
  if (file.empty()) {
    file = folder.File("Calendar.mdb").string();
    MakeRawCalendar(file, {.Count = bookings,
                           .FirstDay = AddDays(kToday, -kPastDays),
                           .Days = kDays,
                           .Name = NameOf});
  }
  return file;
}

void WorkToTheEnd(BookingFinder& finder) {
  while (finder.WorkOn(std::chrono::milliseconds{12})) {
  }
}

/// What is looked for when all has been read: the whole of it, not only the first line.
void FindInWhatWasRead(benchmark::State& state, const char* text) {
  const auto store = OpenStore(CalendarOf(state.range(0)), StoreAccess::ReadWrite);
  BookingFinder finder(*store, kToday);
  WorkToTheEnd(finder);
  for (auto _ : state) {
    finder.LookFor(text);
    WorkToTheEnd(finder);
  }
  state.counters["found"] = static_cast<double>(finder.Upcoming().size() + finder.Past().size());
}

/// The window has just been opened: the time to the first line.
void FindFirstLine(benchmark::State& state) {
  const auto store = OpenStore(CalendarOf(state.range(0)), StoreAccess::ReadWrite);
  for (auto _ : state) {
    BookingFinder finder(*store, kToday);
    finder.LookFor("guest");
    while (finder.Upcoming().empty() && finder.WorkOn(std::chrono::milliseconds{1})) {
    }
  }
}

/// All of it is read once, as the window does while the operator types.
void ReadAll(benchmark::State& state) {
  const auto store = OpenStore(CalendarOf(state.range(0)), StoreAccess::ReadWrite);
  for (auto _ : state) {
    BookingFinder finder(*store, kToday);
    WorkToTheEnd(finder);
  }
}

/// The yardstick: SQLite looks for the text in the file itself, capitals of English only.
void FindThroughOneStatement(benchmark::State& state, const char* text) {
  RawFile raw(CalendarOf(state.range(0)));
  sqlite3_stmt* query = raw.Prepare(
      "SELECT * FROM Reserv WHERE Event LIKE ? AND DateOfRes >= '2014-03-01' "
      "ORDER BY DateOfRes LIMIT 200");
  const std::string pattern = "%" + std::string(text) + "%";
  for (auto _ : state) {
    Check(sqlite3_bind_text(query, 1, pattern.c_str(), -1, SQLITE_STATIC));
    while (sqlite3_step(query) == SQLITE_ROW) {
      benchmark::DoNotOptimize(sqlite3_column_text(query, 1));
    }
    Check(sqlite3_reset(query));
  }
}

constexpr std::int64_t kBookings = 1'000'000;

BENCHMARK_CAPTURE(FindInWhatWasRead, many, "guest")->Arg(kBookings)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FindInWhatWasRead, rare, kRare)->Arg(kBookings)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FindInWhatWasRead, none, kNone)->Arg(kBookings)->Unit(benchmark::kMillisecond);
BENCHMARK(FindFirstLine)->Arg(kBookings)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadAll)->Arg(kBookings)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FindThroughOneStatement, rare, kRare)
    ->Arg(kBookings)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace veyra
