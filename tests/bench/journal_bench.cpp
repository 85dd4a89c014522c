#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
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

/// A calendar to book in, and how long each booking took, durable on return.
class Bookings {
 public:
  Bookings(StoreKind kind, bool keeps_journal)
      : store_(OpenFileStore(MakeCalendar(folder_, kind), StoreAccess::ReadWrite)) {
    store_->KeepJournal(keeps_journal);
  }

  void Book() {
    const auto begin = std::chrono::steady_clock::now();
    {
      const JournalledAction action(*store_, "New booking");
      store_->Insert("Reserv", BookingOf(number_++));
    }
    took_.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - begin));
  }

  double MedianSeconds() {
    std::sort(took_.begin(), took_.end());
    return took_[took_.size() / 2].count();
  }

 private:
  const TempFolder folder_;
  const std::unique_ptr<FileStore> store_;
  std::vector<std::chrono::duration<double>> took_;
  std::int64_t number_ = kBookings;
};

/// A booking with a journal and one without, by turns, so that what else the disk does meets both.
void Booking(benchmark::State& state, StoreKind kind) {
  Bookings with(kind, true);
  Bookings without(kind, false);
  for (auto _ : state) {
    with.Book();
    without.Book();
  }
  state.counters["with"] = with.MedianSeconds();
  state.counters["without"] = without.MedianSeconds();
  state.counters["ratio"] = with.MedianSeconds() / without.MedianSeconds();
}

BENCHMARK_CAPTURE(Booking, sqlite, StoreKind::Sqlite)->UseRealTime()->Iterations(kBookingsARun);
BENCHMARK_CAPTURE(Booking, access, StoreKind::Access)->UseRealTime()->Iterations(kBookingsARun);

}  // namespace
}  // namespace veyra
