#include "data/postgres/journal_sql.h"

#include "data/journal.h"
#include "data/postgres/quoted.h"
#include "data/postgres/sql_text.h"

namespace veyra::postgres {

namespace {

std::string TriggerName(const std::string& table) {
  return Quoted(std::string(kJournalTable) + "_" + table);
}

std::string FunctionName(const std::string& schema, const std::string& table) {
  return Quoted(schema) + "." + Quoted("enter_" + table);
}

/// The SQL expression for a field as JournalText writes it.
std::string ValueText(const std::string& field, const Column& column) {
  const std::string text = field + "::text";
  switch (column.Type.value_or(ColumnType::Text)) {
    case ColumnType::WholeNumber:
      return "coalesce(" + text + ", 'NULL')";
    case ColumnType::Double:
      return "coalesce(CASE WHEN " + text + " ~ '^-?[0-9]+$' THEN " + text + " || '.0' ELSE " +
             text + " END, 'NULL')";
    case ColumnType::Day:
      return "coalesce('''' || pg_catalog.to_char(" + field + ", 'YYYY-MM-DD') || '''', 'NULL')";
    case ColumnType::Text:
      break;
  }
  return "coalesce('''' || pg_catalog.replace(" + text + ", '''', '''''') || '''', 'NULL')";
}

/// The SQL expression for what JournalText gives of the row.
std::string RowText(const std::string& row, const Table& table) {
  std::string expression;
  for (const Column& column : table.Columns) {
    const std::string name = JournalText({column.Name}, {Null{}});
    const std::string before = name.substr(0, name.size() - std::string("NULL").size());
    expression += (expression.empty() ? "" : " || ") +
                  TextLiteral(expression.empty() ? before : ", " + before) + " || " +
                  ValueText(row + "." + Quoted(column.Name), column);
  }
  return expression.empty() ? "''" : expression;
}

std::string FunctionSql(const std::string& schema, const Table& table) {
  const std::string journal = FullName({.File = {}, .Schema = schema}, kJournalTable);
  return "CREATE OR REPLACE FUNCTION " + FunctionName(schema, table.Name) +
         "() RETURNS trigger LANGUAGE plpgsql AS $veyra$\n"
         "DECLARE\n"
         "  entry bigint := pg_catalog.nextval(pg_catalog.pg_get_serial_sequence(" +
         TextLiteral(journal) +
         ", 'ID'));\n"
         "  action bigint := nullif(pg_catalog.current_setting('veyra.action_id', true), '');\n"
         "  old_row text;\n"
         "  new_row text;\n"
         "BEGIN\n"
         "  IF action IS NULL AND pg_catalog.current_setting('veyra.desk', true) <> '' THEN\n"
         "    action := entry;\n"
         "    PERFORM pg_catalog.set_config('veyra.action_id', entry::text, true);\n"
         "  END IF;\n"
         "  IF TG_OP <> 'INSERT' THEN\n    old_row := " +
         RowText("OLD", table) +
         ";\n  END IF;\n  IF TG_OP <> 'DELETE' THEN\n    new_row := " + RowText("NEW", table) +
         ";\n  END IF;\n  INSERT INTO " + journal +
         " (\"ID\", \"ActionID\", \"ChangedAt\", \"ActionName\", \"TableName\", \"OldValues\","
         " \"NewValues\")\n"
         "  VALUES (entry, action, pg_catalog.to_char(pg_catalog.statement_timestamp()"
         " AT TIME ZONE 'UTC', 'YYYY-MM-DD HH24:MI:SS.MS'),"
         " nullif(pg_catalog.current_setting('veyra.action', true), ''), " +
         TextLiteral(table.Name) + ", old_row, new_row);\n  RETURN NULL;\nEND\n$veyra$;\n";
}

}  // namespace

const char* const kKeepsJournalSql =
    "SELECT EXISTS (SELECT FROM pg_catalog.pg_trigger t"
    " JOIN pg_catalog.pg_class c ON c.oid = t.tgrelid"
    " JOIN pg_catalog.pg_namespace n ON n.oid = c.relnamespace"
    " WHERE n.nspname = $1 AND t.tgname LIKE 'ChangeJournal@_%' ESCAPE '@')";

std::string EnterChangesSql(const std::string& schema, const Table& table) {
  return FunctionSql(schema, table) + EnterNothingSql(schema, table.Name) + "CREATE TRIGGER " +
         TriggerName(table.Name) + " AFTER INSERT OR UPDATE OR DELETE ON " +
         FullName({.File = {}, .Schema = schema}, table.Name) + " FOR EACH ROW EXECUTE FUNCTION " +
         FunctionName(schema, table.Name) + "();\n";
}

std::string EnterNothingSql(const std::string& schema, const std::string& table) {
  return "DROP TRIGGER IF EXISTS " + TriggerName(table) + " ON " +
         FullName({.File = {}, .Schema = schema}, table) + ";\n";
}

}  // namespace veyra::postgres
