#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "data/access/write/create_file.h"
#include "data/connection.h"
#include "data/open_store.h"
#include "data/schema.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

constexpr std::int64_t kRooms = 50;
constexpr std::int64_t kBookings = 100000;
constexpr std::int64_t kGuests = 50000;
constexpr int kDaysOfMonth = 31;
constexpr int kDaysOfCalendar = 4000;
const Date kFirstOfMonth = DateFromIsoText("2014-03-01").value();

/// The folder of this run's files, which are made when they are first asked for.
const TempFolder& Folder() {
  static const TempFolder folder;
  return folder;
}

FieldValues BookingOf(std::int64_t number) {
  const std::int64_t slot = number % 47 + 1;
  return {{"RmID", number % kRooms + 1},
          {"Event", "Guest number " + std::to_string(number)},
          {"DateOfRes", AddDays(kFirstOfMonth, number / kRooms % kDaysOfCalendar - 1000)},
          {"TimeFrom", slot},
          {"TimeTo", slot + 1}};
}

const std::string& Calendar() {
  static const std::string file = [] {
    const std::string name = Folder().File("Calendar.mdb").string();
    CreateAccessFile(name);
    const auto store = OpenStore(name, StoreAccess::ReadWrite);
    store->CreateTable(RoomsTable());
    store->CreateTable(ReservTable());
    for (std::int64_t i = 0; i < kBookings; ++i) {
      store->Insert("Reserv", BookingOf(i));
    }
    return name;
  }();
  return file;
}

const std::string& GuestFile() {
  static const std::string file = [] {
    const std::string name = Folder().File("Veyra.mdb").string();
    CreateAccessFile(name);
    const auto store = OpenStore(name, StoreAccess::ReadWrite);
    store->CreateTable(
        {.Name = "Guest",
         .Columns = {{.Name = "ID", .Type = ColumnType::WholeNumber, .AutoIncrement = true},
                     {.Name = "Name", .Type = ColumnType::Text, .Size = 60}}});
    for (std::int64_t i = 0; i < kGuests; ++i) {
      store->Insert("Guest", {{"Name", "Guest number " + std::to_string(i)}});
    }
    return name;
  }();
  return file;
}

std::size_t ReadMonth(Connection& connection) {
  std::size_t rows_read = 0;
  for (int day = 0; day < kDaysOfMonth; ++day) {
    const auto rows =
        connection.Open("SELECT * FROM Reserv Where RmID = 3 And DateOfRes = #" +
                            DateText(AddDays(kFirstOfMonth, day)) + "# Order By TimeFrom;",
                        CursorType::ForwardOnlyReadOnly);
    for (; !rows->AtEnd(); rows->MoveNext(), ++rows_read) {
      benchmark::DoNotOptimize(ToText(rows->Field("Event")));
    }
  }
  return rows_read;
}

/// The yardstick of the calendar: every byte of the file, read once.
void CalendarFileReadOnce(benchmark::State& state) {
  Calendar();
  for (auto _ : state) {
    std::ifstream file(Calendar(), std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    benchmark::DoNotOptimize(bytes.data());
    state.counters["bytes"] = static_cast<double>(bytes.size());
  }
}

/// The first month after the file was opened.
void FirstMonth(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    Connection connection(OpenStore(Calendar(), StoreAccess::ReadWrite));
    state.ResumeTiming();
    benchmark::DoNotOptimize(ReadMonth(connection));
  }
}

/// A month while paging.
void NextMonth(benchmark::State& state) {
  Connection connection(OpenStore(Calendar(), StoreAccess::ReadWrite));
  ReadMonth(connection);
  for (auto _ : state) {
    benchmark::DoNotOptimize(ReadMonth(connection));
  }
}

/// One booking saved, durably, and the month that is drawn after it.
void BookingAndItsMonth(benchmark::State& state) {
  Connection connection(OpenStore(Calendar(), StoreAccess::ReadWrite));
  ReadMonth(connection);
  for (auto _ : state) {
    const auto rows = connection.Open("SELECT * FROM Reserv", CursorType::StaticOptimistic);
    rows->AddNew();
    for (const auto& [name, value] : BookingOf(2)) {
      rows->SetField(name, value);
    }
    rows->Update();
    benchmark::DoNotOptimize(ReadMonth(connection));
  }
}

/// The names of all guests, read afresh.
void GuestNames(benchmark::State& state) {
  GuestFile();
  for (auto _ : state) {
    Connection connection(OpenStore(GuestFile(), StoreAccess::ReadOnly));
    const auto rows = connection.Open("SELECT * FROM Guest", CursorType::ForwardOnlyReadOnly);
    std::size_t count = 0;
    for (; !rows->AtEnd(); rows->MoveNext(), ++count) {
      benchmark::DoNotOptimize(ToText(rows->Field("Name")));
    }
    state.counters["rows"] = static_cast<double>(count);
  }
}

/// The yardstick of the guests: the same column by the command mdb-export, when it is installed.
void GuestNamesByMdbExport(benchmark::State& state) {
  const std::string command = "mdb-export -H '" + GuestFile() + "' Guest | cut -d, -f2 >/dev/null";
  for (auto _ : state) {
    if (std::system(command.c_str()) != 0) {
      state.SkipWithError("mdb-export is not installed");
      return;
    }
  }
}

BENCHMARK(CalendarFileReadOnce)->Unit(benchmark::kMillisecond);
BENCHMARK(FirstMonth)->Unit(benchmark::kMillisecond);
BENCHMARK(NextMonth)->Unit(benchmark::kMillisecond);
BENCHMARK(BookingAndItsMonth)->Unit(benchmark::kMillisecond);
BENCHMARK(GuestNamesByMdbExport)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(GuestNames)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace veyra
