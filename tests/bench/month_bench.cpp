#include <benchmark/benchmark.h>

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "data/connection.h"
#include "data/open_store.h"
#include "tests/bench/raw_calendar.h"
#include "tests/bench/sizes.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

const Date kFirstOfMonth = DateFromIsoText("2014-03-01").value();
constexpr int kDaysOfMonth = 31;
constexpr int kDaysOfCalendar = 4000;

/// A calendar of so many bookings, spread evenly over facilities and days; made once a run.
std::string CalendarOf(std::int64_t bookings) {
  static const TempFolder folder;
  static std::map<std::int64_t, std::string> made;
  if (const auto found = made.find(bookings); found != made.end()) {
    return found->second;
  }
  const std::string file = folder.File(std::to_string(bookings) + ".mdb").string();
  MakeRawCalendar(file,
                  {.Count = bookings,
                   .FirstDay = AddDays(kFirstOfMonth, -1000),
                   .Days = kDaysOfCalendar,
                   .Name = [](std::int64_t i) { return "Guest number " + std::to_string(i); }});
  made[bookings] = file;
  return file;
}

/// The month as the program reads it: a query text a day, each field by its name.
void MonthThroughRecordsets(benchmark::State& state) {
  Connection connection(OpenStore(CalendarOf(state.range(0)), StoreAccess::ReadWrite));
  std::size_t rows_read = 0;
  for (auto _ : state) {
    rows_read = 0;
    for (int day = 0; day < kDaysOfMonth; ++day) {
      const auto rows =
          connection.Open("SELECT * FROM Reserv Where RmID = 3 And DateOfRes = #" +
                              DateText(AddDays(kFirstOfMonth, day)) + "# Order By TimeFrom;",
                          CursorType::ForwardOnlyReadOnly);
      for (; !rows->AtEnd(); rows->MoveNext(), ++rows_read) {
        benchmark::DoNotOptimize(ToInteger(rows->Field("TimeFrom")));
        benchmark::DoNotOptimize(ToInteger(rows->Field("TimeTo")));
        benchmark::DoNotOptimize(ToText(rows->Field("Event")));
      }
    }
  }
  state.counters["rows"] = static_cast<double>(rows_read);
}

/// The yardstick: the same month through one statement that is prepared once.
void MonthThroughOneStatement(benchmark::State& state) {
  RawFile raw(CalendarOf(state.range(0)));
  sqlite3_stmt* query = raw.Prepare(
      "SELECT rowid, * FROM Reserv WHERE RmID = ? AND DateOfRes = ? ORDER BY TimeFrom, rowid");
  std::size_t rows_read = 0;
  for (auto _ : state) {
    rows_read = 0;
    for (int day = 0; day < kDaysOfMonth; ++day) {
      const std::string date = IsoText(AddDays(kFirstOfMonth, day));
      Check(sqlite3_bind_int64(query, 1, 3));
      Check(sqlite3_bind_text(query, 2, date.c_str(), -1, SQLITE_STATIC));
      for (; sqlite3_step(query) == SQLITE_ROW; ++rows_read) {
        benchmark::DoNotOptimize(sqlite3_column_int64(query, 4));
        benchmark::DoNotOptimize(sqlite3_column_int64(query, 5));
        const unsigned char* event = sqlite3_column_text(query, 2);
        benchmark::DoNotOptimize(std::string(reinterpret_cast<const char*>(event)));
      }
      Check(sqlite3_reset(query));
    }
  }
  state.counters["rows"] = static_cast<double>(rows_read);
}

/// One booking added to a table of so many, durably.
void BookingThroughARecordset(benchmark::State& state) {
  Connection connection(OpenStore(CalendarOf(state.range(0)), StoreAccess::ReadWrite));
  for (auto _ : state) {
    const auto rows = connection.Open("SELECT * FROM Reserv", CursorType::StaticOptimistic);
    rows->AddNew();
    rows->SetField("RmID", std::int64_t{kRoomsOfRawCalendar + 1});
    rows->SetField("Event", "No Title");
    rows->SetField("DateOfRes", kFirstOfMonth);
    rows->SetField("TimeFrom", std::int64_t{19});
    rows->SetField("TimeTo", std::int64_t{21});
    rows->Update();
  }
}

BENCHMARK(MonthThroughOneStatement)->Apply(OfAllSizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(MonthThroughRecordsets)->Apply(OfAllSizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(BookingThroughARecordset)->Apply(OfAllSizes)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace veyra
