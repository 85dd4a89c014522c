#pragma once

#include "data/access/read/table_layout.h"
#include "data/access/write/row_writer.h"

namespace veyra::access {

// The key of a row in an index: for each of its columns
//
//   null               00
//   a value            7F, then bytes that sort as the values do
//     whole numbers    big-endian, the top bit flipped, but not that of a single byte
//     doubles, dates   big-endian; the top bit flipped where it is 0, else all bits
//     text             as text_key.h says
//   in a falling column all these bytes are complemented, so that it begins with FF or 80

/// Whether the keys of an index are known: its columns are numbers, money or dates.
bool HasKnownKeys(const IndexLayout& index, const TableLayout& table);

/// What a row holds in a column of an index. Throws DamagedFile when the table has no such column.
const std::optional<Bytes>& ColumnOf(const IndexColumn& column, const TableLayout& table,
                                     const RawRow& row);

/// The key of a row. REQUIRES: HasKnownKeys, or text columns whose texts HasTextKey; throws
/// FileProblem for another text.
Bytes IndexKey(const IndexLayout& index, const TableLayout& table, const RawRow& row);

/// Whether every column of the index is null in the row.
bool IsNullKey(const IndexLayout& index, const TableLayout& table, const RawRow& row);

}  // namespace veyra::access
