#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>

#include "data/create_store.h"
#include "data/open_store.h"
#include "data/schema.h"
#include "logic/find_bookings.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

using modRes::BookingFinder;

constexpr std::int64_t kRooms = 50;
constexpr int kDays = 4000;
constexpr int kPastDays = 3000;
const Date kToday = DateFromIsoText("2014-03-01").value();

void Check(int code) {
  if (code != SQLITE_OK && code != SQLITE_DONE && code != SQLITE_ROW) {
    throw std::runtime_error(sqlite3_errstr(code));
  }
}

/// What only a few bookings are called, and what none is.
constexpr const char* kRare = "zsolnay";
constexpr const char* kNone = "nobody";

/// A calendar of so many bookings, each of another name, spread evenly over facilities and days.
void Fill(const std::string& file, std::int64_t bookings) {
  {
    const auto store = CreateStore(file);
    store->CreateTable(RoomsTable());
    store->CreateTable(ReservTable());
    for (std::int64_t room = 1; room <= kRooms; ++room) {
      store->Insert("Rooms", {{"Name", "Room " + std::to_string(room)}});
    }
  }
  sqlite3* raw = nullptr;
  Check(sqlite3_open(file.c_str(), &raw));
  Check(sqlite3_exec(raw, "BEGIN", nullptr, nullptr, nullptr));
  sqlite3_stmt* insert = nullptr;
  Check(sqlite3_prepare_v2(raw, "INSERT INTO Reserv VALUES (?, ?, ?, ?, ?, NULL)", -1, &insert,
                           nullptr));
  for (std::int64_t i = 0; i < bookings; ++i) {
    const std::int64_t slot = i % 47 + 1;
    const std::string name =
        (i % 100'003 == 77 ? "Quentin Zsolnay " : "Guest number ") + std::to_string(i);
    const std::string day = IsoText(AddDays(kToday, i / kRooms % kDays - kPastDays));
    Check(sqlite3_bind_int64(insert, 1, i % kRooms + 1));
    Check(sqlite3_bind_text(insert, 2, name.c_str(), -1, SQLITE_STATIC));
    Check(sqlite3_bind_text(insert, 3, day.c_str(), -1, SQLITE_STATIC));
    Check(sqlite3_bind_int64(insert, 4, slot));
    Check(sqlite3_bind_int64(insert, 5, slot + 1));
    Check(sqlite3_step(insert));
    Check(sqlite3_reset(insert));
  }
  Check(sqlite3_finalize(insert));
  Check(sqlite3_exec(raw, "COMMIT", nullptr, nullptr, nullptr));
  Check(sqlite3_close(raw));
}

const std::string& CalendarOf(std::int64_t bookings) {
  static const TempFolder folder;
  static std::string file;
  if (file.empty()) {
    file = folder.File("Calendar.mdb").string();
    Fill(file, bookings);
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
  sqlite3* raw = nullptr;
  Check(sqlite3_open(CalendarOf(state.range(0)).c_str(), &raw));
  sqlite3_stmt* query = nullptr;
  Check(sqlite3_prepare_v2(raw,
                           "SELECT * FROM Reserv WHERE Event LIKE ? AND DateOfRes >= '2014-03-01' "
                           "ORDER BY DateOfRes LIMIT 200",
                           -1, &query, nullptr));
  const std::string pattern = "%" + std::string(text) + "%";
  for (auto _ : state) {
    Check(sqlite3_bind_text(query, 1, pattern.c_str(), -1, SQLITE_STATIC));
    while (sqlite3_step(query) == SQLITE_ROW) {
      benchmark::DoNotOptimize(sqlite3_column_text(query, 1));
    }
    Check(sqlite3_reset(query));
  }
  Check(sqlite3_finalize(query));
  Check(sqlite3_close(raw));
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
