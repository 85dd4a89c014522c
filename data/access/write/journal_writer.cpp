#include "data/access/write/journal_writer.h"

#include "data/access/read/table_rows.h"
#include "data/access/write/row_changes.h"
#include "data/names.h"

namespace veyra::access {

namespace {

bool HasTable(Snapshot& snapshot, const char* name) {
  for (const CatalogueEntry& entry : snapshot.Tables()) {
    if (SameName(entry.Name, name)) {
      return true;
    }
  }
  return false;
}

std::vector<std::string> NamesOf(const TableLayout& layout) {
  std::vector<std::string> names;
  for (const ColumnLayout& column : layout.Columns) {
    names.push_back(column.Name);
  }
  return names;
}

Value TextOf(const JournalledRow& row, const std::vector<Value>* values) {
  return values == nullptr ? Value(Null{}) : Value(JournalText(NamesOf(row.Layout), *values));
}

}  // namespace

TableDefinition JournalSwitchTable() {
  return {.Name = kJournalSwitch,
          .Columns = {{.Name = "Kept", .Type = ColumnType::WholeNumber}},
          .Indexes = {},
          .FirstRows = {{{"Kept", std::int64_t{1}}}}};
}

bool JournalWriter::IsKept(PageSource& file, Snapshot& snapshot) {
  if (!HasTable(snapshot, kJournalSwitch) || !HasTable(snapshot, kJournalTable)) {
    return false;
  }
  Query query;
  query.Table = kJournalSwitch;
  TableRows rows(file, snapshot.Table(kJournalSwitch), query);
  Row row;
  return rows.Next(row) && !row.Values.empty() && ToInteger(row.Values.front()) == 1;
}

void JournalWriter::BeginCommit() {
  number_.reset();
  is_kept_.reset();
  journal_.reset();
  time_.clear();
}

void JournalWriter::EndCommit() {
  if (number_ && action_.IsNamed()) {
    action_.SetNumber(*number_);
  }
}

void JournalWriter::Enter(PageChanges& pages, PageSource& file, Snapshot& snapshot,
                          const JournalledRow& row) {
  if (!IsJournalled(row.Table)) {
    return;
  }
  if (!is_kept_) {
    is_kept_ = IsKept(file, snapshot);
    time_ = JournalTime();
  }
  if (!*is_kept_) {
    return;
  }
  if (!journal_) {
    journal_.emplace(pages, snapshot.DefinitionOf(kJournalTable));
  }
  const std::int64_t entry = std::int64_t{journal_->Layout().LastAutoNumber} + 1;
  FieldValues fields{{"ID", entry},
                     {"ActionID", NumberFor(entry)},
                     {"ChangedAt", time_},
                     {"TableName", row.Table},
                     {"OldValues", TextOf(row, row.Before)},
                     {"NewValues", TextOf(row, row.After)}};
  if (action_.IsNamed()) {
    fields.emplace_back("ActionName", action_.Name());
  }
  InsertRow(pages, *journal_, fields);
}

std::int64_t JournalWriter::NumberFor(std::int64_t entry) {
  if (!number_) {
    number_ = action_.IsNamed() ? action_.Number().value_or(entry) : entry;
  }
  return *number_;
}

}  // namespace veyra::access
