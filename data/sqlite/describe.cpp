#include "data/sqlite/describe.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <utility>

#include "data/sqlite/sql_text.h"

namespace veyra::sqlite {

namespace {

constexpr std::size_t kHeaderBytes = 100;
constexpr std::size_t kWrittenByAt = 96;
constexpr std::int64_t kHidden = 1;

std::string UpperAscii(std::string text) {
  for (char& c : text) {
    if (c >= 'a' && c <= 'z') {
      c = static_cast<char>(c - 'a' + 'A');
    }
  }
  return text;
}

/// The type of the values of a column that is declared so, by the words in its name.
std::optional<ColumnType> TypeOf(const std::string& declared) {
  constexpr std::pair<std::string_view, ColumnType> kWords[] = {
      {"DATE", ColumnType::Day},    {"INT", ColumnType::WholeNumber}, {"CHAR", ColumnType::Text},
      {"CLOB", ColumnType::Text},   {"TEXT", ColumnType::Text},       {"REAL", ColumnType::Double},
      {"FLOA", ColumnType::Double}, {"DOUB", ColumnType::Double},
  };
  const std::string name = UpperAscii(declared);
  for (const auto& [word, type] : kWords) {
    if (name.find(word) != std::string::npos) {
      return type;
    }
  }
  return std::nullopt;
}

/// Takes "(50)" off the end of "VARCHAR(50)" and returns its number, or 0.
int TakeSize(std::string& declared) {
  const std::size_t at = declared.find('(');
  if (at == std::string::npos) {
    return 0;
  }
  int size = 0;
  std::from_chars(declared.data() + at + 1, declared.data() + declared.size(), size);
  declared.erase(declared.find_last_not_of(' ', at - 1) + 1);
  return std::max(size, 0);
}

StatementCache::Handle Ask(Reader& reader, const char* sql, const std::vector<Value>& values) {
  auto statement = reader.statements().Take(sql);
  statement->Bind(values);
  return statement;
}

std::int64_t Number(Reader& reader, std::string sql) {
  const auto statement = reader.statements().Take(std::move(sql));
  return statement->Step() ? statement->Integer(0) : 0;
}

std::string Text(Reader& reader, std::string sql) {
  const auto statement = reader.statements().Take(std::move(sql));
  return statement->Step() ? statement->Text(0) : std::string();
}

/// SQLite gives the rows' own numbers to the one column of a key that is declared exactly so.
void MarkAutoNumber(std::vector<ColumnDescription>& columns, const std::vector<bool>& in_key) {
  if (std::count(in_key.begin(), in_key.end(), true) != 1) {
    return;
  }
  const auto key = std::find(in_key.begin(), in_key.end(), true) - in_key.begin();
  ColumnDescription& column = columns[static_cast<std::size_t>(key)];
  column.AutoNumber = UpperAscii(column.TypeName) == "INTEGER";
}

std::vector<ColumnDescription> Columns(Reader& reader, const std::string& table, bool has_numbers) {
  const std::vector<Value> asked{table};
  const auto rows =
      Ask(reader, "SELECT name, type, hidden, pk FROM pragma_table_xinfo(?) ORDER BY cid", asked);
  std::vector<ColumnDescription> columns;
  std::vector<bool> in_key;
  while (rows->Step()) {
    if (rows->Integer(2) == kHidden) {
      continue;
    }
    ColumnDescription column{.Name = rows->Text(0), .TypeName = rows->Text(1)};
    column.Type = TypeOf(column.TypeName);
    column.Size = TakeSize(column.TypeName);
    columns.push_back(std::move(column));
    in_key.push_back(rows->Integer(3) > 0);
  }
  if (has_numbers) {
    MarkAutoNumber(columns, in_key);
  }
  return columns;
}

std::vector<IndexDescription> Indexes(Reader& reader, const std::string& table) {
  const std::vector<Value> asked{table};
  const auto rows =
      Ask(reader, "SELECT name, \"unique\" FROM pragma_index_list(?) ORDER BY seq DESC", asked);
  std::vector<IndexDescription> indexes;
  while (rows->Step()) {
    IndexDescription index{.Name = rows->Text(0), .IsUnique = rows->Integer(1) != 0};
    const std::vector<Value> name{index.Name};
    const auto columns = Ask(reader, "SELECT name FROM pragma_index_info(?) ORDER BY seqno", name);
    while (columns->Step()) {
      index.Columns.push_back(columns->Text(0));
    }
    indexes.push_back(std::move(index));
  }
  return indexes;
}

/// "3, written by 3.40.1"
std::string Version(Reader& reader) {
  const std::string header = reader.database().FirstBytes(kHeaderBytes);
  unsigned number = 0;
  for (std::size_t at = kWrittenByAt; at < kHeaderBytes; ++at) {
    number = number << 8U | static_cast<unsigned char>(header[at]);
  }
  if (number == 0) {
    return "3";
  }
  return "3, written by " + std::to_string(number / 1'000'000) + '.' +
         std::to_string(number / 1'000 % 1'000) + '.' + std::to_string(number % 1'000);
}

}  // namespace

std::int64_t LastNumber(Reader& reader, const std::string& table) {
  // The list of the numbers is there only where a table gives none again.
  if (Number(reader, "SELECT count(*) FROM sqlite_schema WHERE name = 'sqlite_sequence'") == 0) {
    return 0;
  }
  const std::vector<Value> asked{table};
  const auto rows =
      Ask(reader, "SELECT seq FROM sqlite_sequence WHERE name = ? COLLATE NOCASE", asked);
  return rows->Step() ? rows->Integer(0) : 0;
}

TableDescription DescribeTable(Reader& reader, const std::string& name) {
  TableDescription table{.Name = name};
  const std::vector<Value> asked{name};
  const auto kind = Ask(
      reader, "SELECT type = 'view', wr FROM pragma_table_list WHERE schema = 'main' AND name = ?",
      asked);
  const bool is_found = kind->Step();
  table.IsView = is_found && kind->Integer(0) != 0;
  const bool has_numbers = is_found && !table.IsView && kind->Integer(1) == 0;
  table.Columns = Columns(reader, name, has_numbers);
  table.Indexes = Indexes(reader, name);
  table.RowCount = Number(reader, "SELECT count(*) FROM " + Quoted(name));
  return table;
}

StoreDescription Describe(Reader& reader) {
  StoreDescription store{.Kind = FileKind::Sqlite,
                         .KindName = "SQLite",
                         .Version = Version(reader),
                         .CodePage = Text(reader, "PRAGMA encoding")};
  for (const std::string& name : reader.catalogue().TableNames()) {
    store.Tables.push_back(DescribeTable(reader, name));
  }
  return store;
}

}  // namespace veyra::sqlite
