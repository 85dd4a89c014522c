#pragma once

#include <string>

#include "data/access/pages/page_changes.h"
#include "data/store.h"

namespace veyra::access {

/// Makes a table with its first rows and enters it in the catalogue. Indexes on texts are left out.
/// Throws FileProblem when there is a table of that name, or when the name is none that HasTextKey.
void CreateTable(PageChanges& pages, const TableDefinition& definition);

/// Adds a column to a table of the catalogue, and sets it in every row where it has a default, in
/// the one row to what it copies. Throws FileProblem when there is one of that name.
void AddColumn(PageChanges& pages, PageNumber definition, const ColumnDefinition& column);

}  // namespace veyra::access
