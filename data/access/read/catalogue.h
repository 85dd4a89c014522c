#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "data/access/pages/page_source.h"

namespace veyra::access {

/// The page of the definition of MSysObjects, the table of all tables.
inline constexpr PageNumber kCataloguePage = 2;

/// A table that the file's own users made.
struct CatalogueEntry {
  std::string Name;
  PageNumber Definition = 0;
};

/// The tables of the file in the order they were made. Throws DamagedFile when MSysObjects cannot
/// be read.
std::vector<CatalogueEntry> ReadCatalogue(PageSource& file);

/// The same, and the tables of the system itself.
std::vector<CatalogueEntry> ReadAllTables(PageSource& file);

/// How many queries, forms, reports, macros, modules and links to tables elsewhere there are.
int CountOtherObjects(PageSource& file);

/// The entry of that name, found without regard to ASCII letter case, or nullptr.
const CatalogueEntry* FindTable(const std::vector<CatalogueEntry>& catalogue,
                                std::string_view name);

}  // namespace veyra::access
