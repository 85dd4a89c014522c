#pragma once

#include "data/access/pages/page_changes.h"
#include "data/access/write/table_writer.h"
#include "data/store.h"

namespace veyra::access {

/// What Store::Insert, Update and Delete do, in pages that are not written yet. They throw
/// FileProblem, and StoreProblem where the row is no longer equal to `before`.
Row InsertRow(PageChanges& pages, TableWriter& writer, const FieldValues& fields);
std::vector<Row> InsertRows(PageChanges& pages, TableWriter& writer,
                            const std::vector<FieldValues>& rows);

/// Adds rows as InsertRows does, and returns what TableWriter::InsertWithoutEntries does.
PendingEntries FillRows(PageChanges& pages, TableWriter& writer,
                        const std::vector<FieldValues>& rows);

Row UpdateRow(PageChanges& pages, TableWriter& writer, const Row& before,
              const FieldValues& fields);
void DeleteRow(PageChanges& pages, TableWriter& writer, const Row& before);

}  // namespace veyra::access
