#include "data/postgres/copy.h"

#include <unistd.h>

#include <memory>

#include "data/create_store.h"
#include "data/postgres/cell.h"
#include "data/postgres/describe.h"
#include "data/postgres/failure.h"

namespace veyra::postgres {

namespace {

constexpr int kRowsAtOnce = 10'000;

/// All reading while this lives is of one moment.
class OneMoment {
 public:
  explicit OneMoment(Session& session) : session_(session) {
    session.Run("BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY");
  }
  ~OneMoment() { session_.Rollback(); }
  OneMoment(const OneMoment&) = delete;
  OneMoment& operator=(const OneMoment&) = delete;

 private:
  Session& session_;
};

TableDefinition DefinitionOf(const TableDescription& table) {
  TableDefinition definition{.Name = table.Name, .Columns = {}};
  for (const ColumnDescription& column : table.Columns) {
    definition.Columns.push_back({.Name = column.Name,
                                  .Type = column.Type.value_or(ColumnType::Text),
                                  .AutoIncrement = column.AutoNumber});
  }
  for (const IndexDescription& index : table.Indexes) {
    if (!index.IsUnique) {
      definition.Indexes.push_back({.Name = index.Name, .Columns = index.Columns});
    }
  }
  return definition;
}

/// The rows that follow that one, a part of them at a time.
RowReader RowsAfter(Session& session, const Place& place, const std::string& table, RowKey last) {
  return RowReader(session.Run("SELECT * FROM " + FullName(place, table) + " WHERE " + kRowColumn +
                                   " > $1::bigint ORDER BY " + kRowColumn + " LIMIT " +
                                   std::to_string(kRowsAtOnce),
                               {std::to_string(last)}));
}

std::vector<FieldValues> Fields(const RowReader& rows) {
  std::vector<FieldValues> fields;
  for (int row = 0; row < rows.RowCount(); ++row) {
    const Row read = rows.At(row);
    FieldValues& values = fields.emplace_back();
    for (std::size_t i = 0; i < read.Values.size(); ++i) {
      values.emplace_back(rows.ColumnNames()[i], read.Values[i]);
    }
  }
  return fields;
}

void CopyRows(Session& session, const Place& place, const std::string& table, Store& target) {
  RowKey last = 0;
  while (true) {
    const RowReader rows = RowsAfter(session, place, table, last);
    if (rows.RowCount() == 0) {
      return;
    }
    target.InsertAll(table, Fields(rows));
    last = rows.At(rows.RowCount() - 1).Key;
  }
}

/// The file is not to give a number again that the server gave to a row which is gone.
void KeepLastNumber(Session& session, const Place& place, const Table& table, Store& target) {
  const std::int64_t last = LastNumber(session, place, table);
  for (const Column& column : table.Columns) {
    if (!column.IsAuto || last == 0) {
      continue;
    }
    const Query there{.Table = table.Name,
                      .Where = Comparison{ColumnName{column.Name}, Relation::Equal, Value(last)},
                      .OrderBy = {}};
    Row row;
    if (!target.Select(there)->Next(row)) {
      target.Delete(table.Name, target.Insert(table.Name, {{column.Name, last}}));
    }
  }
}

void CopyTables(Session& session, Catalogue& catalogue, const Place& place, Store& target) {
  const OneMoment moment(session);
  for (const TableDescription& table : Describe(session, catalogue, place).Tables) {
    const Table& found = catalogue.Find(table.Name);
    if (!found.HasRowColumn) {
      continue;
    }
    target.CreateTable(DefinitionOf(table));
    CopyRows(session, place, table.Name, target);
    KeepLastNumber(session, place, found, target);
  }
}

}  // namespace

void CopyToFile(Session& session, Catalogue& catalogue, const Place& place,
                const std::string& new_file) {
  auto target = CreateStore(new_file, Durability::WhenAsked);
  try {
    CopyTables(session, catalogue, place, *target);
  } catch (...) {
    target.reset();
    unlink(new_file.c_str());
    throw;
  }
}

}  // namespace veyra::postgres
