#include "data/postgres/row_changes.h"

#include <algorithm>
#include <utility>

#include "data/postgres/cell.h"
#include "data/postgres/result_rows.h"
#include "data/postgres/sql_text.h"
#include "data/store_errors.h"

namespace veyra::postgres {

namespace {

/// How many rows are sent in one statement, and how many values it may hold.
constexpr std::size_t kRowsAtOnce = 200;
constexpr std::size_t kValuesAtOnce = 10'000;

}  // namespace

std::vector<Row> RowChanges::Add(const std::string& table_name,
                                 const std::vector<FieldValues>& rows) {
  const Table& table = catalogue_.Find(table_name);
  schema_.KeepNumbersAhead(table, rows);
  std::vector<Row> added;
  for (std::size_t at = 0; at < rows.size();) {
    const std::size_t most =
        std::min(kRowsAtOnce, kValuesAtOnce / std::max<std::size_t>(rows[at].size(), 1));
    const std::size_t count = RowsAlike(rows, at, most);
    const BoundSql sql = InsertSql(place_, table, {rows.data() + at, count});
    for (Row& row : Noted(table_name, RowReader(session_.Run(sql.Text, sql.Values)))) {
      added.push_back(std::move(row));
    }
    at += count;
  }
  return added;
}

Row RowChanges::SetFields(const std::string& table_name, const Row& before,
                          const FieldValues& fields) {
  RequireRowOf(catalogue_.Find(table_name), before);
  const Table& table = catalogue_.Find(table_name);
  const BoundSql sql = UpdateSql(place_, table, before, fields);
  std::vector<Row> rows = Noted(table_name, RowReader(session_.Run(sql.Text, sql.Values)));
  if (rows.empty()) {
    FailAsChanged(table, before.Key);
  }
  return std::move(rows.front());
}

void RowChanges::Remove(const std::string& table_name, const Row& before) {
  RequireRowOf(catalogue_.Find(table_name), before);
  const Table& table = catalogue_.Find(table_name);
  const BoundSql sql = DeleteSql(place_, table, before);
  if (session_.Run(sql.Text, sql.Values).RowCount() == 0) {
    FailAsChanged(table, before.Key);
  }
}

Look RowChanges::Make(const RowChange& change) {
  if (change.What == RowChange::Kind::Remove) {
    Remove(change.Table, change.Before);
    return [this, &change] { return !IsStored(change.Table, change.Before); };
  }
  const Row after = change.What == RowChange::Kind::Add
                        ? Add(change.Table, {change.Fields}).front()
                        : SetFields(change.Table, change.Before, change.Fields);
  return [this, &change, after] { return IsStored(change.Table, after); };
}

bool RowChanges::IsStored(const std::string& table_name, const Row& row) {
  const Table& table = catalogue_.Find(table_name);
  const BoundSql sql = SelectRowSql(place_, table, row.Key);
  const RowReader rows(session_.Run(sql.Text, sql.Values));
  return rows.RowCount() == 1 && rows.At(0).Values == row.Values;
}

/// Rows as the server gave them: this desk knows of them. So it does when they
/// are undone again: their numbers are never given a second time.
std::vector<Row> RowChanges::Noted(const std::string& table, RowReader rows) {
  std::vector<Row> noted;
  ResultRows source(std::move(rows), table, seen_);
  for (Row row; source.Next(row);) {
    noted.push_back(row);
  }
  return noted;
}

/// As another program may have added a column meanwhile.
void RowChanges::RequireRowOf(const Table& table, const Row& before) {
  if (before.Values.size() != table.Columns.size()) {
    catalogue_.Forget();
    if (before.Values.size() != catalogue_.Find(std::string(table.Name)).Columns.size()) {
      throw RowChanged(place_.File, table.Name);
    }
  }
}

void RowChanges::FailAsChanged(const Table& table, RowKey row) {
  const BoundSql sql = SelectRowSql(place_, table, row);
  if (session_.Run(sql.Text, sql.Values).RowCount() == 0) {
    throw RowRemoved(place_.File, table.Name);
  }
  throw RowChanged(place_.File, table.Name);
}

}  // namespace veyra::postgres
