#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "data/databases.h"
#include "data/store.h"

namespace veyra {

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
