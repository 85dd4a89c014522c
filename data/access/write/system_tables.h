#pragma once

#include <string>

#include "data/access/pages/page_changes.h"

namespace veyra::access {

/// The definition pages of the tables that describe all others, in every Jet 4 file.
inline constexpr PageNumber kObjectsPage = 2;
inline constexpr PageNumber kPermissionsPage = 3;
inline constexpr PageNumber kQueriesPage = 4;
inline constexpr PageNumber kRelationshipsPage = 5;

/// Enters a table in MSysObjects with its properties, and in MSysACEs that everybody may use it.
void EnterInCatalogue(PageChanges& pages, const std::string& name, PageNumber definition,
                      const Bytes& properties);

/// Writes the four system tables of a new database, with the rows that describe themselves.
/// REQUIRES: the pages before kObjectsPage are there, and those from it on are not.
void WriteSystemTables(PageChanges& pages);

/// The creation stamp of a new database, in days since 1899-12-30. The ids of users stand in
/// MSysACEs masked in a way that this stamp decides; the ids written here are those of this one.
inline constexpr double kCreationStamp = 38143.546523784724;

/// What page 0 says beside it.
inline constexpr std::uint32_t kCreationMark = 0x21AA;

}  // namespace veyra::access
