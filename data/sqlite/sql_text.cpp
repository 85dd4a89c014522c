#include "data/sqlite/sql_text.h"

#include <array>
#include <charconv>
#include <utility>

#include "data/names.h"
#include "data/sql_words.h"
#include "data/store_errors.h"

namespace veyra::sqlite {

namespace {

/// Writes a query's text piece by piece, gathering the values.
class SelectWriter {
 public:
  SelectWriter(const std::string& file, const Table& table) : file_(file), table_(table) {}

  BoundSql Write(const Query& query) {
    sql_.Text =
        "SELECT " + (table_.Key.empty() ? "NULL" : table_.Key) + ", * FROM " + Quoted(table_.Name);
    if (query.Where) {
      sql_.Text += " WHERE ";
      WriteCondition(*query.Where);
    }
    WriteOrder(query.OrderBy);
    return std::move(sql_);
  }

 private:
  void WriteCondition(const Condition& condition) {
    std::visit([this](const auto& one) { WriteOne(one); }, condition);
  }

  void WriteOne(const Comparison& comparison) {
    WriteOperand(comparison.Left);
    sql_.Text += TestText(comparison.Test);
    WriteOperand(comparison.Right);
  }

  void WriteOne(const Junction& junction) {
    const char* word = junction.By == Junction::Kind::And ? " AND " : " OR ";
    const char* before = "(";
    for (const Condition& part : junction.Parts) {
      sql_.Text += std::exchange(before, word);
      WriteCondition(part);
    }
    sql_.Text += ')';
  }

  void WriteOperand(const Operand& operand) {
    if (const auto* column = std::get_if<ColumnName>(&operand)) {
      WriteColumn(column->Name);
      return;
    }
    sql_.Text += '?';
    sql_.Parameters.push_back(std::get<Value>(operand));
  }

  void WriteOrder(const std::vector<OrderTerm>& order) {
    const char* before = " ORDER BY ";
    for (const OrderTerm& term : order) {
      sql_.Text += std::exchange(before, ", ");
      WriteColumn(term.Column);
      if (term.Descending) {
        sql_.Text += " DESC";
      }
    }
    if (!table_.Key.empty()) {
      sql_.Text += before + table_.Key;
    }
  }

  void WriteColumn(const std::string& name) {
    const auto column = FindName(table_.Columns, name);
    if (!column) {
      throw MissingColumn(file_, table_.Name, name);
    }
    sql_.Text += Quoted(table_.Columns[*column]);
  }

  const std::string& file_;
  const Table& table_;
  BoundSql sql_;
};

/// The shortest decimal text that reads back as the same double, and as no whole number.
std::string DoubleLiteral(double number) {
  std::array<char, 32> text{};
  const auto [end, error] =
      std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::scientific);
  return {text.data(), static_cast<std::size_t>(end - text.data())};
}

std::string Literal(const Value& value) {
  if (const auto* number = std::get_if<double>(&value)) {
    return DoubleLiteral(*number);
  }
  if (std::holds_alternative<std::int64_t>(value)) {
    return ToText(value);
  }
  return TextLiteral(ToText(value));
}

std::string TypeText(const ColumnDefinition& column) {
  switch (column.Type) {
    case ColumnType::WholeNumber:
      return column.AutoIncrement ? "INTEGER PRIMARY KEY AUTOINCREMENT" : "INTEGER";
    case ColumnType::Double:
      return "DOUBLE";
    case ColumnType::Day:
      return "DATE";
    case ColumnType::Text:
      return column.Size > 0 ? "VARCHAR(" + std::to_string(column.Size) + ")" : "TEXT";
  }
  return "";
}

std::string ColumnText(const ColumnDefinition& column) {
  std::string text = Quoted(column.Name) + " " + TypeText(column);
  if (!IsNull(column.Default)) {
    text += " DEFAULT " + Literal(column.Default);
  }
  return text;
}

}  // namespace

BoundSql SelectSql(const std::string& file, const Table& table, const Query& query) {
  return SelectWriter(file, table).Write(query);
}

std::string SelectRowSql(const Table& table) {
  return "SELECT " + table.Key + ", * FROM " + Quoted(table.Name) + " WHERE " + table.Key + " = ?";
}

std::string InsertSql(const Table& table) {
  std::vector<std::string> names;
  std::vector<std::string> marks;
  for (std::size_t i = 0; i < table.Columns.size(); ++i) {
    if (table.Computed[i]) {
      continue;
    }
    names.push_back(Quoted(table.Columns[i]));
    marks.emplace_back("?");
  }
  return "INSERT INTO " + Quoted(table.Name) + " (" + CommaList(names) + ") VALUES (" +
         CommaList(marks) + ")";
}

std::string UpdateSql(const Table& table, const std::vector<std::string>& columns) {
  std::vector<std::string> settings;
  for (const std::string& column : columns) {
    settings.push_back(Quoted(column) + " = ?");
  }
  return "UPDATE " + Quoted(table.Name) + " SET " + CommaList(settings) + " WHERE " + table.Key +
         " = ?";
}

std::string DeleteSql(const Table& table) {
  return "DELETE FROM " + Quoted(table.Name) + " WHERE " + table.Key + " = ?";
}

std::string CreateTableSql(const TableDefinition& definition) {
  std::vector<std::string> columns;
  for (const ColumnDefinition& column : definition.Columns) {
    columns.push_back(ColumnText(column));
  }
  return "CREATE TABLE " + Quoted(definition.Name) + " (" + CommaList(columns) + ")";
}

std::string CreateIndexSql(const std::string& table, const IndexDefinition& index) {
  std::vector<std::string> columns;
  for (const std::string& column : index.Columns) {
    columns.push_back(Quoted(column));
  }
  for (const std::string& column : index.Held) {
    columns.push_back(Quoted(column));
  }
  return "CREATE INDEX " + Quoted(index.Name) + " ON " + Quoted(table) + " (" + CommaList(columns) +
         ")";
}

std::string AddColumnSql(const Table& table, const ColumnDefinition& column) {
  return "ALTER TABLE " + Quoted(table.Name) + " ADD COLUMN " + ColumnText(column);
}

std::string CopyFieldSql(const Table& table, const std::string& column, const CopiedField& copied) {
  return "UPDATE " + Quoted(table.Name) + " SET " + Quoted(column) + " = " + Quoted(copied.From) +
         " WHERE " + Quoted(copied.RowKey) + " = ?";
}

}  // namespace veyra::sqlite
