#include "data/sqlite/row_writer.h"

#include <sqlite3.h>

#include <utility>

#include "data/names.h"
#include "data/sqlite/sql_text.h"
#include "data/store_errors.h"

namespace veyra::sqlite {

std::size_t RequireColumn(const std::string& file, const Table& table, const std::string& name) {
  const auto column = FindName(table.Columns, name);
  if (!column) {
    throw MissingColumn(file, table.Name, name);
  }
  return *column;
}

const Table& RowWriter::Find(const std::string& name) {
  const Table& table = reader_.catalogue().Find(name);
  if (table.Key.empty()) {
    throw DatabaseError(
        {reader_.file(), Phrase::Tr("The rows of the table %1 cannot be changed.", table.Name),
         Phrase::Tr("The file was made by another program. Use the file of this program.")});
  }
  return table;
}

bool RowWriter::IsStored(const std::string& table, const Row& row) {
  Row now;
  return ReadRow(reader_.catalogue().Find(table), row.Key, now) && now.Values == row.Values;
}

void RowWriter::Run(std::string sql, const std::vector<Value>& parameters) {
  const auto statement = reader_.statements().Take(std::move(sql));
  statement->Bind(parameters);
  statement->Run();
}

bool RowWriter::ReadRow(const Table& table, RowKey key, Row& row) {
  const std::vector<Value> parameters{key};
  const auto statement = reader_.statements().Take(SelectRowSql(table));
  statement->Bind(parameters);
  if (!statement->Step()) {
    return false;
  }
  TakeRow(*statement, row);
  return true;
}

/// Compares what SQLite gives now with what it gave when `before` was read, rather than asking
/// SQLite to compare: its own "=" takes some different values for equal (letter case in a column
/// that ignores it, the number 1 and the text "1").
void RowWriter::CheckUnchanged(const Table& table, const Row& before) {
  Row now;
  if (!ReadRow(table, before.Key, now)) {
    throw RowRemoved(reader_.file(), table.Name);
  }
  if (now.Values != before.Values) {
    throw RowChanged(reader_.file(), table.Name);
  }
}

/// What the columns that are no formula are to hold.
std::vector<Value> RowWriter::StoredValues(const Table& table, const FieldValues& fields) const {
  std::vector<Value> by_column(table.Columns.size());
  for (const auto& [name, value] : fields) {
    by_column[RequireColumn(reader_.file(), table, name)] = value;
  }
  std::vector<Value> stored;
  for (std::size_t i = 0; i < by_column.size(); ++i) {
    if (!table.Computed[i]) {
      stored.push_back(std::move(by_column[i]));
    }
  }
  return stored;
}

void RowWriter::Insert(const Table& table, const FieldValues& fields) {
  Run(InsertSql(table), StoredValues(table, fields));
}

void RowWriter::InsertAll(const Table& table, const std::vector<FieldValues>& rows) {
  const auto statement = reader_.statements().Take(InsertSql(table));
  for (const FieldValues& fields : rows) {
    const std::vector<Value> stored = StoredValues(table, fields);
    statement->Bind(stored);
    statement->Run();
    statement->Reset();
  }
}

Row RowWriter::ReadNew(const Table& table) {
  Row row;
  ReadRow(table, sqlite3_last_insert_rowid(reader_.database().handle()), row);
  return row;
}

Row RowWriter::Change(const Table& table, const Row& before, const FieldValues& fields) {
  CheckUnchanged(table, before);
  if (fields.empty()) {
    return before;
  }
  std::vector<std::string> columns;
  std::vector<Value> parameters;
  for (const auto& [name, value] : fields) {
    columns.push_back(table.Columns[RequireColumn(reader_.file(), table, name)]);
    parameters.push_back(value);
  }
  parameters.emplace_back(before.Key);
  Run(UpdateSql(table, columns), parameters);
  Row after;
  if (!ReadRow(table, before.Key, after)) {
    throw RowRemoved(reader_.file(), table.Name);
  }
  return after;
}

void RowWriter::Remove(const Table& table, const Row& before) {
  CheckUnchanged(table, before);
  Run(DeleteSql(table), {before.Key});
}

}  // namespace veyra::sqlite
