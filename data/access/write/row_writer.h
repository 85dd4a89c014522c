#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "data/access/format/bytes.h"
#include "data/access/format/row_view.h"
#include "data/access/read/table_layout.h"
#include "data/store.h"
#include "data/value.h"

namespace veyra::access {

/// The bytes of each column of a row, in the order of the table's columns; nothing for a null. A
/// yes is a column without bytes, a no a null.
using RawRow = std::vector<std::optional<Bytes>>;

/// The columns of a row as they stand in the file.
RawRow RawColumns(const RowView& row, const TableLayout& table);

/// A row of a Jet 4 file, as RowView describes it. Throws FileProblem when it is longer than a
/// page.
Bytes EncodeRow(const RawRow& row, const TableLayout& table);

/// The bytes of a value in a column; nothing for a null. Those of a memo are still to be stored
/// with StoreLong. Throws FileProblem when the column cannot hold the value: a text longer than it
/// allows, a number outside its range, a text for a number.
std::optional<Bytes> EncodeValue(const Value& value, const ColumnLayout& column);

/// How many characters of a text, from its first one on, the column holds; all of them when it
/// holds the text or is not for texts of limited length. The limit is one of UTF-16 code units, of
/// which a character has one or two.
std::size_t FittingCharacters(const ColumnLayout& column, std::string_view text);

/// A text as the file has it: compressed where the column allows and all of it can be.
Bytes EncodeText(std::string_view text, bool may_compress);

}  // namespace veyra::access
