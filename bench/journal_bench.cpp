#include <benchmark/benchmark.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "data/create_store.h"
#include "data/journal.h"
#include "data/open_file_store.h"
#include "data/schema.h"
#include "tests/store_kind.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

constexpr std::int64_t kBookings = 10'000;
constexpr std::int64_t kBookingsARun = 300;
const Date kFirstDay = DateFromIsoText("2014-03-01").value();

FieldValues BookingOf(std::int64_t number) {
  return {{"RmID", number % 50 + 1},
          {"Event", "Guest number " + std::to_string(number)},
          {"DateOfRes", AddDays(kFirstDay, number / 50 % 4000)},
          {"TimeFrom", std::int64_t{19}},
          {"TimeTo", std::int64_t{21}}};
}

/// A calendar that has bookings already.
std::string MakeCalendar(const TempFolder& folder, StoreKind kind) {
  const std::string file = folder.File("Calendar.mdb").string();
  {
    const auto store = CreateStoreOfKind(kind, file);
    store->CreateTable(RoomsTable());
    store->CreateTable(ReservTable());
  }
  std::vector<RowChange> rows;
  for (std::int64_t i = 0; i < kBookings; ++i) {
    rows.push_back(
        {.What = RowChange::Kind::Add, .Table = "Reserv", .Before = {}, .Fields = BookingOf(i)});
  }
  OpenFileStore(file, StoreAccess::ReadWrite)->ChangeAll(rows, {});
  return file;
}

/// One booking after the other, each durable before the next; the yardstick is without a journal.
void Booking(benchmark::State& state, StoreKind kind, bool keeps_journal) {
  const TempFolder folder;
  const auto store = OpenFileStore(MakeCalendar(folder, kind), StoreAccess::ReadWrite);
  store->KeepJournal(keeps_journal);
  std::int64_t number = kBookings;
  for (auto _ : state) {
    const JournalledAction action(*store, "New booking");
    store->Insert("Reserv", BookingOf(number++));
  }
}

BENCHMARK_CAPTURE(Booking, sqlite_without_journal, StoreKind::Sqlite, false)
    ->UseRealTime()
    ->Iterations(kBookingsARun);
BENCHMARK_CAPTURE(Booking, sqlite_with_journal, StoreKind::Sqlite, true)
    ->UseRealTime()
    ->Iterations(kBookingsARun);
BENCHMARK_CAPTURE(Booking, access_without_journal, StoreKind::Access, false)
    ->UseRealTime()
    ->Iterations(kBookingsARun);
BENCHMARK_CAPTURE(Booking, access_with_journal, StoreKind::Access, true)
    ->UseRealTime()
    ->Iterations(kBookingsARun);

}  // namespace
}  // namespace veyra
