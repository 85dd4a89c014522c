#pragma once

#include <string>
#include <vector>

#include "data/access/pages/page_changes.h"
#include "data/access/read/table_layout.h"

namespace veyra::access {

/// Gives columns their numbers, their offsets among the fixed ones and their places among the
/// variable ones, in their order.
void LayOut(TableLayout& table);

/// The definition of a table without rows, its pages joined, as table_layout.h describes it. The
/// index named "PrimaryKey" is the table's primary key.
Bytes EncodeDefinition(const TableLayout& table);

/// Writes a definition from its first page on, as many pages as it needs.
void WriteDefinition(PageChanges& pages, PageNumber first_page, Bytes definition);

/// Adds the description of a column after the last. `maps` is that of a long text column.
/// REQUIRES: the column's number and place are the next ones of the table.
void AppendColumn(PageChanges& pages, const TableLayout& table, const ColumnLayout& column,
                  const LongColumnMaps* maps);

}  // namespace veyra::access
