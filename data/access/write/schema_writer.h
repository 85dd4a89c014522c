#pragma once

#include <string>
#include <vector>

#include "data/access/pages/page_changes.h"
#include "data/access/read/table_layout.h"
#include "data/store.h"

namespace veyra::access {

/// A column of the kind that this program makes: a long, a double, a date-time, a text, or a memo
/// for a text without limit. Its number and places are not given yet.
ColumnLayout LayoutOf(const ColumnDefinition& column);

/// Writes a table without rows on a page of its own, its maps and its indexes on others. The table
/// says its columns, its index columns and flags, and where its definition stands; the rest is
/// filled in. It is in no catalogue yet.
void WriteTable(PageChanges& pages, TableLayout& table);

/// Makes a table and enters it in the catalogue. Indexes on texts are left out. Throws FileProblem
/// when there is a table of that name, or when the name has other signs than ASCII letters and
/// digits.
void CreateTable(PageChanges& pages, const TableDefinition& definition);

/// Adds a column to a table of the catalogue, and sets it in every row where it has a default.
/// Throws FileProblem when there is one of that name.
void AddColumn(PageChanges& pages, PageNumber definition, const ColumnDefinition& column);

}  // namespace veyra::access
