#include "data/sqlite/salvage/table_shapes.h"

#include <chrono>
#include <memory>
#include <utility>

#include "data/errors.h"
#include "data/sqlite/describe.h"
#include "data/sqlite/sql_text.h"

namespace veyra::sqlite {

namespace {

constexpr std::chrono::milliseconds kNoWait{0};

std::string UpperAscii(std::string text) {
  for (char& c : text) {
    if (c >= 'a' && c <= 'z') {
      c = static_cast<char>(c - 'a' + 'A');
    }
  }
  return text;
}

/// Whether a statement makes a table of named columns, and does nothing else.
bool MakesTable(const std::string& sql) {
  const std::string start = UpperAscii(sql.substr(0, sql.find('(')));
  return start.starts_with("CREATE TABLE ") && start.size() < sql.size() &&
         start.find(" AS ") == std::string::npos && start.find("\tAS") == std::string::npos &&
         start.find("\nAS") == std::string::npos;
}

std::vector<Value> DefaultsIn(Reader& reader, const std::string& name, std::size_t count) {
  std::vector<Value> values(count);
  try {
    Statement(reader.database(), "INSERT INTO " + Quoted(name) + " DEFAULT VALUES").Run();
    Statement rows(reader.database(), "SELECT * FROM " + Quoted(name));
    if (rows.Step()) {
      for (std::size_t i = 0; i < count; ++i) {
        values[i] = rows.Column(static_cast<int>(i));
      }
    }
  } catch (const DatabaseError&) {
    // A column that must not be empty has no default, and so was there from the first row on.
  }
  return values;
}

bool FitsColumn(const ColumnDescription& column, const Value& value) {
  if (IsNull(value) || !column.Type) {
    return true;
  }
  const bool is_whole = std::holds_alternative<std::int64_t>(value);
  switch (*column.Type) {
    case ColumnType::WholeNumber:
      return is_whole;
    case ColumnType::Double:
      return is_whole || std::holds_alternative<double>(value);
    case ColumnType::Text:
      return std::holds_alternative<std::string>(value);
    case ColumnType::Day:
      return std::holds_alternative<std::string>(value) && ToDate(value).has_value();
  }
  return false;
}

}  // namespace

std::optional<TableShape> ShapeOf(const std::string& name, const std::string& sql) {
  if (!MakesTable(sql)) {
    return std::nullopt;
  }
  try {
    // In memory: it takes nothing from the damaged file but that statement.
    Reader reader(std::make_unique<Database>(":memory:", ":memory:", OpenMode::ReadWrite, kNoWait));
    Statement(reader.database(), sql).Run();
    TableShape shape{.Table = DescribeTable(reader, name), .Defaults = {}};
    if (shape.Table.Columns.empty() || reader.catalogue().Find(name).Key.empty()) {
      return std::nullopt;
    }
    shape.Defaults = DefaultsIn(reader, name, shape.Table.Columns.size());
    return shape;
  } catch (const DatabaseError&) {
    return std::nullopt;
  }
}

TableShape ShapeOf(const TableDefinition& definition) {
  return ShapeOf(definition.Name, CreateTableSql(definition)).value();
}

bool FitsShape(const TableShape& shape, const std::vector<Value>& record) {
  const auto& columns = shape.Table.Columns;
  if (record.empty() || record.size() > columns.size()) {
    return false;
  }
  for (std::size_t i = 0; i < record.size(); ++i) {
    if (!FitsColumn(columns[i], record[i]) || (columns[i].AutoNumber && !IsNull(record[i]))) {
      return false;
    }
  }
  return true;
}

std::vector<Value> RowOf(const TableShape& shape, std::vector<Value> record, std::int64_t number) {
  const auto& columns = shape.Table.Columns;
  for (std::size_t i = record.size(); i < columns.size(); ++i) {
    record.push_back(shape.Defaults.at(i));
  }
  record.resize(columns.size());
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const auto* whole = std::get_if<std::int64_t>(&record[i]);
    if (columns[i].AutoNumber && IsNull(record[i])) {
      record[i] = number;
    } else if (whole != nullptr && columns[i].Type == ColumnType::Double) {
      record[i] = static_cast<double>(*whole);
    }
  }
  return record;
}

}  // namespace veyra::sqlite
