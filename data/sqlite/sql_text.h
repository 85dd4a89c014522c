#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "data/query.h"
#include "data/sqlite/catalogue.h"
#include "data/sqlite/quoted.h"
#include "data/store.h"

namespace veyra::sqlite {

/// SQL in SQLite's dialect, a question mark for each value.
struct BoundSql {
  std::string Text;
  std::vector<Value> Parameters;
};

/// The rows of a query: the row's number (null when rows have none), then the table's columns.
/// Throws DatabaseError when the query names a column that the table lacks.
BoundSql SelectSql(const std::string& file, const Table& table, const Query& query);

/// One row by its number, in the same columns. REQUIRES: the table's rows have numbers.
std::string SelectRowSql(const Table& table);

/// Adds a row, one parameter for each column that is not computed.
std::string InsertSql(const Table& table);

/// Sets columns in one row; the last parameter is its number.
std::string UpdateSql(const Table& table, const std::vector<std::string>& columns);

/// Removes the row of a number.
std::string DeleteSql(const Table& table);

std::string CreateTableSql(const TableDefinition& definition);
std::string CreateIndexSql(const std::string& table, const IndexDefinition& index);
std::string AddColumnSql(const Table& table, const ColumnDefinition& column);

/// Sets a column to what another holds, in the row that the parameter tells.
std::string CopyFieldSql(const Table& table, const std::string& column, const CopiedField& copied);

}  // namespace veyra::sqlite
