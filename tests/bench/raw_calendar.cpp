#include "tests/bench/raw_calendar.h"

#include <stdexcept>

#include "data/create_store.h"
#include "data/schema.h"

namespace veyra {

void Check(int code) {
  if (code != SQLITE_OK && code != SQLITE_DONE && code != SQLITE_ROW) {
    throw std::runtime_error(sqlite3_errstr(code));
  }
}

RawFile::RawFile(const std::string& file) {
  Check(sqlite3_open(file.c_str(), &handle_));
}

RawFile::~RawFile() {
  sqlite3_finalize(statement_);
  sqlite3_close(handle_);
}

void RawFile::Run(const char* sql) {
  Check(sqlite3_exec(handle_, sql, nullptr, nullptr, nullptr));
}

sqlite3_stmt* RawFile::Prepare(const char* sql) {
  sqlite3_finalize(statement_);
  statement_ = nullptr;
  Check(sqlite3_prepare_v2(handle_, sql, -1, &statement_, nullptr));
  return statement_;
}

namespace {

void MakeTables(const std::string& file) {
  const auto store = CreateStore(file);
  store->CreateTable(RoomsTable());
  store->CreateTable(ReservTable());
  for (std::int64_t room = 1; room <= kRoomsOfRawCalendar; ++room) {
    store->Insert("Rooms", {{"Name", "Room " + std::to_string(room)}});
  }
}

}  // namespace

void MakeRawCalendar(const std::string& file, const RawBookings& bookings) {
  MakeTables(file);
  RawFile raw(file);
  raw.Run("BEGIN");
  sqlite3_stmt* insert = raw.Prepare(
      "INSERT INTO Reserv(RmID, Event, DateOfRes, TimeFrom, TimeTo) VALUES (?, ?, ?, ?, ?)");
  for (std::int64_t i = 0; i < bookings.Count; ++i) {
    const std::int64_t slot = i % 47 + 1;
    const std::string name = bookings.Name(i);
    const std::string day =
        IsoText(AddDays(bookings.FirstDay, i / kRoomsOfRawCalendar % bookings.Days));
    Check(sqlite3_bind_int64(insert, 1, i % kRoomsOfRawCalendar + 1));
    Check(sqlite3_bind_text(insert, 2, name.c_str(), -1, SQLITE_STATIC));
    Check(sqlite3_bind_text(insert, 3, day.c_str(), -1, SQLITE_STATIC));
    Check(sqlite3_bind_int64(insert, 4, slot));
    Check(sqlite3_bind_int64(insert, 5, slot + 1));
    Check(sqlite3_step(insert));
    Check(sqlite3_reset(insert));
  }
  raw.Run("COMMIT");
}

}  // namespace veyra
