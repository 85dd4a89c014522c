#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "data/connection.h"
#include "data/open_store.h"

namespace veyra {

/// The two databases and the folders they were found by.
struct Databases {
  std::string AppFolder;   ///< The program's own folder, without a separator at its end.
  std::string DataFolder;  ///< The folder of both databases; empty when path.txt named none.
  WaitPolicy Waiting;      ///< How to wait for a file that another program holds.
  std::unique_ptr<Connection> ResCon;    ///< The calendar: Rooms, Reserv, Settings.
  std::unique_ptr<Connection> GuestCon;  ///< The host product's guests: Guest, read only.
  bool WaitedInVain = false;  ///< An upgrade could not have ResCon's file: the next do not wait.
};

/// The full name of the calendar file, as the system writes it.
std::string CalendarFileOf(const Databases& databases);

/// Opens DataFolder & "\Calendar.mdb" as ResCon, in place of any connection that is open there.
/// Throws DatabaseError when the file cannot be opened for reading and writing.
void CreateResCon(Databases& databases);

/// The same for a ResCon whose file was replaced. When the file that is there now cannot be opened,
/// ResCon is a connection that fails with a FileReplacedError whatever is asked of it, until a
/// later call succeeds.
void ReopenResCon(Databases& databases);

/// Opens DataFolder & "\Veyra.mdb" as GuestCon, in place of any connection that is open there.
/// Throws DatabaseError when the file cannot be opened for reading.
void CreateVeyraCon(Databases& databases);

/// Makes table Settings with its default row, ID 1, all five colours set, when there is no such
/// table: in one change of the file, so that no end of the program leaves a part of it. Works on
/// ResCon itself, which sees the table at once. Failures are silent here; ResCon tells of them when
/// the table or a column is then found missing. REQUIRES: ResCon is open, as for the next two.
void EnsureSettingsRow(Databases& databases);

/// Adds column MultKey (double, default 0) to Reserv when it is missing. Failures as above.
void EnsureMultKeyColumn(Databases& databases);

/// Adds column TodayBColor to Settings when it is missing, set in row 1 to what BkGrnd holds there,
/// all in one change of the file. Failures as above.
void EnsureTodayBColorColumn(Databases& databases);

/// Whether a member of the collection is named exactly so, letter case included.
bool HasNamedItem(const std::vector<std::string>& collection, std::string_view item_name);

/// The tables of a new calendar as veyra-data makes them; Settings is left to EnsureSettingsRow.
TableDefinition RoomsTable();
TableDefinition ReservTable();

/// All tables of a calendar that any start has seen, Settings included, with all their columns.
std::vector<TableDefinition> CalendarTables();

/// The one table of a new guest database.
TableDefinition GuestTable();

}  // namespace veyra
