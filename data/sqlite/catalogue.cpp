#include "data/sqlite/catalogue.h"

#include <utility>

#include "data/names.h"
#include "data/sqlite/quoted.h"
#include "data/store_errors.h"

namespace veyra::sqlite {

namespace {

/// The kinds of column that "PRAGMA table_xinfo" tells apart.
constexpr std::int64_t kHidden = 1;
constexpr std::int64_t kOrdinary = 0;

/// Columns of "PRAGMA table_list" and "PRAGMA table_xinfo".
enum ListColumn { kListedName = 1, kListedType = 2, kListedRowless = 4 };
enum InfoColumn { kColumnName = 1, kColumnHidden = 6 };

/// The first of SQLite's names for the row number that no column bears.
std::string FreeKeyName(const std::vector<std::string>& columns) {
  for (const char* name : {"rowid", "_rowid_", "oid"}) {
    if (!FindName(columns, name)) {
      return name;
    }
  }
  return {};
}

}  // namespace

Catalogue::Catalogue(Database& database, StatementCache& statements)
    : database_(database), statements_(statements) {}

std::vector<std::string> Catalogue::TableNames() {
  const auto statement = statements_.Take(
      "SELECT name FROM sqlite_schema WHERE type IN ('table', 'view')"
      " AND substr(name, 1, 7) <> 'sqlite_' ORDER BY rowid");
  std::vector<std::string> names;
  while (statement->Step()) {
    names.push_back(statement->Text(0));
  }
  return names;
}

const Table& Catalogue::Find(const std::string& name) {
  Refresh();
  const auto found = tables_.find(name);
  if (found != tables_.end()) {
    return found->second;
  }
  return tables_.emplace(name, Read(name)).first->second;
}

bool Catalogue::KeepsJournal() {
  return Known(keeps_journal_,
               "SELECT 1 FROM sqlite_schema WHERE type = 'trigger'"
               " AND name LIKE 'ChangeJournal@_%' ESCAPE '@'");
}

bool Catalogue::HasJournalTable() {
  return Known(has_journal_table_,
               "SELECT 1 FROM sqlite_schema WHERE type = 'table'"
               " AND name = 'ChangeJournal' COLLATE NOCASE");
}

/// Whether the query gives a row, asked anew only when the schema has changed.
bool Catalogue::Known(std::optional<bool>& answer, const char* sql) {
  Refresh();
  if (!answer) {
    answer = statements_.Take(sql)->Step();
  }
  return *answer;
}

bool Catalogue::Refresh() {
  // To ask for the schema's version takes a lock on the file. What SQLite noticed of changes when
  // it last read the file costs nothing.
  if (file_version_ == database_.Version()) {
    return false;
  }
  const auto statement = statements_.Take("PRAGMA schema_version");
  const std::int64_t version = statement->Step() ? statement->Integer(0) : -1;
  file_version_ = database_.Version();
  if (version == schema_version_) {
    return false;
  }
  tables_.clear();
  keeps_journal_.reset();
  has_journal_table_.reset();
  schema_version_ = version;
  return true;
}

Table Catalogue::Read(const std::string& name) {
  Table table;
  // Not by way of the tables that give the same: to set those up takes several times as long.
  const auto tables = statements_.Take("PRAGMA main.table_list(" + Quoted(name) + ")");
  if (!tables->Step()) {
    throw MissingTable(database_.file(), name);
  }
  table.Name = tables->Text(kListedName);
  const bool has_keys = tables->Text(kListedType) != "view" && tables->Integer(kListedRowless) == 0;

  const auto columns = statements_.Take("PRAGMA main.table_xinfo(" + Quoted(name) + ")");
  while (columns->Step()) {
    const std::int64_t kind = columns->Integer(kColumnHidden);
    if (kind == kHidden) {
      continue;
    }
    table.Columns.push_back(columns->Text(kColumnName));
    table.Computed.push_back(kind != kOrdinary);
  }
  if (has_keys) {
    table.Key = FreeKeyName(table.Columns);
  }
  return table;
}

}  // namespace veyra::sqlite
