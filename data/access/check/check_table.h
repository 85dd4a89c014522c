#pragma once

#include <string>

#include "data/access/check/page_owners.h"
#include "data/access/pages/page_source.h"

namespace veyra::access {

/// Checks a table: its definition, its maps of pages, its rows and their long values, its row
/// count, its indexes (of a Jet 4 file).
void CheckTable(PageSource& pages, const std::string& name, PageNumber definition,
                Findings& findings);

}  // namespace veyra::access
