#include "data/postgres/catalogue.h"

#include "data/names.h"
#include "data/store_errors.h"

namespace veyra::postgres {

namespace {

/// The server's numbers of its own types never change.
enum ServerType : unsigned {
  kBigInt = 20,
  kSmallInt = 21,
  kInt = 23,
  kText = 25,
  kReal = 700,
  kDouble = 701,
  kChar = 1042,
  kVarChar = 1043,
  kDate = 1082,
};

constexpr const char* kAllColumns =
    "SELECT c.relname, c.relkind = 'v', a.attname, a.atttypid,"
    " pg_catalog.format_type(a.atttypid, a.atttypmod), a.attidentity <> ''"
    " FROM pg_catalog.pg_class c JOIN pg_catalog.pg_namespace n ON n.oid = c.relnamespace"
    " JOIN pg_catalog.pg_attribute a ON a.attrelid = c.oid"
    " WHERE n.nspname = $1 AND c.relkind IN ('r', 'p', 'v') AND a.attnum > 0"
    " AND NOT a.attisdropped ORDER BY c.oid, a.attnum";

void AddColumn(Table& table, const Result& rows, int row) {
  Column column{.Name = rows.Text(row, 2),
                .TypeName = rows.Text(row, 4),
                .Type = TypeOf(static_cast<unsigned>(rows.Number(row, 3))),
                .IsAuto = rows.IsTrue(row, 5)};
  if (column.Name == kRowColumn) {
    table.HasRowColumn = true;
  } else {
    table.Columns.push_back(std::move(column));
  }
}

}  // namespace

std::optional<ColumnType> TypeOf(unsigned server_type) {
  switch (server_type) {
    case kBigInt:
    case kSmallInt:
    case kInt:
      return ColumnType::WholeNumber;
    case kReal:
    case kDouble:
      return ColumnType::Double;
    case kText:
    case kChar:
    case kVarChar:
      return ColumnType::Text;
    case kDate:
      return ColumnType::Day;
    default:
      return std::nullopt;
  }
}

const std::vector<Table>& Catalogue::Tables() {
  if (!tables_) {
    const Result rows = session_.Run(kAllColumns, {session_.link().Schema});
    std::vector<Table> tables;
    for (int row = 0; row < rows.RowCount(); ++row) {
      const std::string name = rows.Text(row, 0);
      if (tables.empty() || tables.back().Name != name) {
        tables.push_back({.Name = name, .IsView = rows.IsTrue(row, 1), .Columns = {}});
      }
      AddColumn(tables.back(), rows, row);
    }
    tables_ = std::move(tables);
  }
  return *tables_;
}

std::vector<std::string> Catalogue::TableNames() {
  std::vector<std::string> names;
  for (const Table& table : Tables()) {
    names.push_back(table.Name);
  }
  return names;
}

const Table* Catalogue::Look(const std::string& name) {
  for (const Table& table : Tables()) {
    if (SameName(table.Name, name)) {
      return &table;
    }
  }
  return nullptr;
}

const Table& Catalogue::Find(const std::string& name) {
  const Table* found = Look(name);
  if (found == nullptr) {
    throw MissingTable(session_.file(), name);
  }
  return *found;
}

const Column& FindColumn(const std::string& file, const Table& table, const std::string& name) {
  for (const Column& column : table.Columns) {
    if (SameName(column.Name, name)) {
      return column;
    }
  }
  throw MissingColumn(file, table.Name, name);
}

}  // namespace veyra::postgres
