#pragma once

#include <string_view>

#include "data/access/read/table_layout.h"
#include "data/access/write/row_writer.h"

namespace veyra::access {

// The key of a row in an index: for each of its columns
//
//   null               00
//   a value            7F, then bytes that sort as the values do
//     whole numbers    big-endian, the top bit flipped, but not that of a single byte
//     doubles, dates   big-endian; the top bit flipped where it is 0, else all bits
//     text             a byte or two for each character, without regard to letter case; 01; 00
//   in a falling column all these bytes are complemented, so that it begins with FF or 80

/// Whether the keys of an index are known: its columns are numbers, money or dates.
bool HasKnownKeys(const IndexLayout& index, const TableLayout& table);

/// The key of a row. REQUIRES: HasKnownKeys, or text columns that hold ASCII letters and digits
/// only; throws FileProblem for another text.
Bytes IndexKey(const IndexLayout& index, const TableLayout& table, const RawRow& row);

/// Whether every column of the index is null in the row.
bool IsNullKey(const IndexLayout& index, const TableLayout& table, const RawRow& row);

/// Whether a name can stand in the index of the catalogue: ASCII letters and digits only.
bool IsIndexableName(std::string_view name);

}  // namespace veyra::access
