#pragma once

#include "data/access/pages/page_changes.h"
#include "data/access/read/table_layout.h"

namespace veyra::access {

// A long text or other long value, as its row has it:
//
//   0   length, 4 bytes, with 80000000 where the value follows, 40000000 where one row of another
//       page holds it, and neither where a chain of rows does
//   4   that row, or the first one
//   8   4 bytes more, then the value where it follows
//
// The pages of such rows bear "LVAL" where data pages name their table. Each row of a chain begins
// with the pointer to the next one, 0 in the last.

/// Stores a value of a memo column, in its row where it is short. Returns the bytes that stand for
/// it in the row. Throws FileProblem when the column's definition names no pages for it.
Bytes StoreLong(PageChanges& pages, const TableLayout& table, const ColumnLayout& column,
                const Bytes& value);

/// Whether a column of any length can be stored: the definition names the pages for it.
bool HasRoomForLong(const TableLayout& table, const ColumnLayout& column);

/// Gives back the pages of a value that no row holds any more.
void DropLong(PageChanges& pages, const TableLayout& table, const ColumnLayout& column,
              const Bytes& in_row);

}  // namespace veyra::access
