#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <memory>
#include <numeric>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "data/connection.h"
#include "data/create_store.h"
#include "data/recordset.h"
#include "data/schema.h"
#include "logic/session.h"
#include "tests/store_kind.h"
#include "tests/temp_folder.h"

namespace veyra {

/// A data folder with a real calendar and a real guest database in it, both without rows; of the
/// kind of file that this run of the tests is for, where no other is named.
class CalendarFolder {
 public:
  explicit CalendarFolder(StoreKind kind = TestedStoreKind()) : kind_(kind) {
    Make("Calendar.mdb", {RoomsTable(), ReservTable()});
    Make("Veyra.mdb", {GuestTable()});
  }

  std::string Path() const { return folder_.path().string(); }
  std::string File(const std::string& name) const { return folder_.File(name).string(); }
  const TempFolder& Folder() const { return folder_; }

  /// Adds a facility and returns its ID.
  std::int64_t AddRoom(const std::string& name, bool active = false) {
    const auto row =
        Other("Calendar.mdb")->Insert("Rooms", {{"Name", name}, {"Active", std::int64_t{active}}});
    return ToInteger(row.Values.front()).value();
  }

  void AddBooking(std::int64_t room, const std::string& day, int from, int to,
                  const std::string& event, Value group_key = Null{}) {
    Other("Calendar.mdb")
        ->Insert("Reserv", {{"RmID", room},
                            {"Event", event},
                            {"DateOfRes", DateFromIsoText(day).value()},
                            {"TimeFrom", std::int64_t{from}},
                            {"TimeTo", std::int64_t{to}},
                            {"MultKey", std::move(group_key)}});
  }

  void AddGuest(Value name) { Other("Veyra.mdb")->Insert("Guest", {{"Name", std::move(name)}}); }

  /// Removes the first guest.
  void RemoveGuest() {
    const auto guests = Other("Veyra.mdb");
    Recordset(*guests, ParseQuery("SELECT * FROM Guest"), CursorType::StaticOptimistic).Delete();
  }

  /// The facilities, a line each: "1 Pool active".
  std::string Rooms() {
    return Listed("SELECT * FROM Rooms", [](Recordset& row) {
      return ToText(row.Field("ID")) + " " + ToText(row.Field("Name")) +
             (ToInteger(row.Field("Active")) == 1 ? " active" : "");
    });
  }

  /// The bookings in the order of their making, a line each: "1 2014-04-06 19-21 Smith", with the
  /// group key at the end of those that have one.
  std::string Bookings() {
    return Listed("SELECT * FROM Reserv", [](Recordset& row) {
      const Value key = row.Field("MultKey");
      return ToText(row.Field("RmID")) + " " + IsoText(ToDate(row.Field("DateOfRes")).value()) +
             " " + ToText(row.Field("TimeFrom")) + "-" + ToText(row.Field("TimeTo")) + " " +
             ToText(row.Field("Event")) + (IsNull(key) ? "" : " " + ToText(key));
    });
  }

  /// The same lines in the order of the alphabet: an Access file gives rows that come back the room
  /// of the deleted ones, in any order.
  std::string SortedBookings() {
    std::istringstream text(Bookings());
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) {
      lines.push_back(line + "\n");
    }
    std::sort(lines.begin(), lines.end());
    return std::accumulate(lines.begin(), lines.end(), std::string());
  }

  /// A session with both connections open and its slot labels filled.
  std::unique_ptr<Session> OpenSession() {
    auto session = std::make_unique<Session>();
    session->DataFolder = Path();
    CreateResCon(*session);
    CreateVeyraCon(*session);
    modRes::SlotLabels(session->SlotLabel);
    return session;
  }

  /// The calendar, opened for this one statement.
  std::unique_ptr<Store> Calendar() const {
    return OpenStore(File("Calendar.mdb"), StoreAccess::ReadWrite);
  }

 private:
  void Make(const std::string& name, const std::vector<TableDefinition>& tables) {
    std::shared_ptr<Store> store = CreateStoreOfKind(kind_, File(name));
    for (const TableDefinition& table : tables) {
      store->CreateTable(table);
    }
    if (kind_ == StoreKind::Postgres) {
      kept_[name] = store;
    }
  }

  /// Another program than the one under test. It opens a file for this one statement; on a server
  /// it has it open all the time, as other desks do, and so knows of all that it has booked.
  std::shared_ptr<Store> Other(const std::string& name) {
    const auto kept = kept_.find(name);
    return kept == kept_.end() ? OpenStore(File(name), StoreAccess::ReadWrite) : kept->second;
  }

  template <typename Render>
  std::string Listed(const std::string& sql, Render render) {
    const auto calendar = Other("Calendar.mdb");
    std::string lines;
    Recordset rows(*calendar, ParseQuery(sql), CursorType::ForwardOnlyReadOnly);
    for (; !rows.AtEnd(); rows.MoveNext()) {
      lines += render(rows) + "\n";
    }
    return lines;
  }

  StoreKind kind_;
  TempFolder folder_;
  std::map<std::string, std::shared_ptr<Store>> kept_;
};

/// Gives the session another calendar, without rows, whose facilities have names of at most 20
/// characters where the kind of file has such a limit.
inline void UseShortFacilityNames(Session& session, const TempFolder& folder) {
  auto calendar = CreateStoreOfKind(TestedStoreKind(), folder.File("Short.mdb").string());
  TableDefinition rooms = RoomsTable();
  rooms.Columns.at(1).Size = 20;
  calendar->CreateTable(rooms);
  session.ResCon = std::make_unique<Connection>(std::move(calendar));
}

}  // namespace veyra
