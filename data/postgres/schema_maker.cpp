#include "data/postgres/schema_maker.h"

#include <algorithm>

#include "data/errors.h"
#include "data/journal.h"
#include "data/names.h"
#include "data/postgres/describe.h"
#include "data/postgres/journal_sql.h"
#include "data/postgres/quoted.h"
#include "data/postgres/server_sql.h"
#include "data/store_errors.h"

namespace veyra::postgres {

namespace {

bool HasColumn(const Table& table, const std::string& name) {
  return std::any_of(table.Columns.begin(), table.Columns.end(),
                     [&](const Column& column) { return SameName(column.Name, name); });
}

bool HasAllColumns(const Table& table, const TableDefinition& definition) {
  return table.HasRowColumn &&
         std::all_of(definition.Columns.begin(), definition.Columns.end(),
                     [&](const auto& column) { return HasColumn(table, column.Name); });
}

}  // namespace

void SchemaMaker::MakeSchema() {
  is_making_ = true;
  const Result found = session_.Run(
      "SELECT EXISTS (SELECT FROM pg_catalog.pg_namespace WHERE nspname = $1)", {place_.Schema});
  if (found.IsTrue(0, 0) && !catalogue_.TableNames().empty()) {
    return;
  }
  if (!found.IsTrue(0, 0)) {
    session_.Run("CREATE SCHEMA " + Quoted(place_.Schema));
  }
  session_.RunScript(FunctionsSql(place_.Schema));
}

bool SchemaMaker::Has(const std::string& table) {
  return FindName(catalogue_.TableNames(), table).has_value();
}

void SchemaMaker::RequireEmpty(const TableDefinition& definition) {
  const Table& table = catalogue_.Find(definition.Name);
  const std::string any = "SELECT EXISTS (SELECT FROM " + FullName(place_, table.Name) + ")";
  if (!HasAllColumns(table, definition) || session_.Run(any).IsTrue(0, 0)) {
    throw DatabaseError(
        {place_.File,
         Phrase::Tr("The server has a calendar in the schema \"%1\" already: its table %2 is not "
                    "empty, or is another program's.",
                    place_.Schema, table.Name),
         Phrase::Tr("Nothing was changed. Name another schema or another database.")});
  }
}

void SchemaMaker::MakeTable(const TableDefinition& definition) {
  catalogue_.Forget();
  if (Has(definition.Name)) {
    if (!is_making_) {
      throw TableExists(place_.File, definition.Name);
    }
    RequireEmpty(definition);
    return;
  }
  std::string script = CreateTableSql(place_, definition) + ";\n";
  for (const IndexDefinition& index : definition.Indexes) {
    script += CreateIndexSql(place_, definition.Name, index) + ";\n";
  }
  session_.RunScript(script + TriggersSql(place_.Schema, definition));
  catalogue_.Forget();
  if (IsJournalled(definition.Name) && !is_making_ && KeepsJournal()) {
    EnterChanges(definition.Name);
  }
}

void SchemaMaker::AddColumn(const std::string& table_name, const ColumnDefinition& column) {
  catalogue_.Forget();
  const Table& table = catalogue_.Find(table_name);
  if (HasColumn(table, column.Name)) {
    throw ColumnExists(place_.File, table.Name, column.Name);
  }
  for (const std::string& statement : AddColumnSql(place_, table, column)) {
    session_.Run(statement);
  }
  if (column.Copied) {
    const BoundSql copy = CopyFieldSql(place_, table, column.Name, *column.Copied);
    session_.Run(copy.Text, copy.Values);
  }
  catalogue_.Forget();
  if (IsJournalled(table_name) && KeepsJournal()) {
    EnterChanges(table_name);
  }
}

void SchemaMaker::KeepNumbersAhead(const Table& table, const std::vector<FieldValues>& rows) {
  std::int64_t highest = 0;
  for (const FieldValues& fields : rows) {
    for (const auto& [name, value] : fields) {
      if (FindColumn(place_.File, table, name).IsAuto) {
        highest = std::max(highest, ToInteger(value).value_or(0));
      }
    }
  }
  if (highest == 0 || highest <= LastNumber(session_, place_, table)) {
    return;
  }
  // Whoever adds a row meanwhile would be given a number from before.
  session_.Run("LOCK TABLE " + FullName(place_, table.Name) + " IN SHARE ROW EXCLUSIVE MODE");
  const auto column = std::find_if(table.Columns.begin(), table.Columns.end(),
                                   [](const Column& each) { return each.IsAuto; });
  if (highest > LastNumber(session_, place_, table)) {
    session_.Run(
        "SELECT pg_catalog.setval(pg_catalog.pg_get_serial_sequence($1, $2)::regclass, $3::bigint)",
        {FullName(place_, table.Name), column->Name, std::to_string(highest)});
  }
}

bool SchemaMaker::KeepsJournal() {
  return session_.Run(kKeepsJournalSql, {place_.Schema}).IsTrue(0, 0);
}

void SchemaMaker::KeepJournal(bool keep) {
  catalogue_.Forget();
  if (keep) {
    MakeJournal();
  }
  for (const std::string& table : JournalledTables()) {
    if (!Has(table)) {
      continue;
    }
    if (keep) {
      EnterChanges(table);
    } else {
      session_.RunScript(EnterNothingSql(place_.Schema, catalogue_.Find(table).Name));
    }
  }
}

void SchemaMaker::MakeJournal() {
  if (!Has(kJournalTable)) {
    session_.Run(CreateTableSql(place_, JournalTable()));
    catalogue_.Forget();
  } else if (!HasAllColumns(catalogue_.Find(kJournalTable), JournalTable())) {
    throw DatabaseError(
        {place_.File, Phrase::Tr("The table %1 is another program's.", kJournalTable),
         Phrase::Tr("Nothing was changed. Rename that table to keep a journal here.")});
  }
}

void SchemaMaker::EnterChanges(const std::string& table) {
  session_.RunScript(EnterChangesSql(place_.Schema, catalogue_.Find(table)));
}

}  // namespace veyra::postgres
