#pragma once

#include <string>
#include <vector>

#include "data/access/check/page_owners.h"
#include "data/access/pages/page_source.h"
#include "data/access/read/table_image.h"

namespace veyra::access {

/// Checks an index of a Jet 4 file against the rows of its table: its pages, its order, an entry
/// for each row and no other. `table` is the table's name. The entries of an index whose keys are
/// not known here are only counted.
void CheckIndex(PageSource& pages, const TableImage& image, const IndexLayout& index,
                const std::string& table, Findings& findings);

}  // namespace veyra::access
