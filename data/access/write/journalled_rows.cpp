#include "data/access/write/journalled_rows.h"

#include "data/access/write/row_changes.h"

namespace veyra::access {

Row JournalledRows::Insert(PageChanges& pages, TableWriter& writer, const std::string& table,
                           const FieldValues& fields) {
  Row row = InsertRow(pages, writer, fields);
  Enter(pages, writer, table, nullptr, &row);
  return row;
}

std::vector<Row> JournalledRows::InsertAll(PageChanges& pages, TableWriter& writer,
                                           const std::string& table,
                                           const std::vector<FieldValues>& rows) {
  std::vector<Row> added = InsertRows(pages, writer, rows);
  for (const Row& row : added) {
    Enter(pages, writer, table, nullptr, &row);
  }
  return added;
}

Row JournalledRows::Update(PageChanges& pages, TableWriter& writer, const std::string& table,
                           const Row& before, const FieldValues& fields) {
  Row row = UpdateRow(pages, writer, before, fields);
  Enter(pages, writer, table, &before, &row);
  return row;
}

void JournalledRows::Delete(PageChanges& pages, TableWriter& writer, const std::string& table,
                            const Row& before) {
  DeleteRow(pages, writer, before);
  Enter(pages, writer, table, &before, nullptr);
}

void JournalledRows::Make(PageChanges& pages, const RowChange& change) {
  TableWriter writer(pages, snapshot_.DefinitionOf(change.Table));
  CheckMayWrite(writer.Layout());
  switch (change.What) {
    case RowChange::Kind::Add:
      Insert(pages, writer, change.Table, change.Fields);
      return;
    case RowChange::Kind::Set:
      Update(pages, writer, change.Table, change.Before, change.Fields);
      return;
    case RowChange::Kind::Remove:
      Delete(pages, writer, change.Table, change.Before);
      return;
  }
}

/// Either row may be missing. A row that was set to what it held is no change.
void JournalledRows::Enter(PageChanges& pages, const TableWriter& writer, const std::string& table,
                           const Row* before, const Row* after) {
  if (before == nullptr || after == nullptr || before->Values != after->Values) {
    journal_.Enter(pages, file_, snapshot_,
                   {.Table = table,
                    .Layout = writer.Layout(),
                    .Before = before == nullptr ? nullptr : &before->Values,
                    .After = after == nullptr ? nullptr : &after->Values});
  }
}

}  // namespace veyra::access
