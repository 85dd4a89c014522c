#include <valgrind/callgrind.h>

#include <cstdint>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "data/connection.h"
#include "data/create_store.h"
#include "data/open_store.h"
#include "data/schema.h"
#include "logic/guests.h"
#include "tests/bench/desk.h"
#include "tests/temp_folder.h"

/// Does one thing that an operator does, on a calendar made for it, so that callgrind counts the
/// instructions of that alone:
///
///     counted ACTION
namespace veyra {
namespace {

constexpr std::int64_t kBookings = 2'000;
constexpr int kDates = 365;
constexpr int kGuests = 2'000;

void Counted(const std::function<void()>& action) {
  CALLGRIND_START_INSTRUMENTATION;
  CALLGRIND_TOGGLE_COLLECT;
  action();
  CALLGRIND_TOGGLE_COLLECT;
  CALLGRIND_STOP_INSTRUMENTATION;
}

/// The first time fills caches of the store.
void OnADesk(FileKind kind, const std::function<void(Desk&)>& action) {
  Desk desk({.Kind = kind, .Bookings = kBookings});
  desk.ReadFirstMonth();
  Counted([&] { action(desk); });
}

void ReadGuests() {
  const TempFolder folder;
  const std::string file = folder.File("Veyra.mdb").string();
  std::vector<FieldValues> guests;
  for (int i = 0; i < kGuests; ++i) {
    guests.push_back({{"Name", "Guest number " + std::to_string(i)}});
  }
  const auto made = CreateStore(file, Durability::WhenAsked, FileKind::Sqlite);
  made->CreateTable(GuestTable());
  made->InsertAll("Guest", guests);
  Session session;
  session.GuestCon = std::make_unique<Connection>(OpenStore(file, StoreAccess::ReadOnly));
  NameBox box;
  Counted([&] { modRes::LoadGuestNames(session, box); });
}

std::map<std::string, std::function<void()>> Actions() {
  return {
      {"month", [] { OnADesk(FileKind::Sqlite, [](Desk& desk) { desk.ReadFirstMonth(); }); }},
      {"booking", [] { OnADesk(FileKind::Sqlite, [](Desk& desk) { desk.BookOne(); }); }},
      {"check of 365",
       [] { OnADesk(FileKind::Access, [](Desk& desk) { desk.CheckSeries(kDates); }); }},
      {"series of 365",
       [] { OnADesk(FileKind::Sqlite, [](Desk& desk) { desk.BookSeries(kDates); }); }},
      {"guests", ReadGuests},
  };
}

}  // namespace
}  // namespace veyra

int main(int count, char** arguments) {
  const auto actions = veyra::Actions();
  const auto action = count == 2 ? actions.find(arguments[1]) : actions.end();
  if (action == actions.end()) {
    for (const auto& each : actions) {
      std::cout << each.first << "\n";
    }
    return count == 1 ? 0 : 2;
  }
  action->second();
  return 0;
}
