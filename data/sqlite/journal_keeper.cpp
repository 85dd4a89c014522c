#include "data/sqlite/journal_keeper.h"

#include <sqlite3.h>

#include <array>
#include <vector>

#include "data/errors.h"
#include "data/names.h"
#include "data/sqlite/sql_text.h"

namespace veyra::sqlite {

namespace {

struct Occasion {
  const char* Name;
  const char* Sql;
  const char* Old;  ///< How a trigger calls the row as it was; nullptr when there was none.
  const char* New;
};

constexpr std::array<Occasion, 3> kOccasions = {{{"Added", "INSERT", nullptr, "NEW"},
                                                 {"Changed", "UPDATE", "OLD", "NEW"},
                                                 {"Deleted", "DELETE", "OLD", nullptr}}};

/// Not the key that the store gives by itself elsewhere: to keep account of numbers that were given
/// would cost each change another page.
constexpr const char* kCreateJournal =
    "CREATE TABLE ChangeJournal (ID INTEGER PRIMARY KEY, ActionID INTEGER, ChangedAt VARCHAR(50),"
    " ActionName VARCHAR(255), TableName VARCHAR(50), OldValues TEXT, NewValues TEXT)";

std::string TriggerName(const std::string& table, const Occasion& occasion) {
  return Quoted(std::string(kJournalTable) + "_" + table + "_" + occasion.Name);
}

/// The SQL expression for what JournalText gives of that row.
std::string TextOf(const char* row, const Table& table) {
  if (row == nullptr) {
    return "NULL";
  }
  std::string expression;
  for (std::size_t i = 0; i < table.Columns.size(); ++i) {
    if (table.Computed[i]) {
      continue;
    }
    const std::string name = JournalText({table.Columns[i]}, {Null{}});
    const std::string before = name.substr(0, name.size() - std::string("NULL").size());
    expression += (expression.empty() ? "" : " || ") +
                  TextLiteral(expression.empty() ? before : ", " + before) + " || quote(" + row +
                  "." + Quoted(table.Columns[i]) + ")";
  }
  return expression.empty() ? "''" : expression;
}

std::string TriggerSql(const Table& table, const Occasion& occasion) {
  return "CREATE TRIGGER " + TriggerName(table.Name, occasion) + " AFTER " + occasion.Sql + " ON " +
         Quoted(table.Name) + " BEGIN INSERT INTO " + kJournalTable +
         " (ChangedAt, TableName, OldValues, NewValues)"
         " VALUES (strftime('%Y-%m-%d %H:%M:%f', 'now'), " +
         TextLiteral(table.Name) + ", " + TextOf(occasion.Old, table) + ", " +
         TextOf(occasion.New, table) + "); END";
}

bool HasAllColumns(const std::vector<std::string>& columns) {
  for (const ColumnDefinition& column : JournalTable().Columns) {
    if (!FindName(columns, column.Name)) {
      return false;
    }
  }
  return true;
}

}  // namespace

void JournalKeeper::Begin() {
  const std::vector<std::string> tables = reader_.catalogue().TableNames();
  if (!FindName(tables, kJournalTable)) {
    reader_.database().Execute(kCreateJournal);
  } else if (!HasAllColumns(reader_.catalogue().Find(kJournalTable).Columns)) {
    throw DatabaseError(
        {reader_.file(), Phrase::Tr("The table %1 is another program's.", kJournalTable),
         Phrase::Tr("Nothing was changed. Rename that table to keep a journal here.")});
  }
  for (const std::string& table : JournalledTables()) {
    if (FindName(tables, table)) {
      MakeTriggers(reader_.catalogue().Find(table));
    }
  }
}

void JournalKeeper::End() {
  for (const std::string& table : JournalledTables()) {
    DropTriggers(table);
  }
}

void JournalKeeper::TableWasMade(const Table& table) {
  if (IsJournalled(table.Name) && IsKept()) {
    MakeTriggers(table);
  }
}

void JournalKeeper::MakeTriggers(const Table& table) {
  DropTriggers(table.Name);
  for (const Occasion& occasion : kOccasions) {
    reader_.database().Execute(TriggerSql(table, occasion));
  }
}

void JournalKeeper::DropTriggers(const std::string& table) {
  for (const Occasion& occasion : kOccasions) {
    reader_.database().Execute("DROP TRIGGER IF EXISTS " + TriggerName(table, occasion));
  }
}

/// Without their table the triggers would refuse every change that is journalled.
void JournalKeeper::CheckTable() {
  if (!reader_.catalogue().HasJournalTable()) {
    Begin();
  } else if (!HasAllColumns(reader_.catalogue().Find(kJournalTable).Columns)) {
    throw DatabaseError(
        {reader_.file(),
         Phrase::Tr("Another program has changed the table %1, in which the journal is kept.",
                    kJournalTable),
         Phrase::Tr("Close the program, end the journal with veyra-data journal off, and rename "
                    "that table: then it can begin anew."),
         Phrase::Tr("Nothing was saved.")});
  }
}

std::optional<std::int64_t> JournalKeeper::BeginChange() {
  if (!IsKept()) {
    return std::nullopt;
  }
  CheckTable();
  const auto last = reader_.statements().Take("SELECT max(ID) FROM ChangeJournal");
  return last->Step() ? last->Integer(0) : 0;
}

std::optional<std::int64_t> JournalKeeper::NameEntries(const std::optional<std::int64_t>& last) {
  if (!last) {
    return std::nullopt;
  }
  const bool is_named = action_.IsNamed();
  const std::int64_t number = (is_named ? action_.Number() : std::nullopt).value_or(*last + 1);
  const std::vector<Value> values{number, is_named ? Value(action_.Name()) : Value(Null{}), *last};
  const auto name = reader_.statements().Take(
      "UPDATE ChangeJournal SET ActionID = ?, ActionName = ? WHERE ID > ?");
  name->Bind(values);
  name->Run();
  const bool has_entries = sqlite3_changes(reader_.database().handle()) > 0;
  return has_entries && is_named ? std::optional(number) : std::nullopt;
}

}  // namespace veyra::sqlite
