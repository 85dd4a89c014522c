#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "data/postgres/booking_days.h"
#include "data/postgres/catalogue.h"
#include "data/query.h"
#include "data/store.h"

namespace veyra::postgres {

/// SQL in the server's dialect, with what stands for $1, $2 ...
struct BoundSql {
  std::string Text;
  Parameters Values;
};

/// Where the statements find the tables, and how failures name the calendar.
struct Place {
  std::string File;    ///< The full name of the link file.
  std::string Schema;  ///< As it is spelled, without quotes.
};

/// The table's name as it stands in SQL, with its schema.
std::string FullName(const Place& place, const std::string& table);

/// Every column of the rows of a query. Throws MissingItemError when it names a column that the
/// table lacks.
BoundSql SelectSql(const Place& place, const Table& table, const Query& query);

/// Every booking of a day, of one facility or of all, whether or not it satisfies the query, which
/// confines itself to that day: whoever looks for what stands in his way on a day knows from then
/// on of all that is booked on it.
BoundSql SelectDaySql(const Place& place, const Table& table, const Query& query,
                      const WholeDay& whole);

/// How many rows from `first` on name the same columns as that one and leave its number to the
/// server where that does; no more than `most`, at least 1.
std::size_t RowsAlike(const std::vector<FieldValues>& rows, std::size_t first, std::size_t most);

/// Adds rows, and gives them as stored, in their order. Columns that are not named hold null, a
/// numbered one its number. Throws MissingItemError, ValueRefusedError. REQUIRES: RowsAlike.
BoundSql InsertSql(const Place& place, const Table& table, std::span<const FieldValues> rows);

/// Sets fields in the row as it was read, and gives it as stored; no row when it is no longer so.
/// With no field it gives the row that is still so. REQUIRES: as many values as columns.
BoundSql UpdateSql(const Place& place, const Table& table, const Row& before,
                   const FieldValues& fields);

/// Removes the row as it was read, and gives its number; nothing when it is no longer so.
BoundSql DeleteSql(const Place& place, const Table& table, const Row& before);

/// Gives the row of that number as it is now.
BoundSql SelectRowSql(const Place& place, const Table& table, RowKey row);

/// The column as it is written where a table is made, its default left out: what a field holds that
/// nobody names is null.
std::string ColumnText(const ColumnDefinition& column);

/// Makes a table, and an index of one.
std::string CreateTableSql(const Place& place, const TableDefinition& definition);
std::string CreateIndexSql(const Place& place, const std::string& table,
                           const IndexDefinition& index);

/// Adds a column, in which all rows that stand hold its default; rows that come hold null.
std::vector<std::string> AddColumnSql(const Place& place, const Table& table,
                                      const ColumnDefinition& column);

/// Sets a column to what another holds, in the row that `copied` tells.
BoundSql CopyFieldSql(const Place& place, const Table& table, const std::string& column,
                      const CopiedField& copied);

}  // namespace veyra::postgres
