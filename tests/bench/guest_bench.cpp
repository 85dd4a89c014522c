#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

#include "data/connection.h"
#include "data/create_store.h"
#include "data/open_store.h"
#include "data/schema.h"
#include "logic/guests.h"
#include "logic/name_matches.h"
#include "logic/session.h"
#include "tests/bench/raw_calendar.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

constexpr int kGuests = 50'000;

std::string MakeGuests(const TempFolder& folder, FileKind kind) {
  const std::string file = folder.File("Veyra.mdb").string();
  std::vector<FieldValues> guests;
  for (int i = 0; i < kGuests; ++i) {
    guests.push_back({{"Name", "Guest number " + std::to_string(i)}});
  }
  const auto store = CreateStore(file, Durability::WhenAsked, kind);
  store->CreateTable(GuestTable());
  store->InsertAll("Guest", guests);
  return file;
}

/// What the day window does below its screen each time it is opened.
void GuestList(benchmark::State& state, FileKind kind) {
  const TempFolder folder;
  Session session;
  session.GuestCon =
      std::make_unique<Connection>(OpenStore(MakeGuests(folder, kind), StoreAccess::ReadOnly));
  for (auto _ : state) {
    NameBox box;
    modRes::LoadGuestNames(session, box);
    benchmark::DoNotOptimize(box.Items.data());
  }
}

/// The yardstick: the names read into a list by SQLite alone.
void GuestListByHand(benchmark::State& state) {
  const TempFolder folder;
  RawFile raw(MakeGuests(folder, FileKind::Sqlite));
  sqlite3_stmt* query = raw.Prepare("SELECT ID, Name FROM Guest");
  for (auto _ : state) {
    std::vector<std::string> names;
    while (sqlite3_step(query) == SQLITE_ROW) {
      names.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(query, 1)));
    }
    Check(sqlite3_reset(query));
    benchmark::DoNotOptimize(names.data());
  }
}

/// The first letters of a name are typed after the window was opened.
void FirstMatches(benchmark::State& state) {
  const TempFolder folder;
  Session session;
  NameBox box;
  session.GuestCon = std::make_unique<Connection>(
      OpenStore(MakeGuests(folder, FileKind::Sqlite), StoreAccess::ReadOnly));
  modRes::LoadGuestNames(session, box);
  for (auto _ : state) {
    modRes::NameMatches matches;
    matches.SetNames(box.Items, {});
    benchmark::DoNotOptimize(matches.Find("number 4999", 8).size());
  }
}

BENCHMARK(GuestListByHand)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(GuestList, Sqlite, FileKind::Sqlite)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(GuestList, Access, FileKind::Access)->Unit(benchmark::kMillisecond);
BENCHMARK(FirstMatches)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace veyra
