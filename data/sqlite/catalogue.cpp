#include "data/sqlite/catalogue.h"

#include <utility>

#include "data/names.h"
#include "data/store_errors.h"

namespace veyra::sqlite {

namespace {

/// The kinds of column that "PRAGMA table_xinfo" tells apart.
constexpr std::int64_t kHidden = 1;
constexpr std::int64_t kOrdinary = 0;

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
  Refresh();
  if (!keeps_journal_) {
    const auto triggers = statements_.Take(
        "SELECT 1 FROM sqlite_schema WHERE type = 'trigger'"
        " AND name LIKE 'ChangeJournal@_%' ESCAPE '@'");
    keeps_journal_ = triggers->Step();
  }
  return *keeps_journal_;
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
  schema_version_ = version;
  return true;
}

Table Catalogue::Read(const std::string& name) {
  Table table;
  const std::vector<Value> asked{name};
  const auto tables = statements_.Take(
      "SELECT name, type = 'view' OR wr FROM pragma_table_list"
      " WHERE schema = 'main' AND name = ? COLLATE NOCASE");
  tables->Bind(asked);
  if (!tables->Step()) {
    throw MissingTable(database_.file(), name);
  }
  table.Name = tables->Text(0);
  const bool has_keys = tables->Integer(1) == 0;

  const auto columns =
      statements_.Take("SELECT name, hidden FROM pragma_table_xinfo(?) ORDER BY cid");
  columns->Bind(asked);
  while (columns->Step()) {
    const std::int64_t kind = columns->Integer(1);
    if (kind == kHidden) {
      continue;
    }
    table.Columns.push_back(columns->Text(0));
    table.Computed.push_back(kind != kOrdinary);
  }
  if (has_keys) {
    table.Key = FreeKeyName(table.Columns);
  }
  return table;
}

}  // namespace veyra::sqlite
