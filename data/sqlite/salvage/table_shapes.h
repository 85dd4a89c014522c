#pragma once

#include <optional>
#include <string>
#include <vector>

#include "data/store.h"
#include "data/store_description.h"

namespace veyra::sqlite {

/// A table as its rows show themselves.
struct TableShape {
  TableDescription Table;
  std::vector<Value> Defaults;  ///< What a row holds that was written before a column came.
};

/// The shape of a table by the statement that made it; nothing when that is damaged, or makes a
/// table whose rows have no numbers.
std::optional<TableShape> ShapeOf(const std::string& name, const std::string& sql);

/// The shape of a table that this program makes.
TableShape ShapeOf(const TableDefinition& definition);

/// Whether a record may be a row of the table: no more values than columns, each of its column's
/// type.
bool FitsShape(const TableShape& shape, const std::vector<Value>& record);

/// The row that a record and its number stand for.
std::vector<Value> RowOf(const TableShape& shape, std::vector<Value> record, std::int64_t number);

}  // namespace veyra::sqlite
