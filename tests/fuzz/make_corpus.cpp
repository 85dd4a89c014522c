#include <cstdio>
#include <filesystem>
#include <string>

#include "data/access/access_store.h"
#include "data/access/write/create_file.h"
#include "data/errors.h"
#include "data/schema.h"

namespace {

using veyra::CreateAccessFile;
using veyra::OpenAccessStore;
using veyra::StoreAccess;

/// Calendars from empty to a few pages long.
void MakeCalendar(const std::string& file, int bookings) {
  CreateAccessFile(file);
  const auto store = OpenAccessStore(file, StoreAccess::ReadWrite);
  store->CreateTable(veyra::RoomsTable());
  store->CreateTable(veyra::ReservTable());
  for (int i = 0; i < bookings; ++i) {
    store->Insert("Rooms", {{"Name", std::string(static_cast<std::size_t>(i) * 300, 'a')}});
    store->Insert("Reserv", {{"RmID", std::int64_t{i % 3}},
                             {"Event", std::string("Łódź")},
                             {"DateOfRes", veyra::MakeDate(2014, 3, i % 28 + 1).value()},
                             {"TimeFrom", std::int64_t{20}},
                             {"TimeTo", std::int64_t{25}}});
  }
}

}  // namespace

/// Makes the folder named by the first argument, with Access files to begin with for access_fuzzer.
int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: make_corpus FOLDER\n", stderr);
    return 2;
  }
  try {
    const std::filesystem::path folder = argv[1];
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    CreateAccessFile((folder / "empty.mdb").string());
    MakeCalendar((folder / "tables.mdb").string(), 0);
    MakeCalendar((folder / "calendar.mdb").string(), 12);
  } catch (const veyra::Error& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  return 0;
}
