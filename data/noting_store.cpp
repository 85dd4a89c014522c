#include "data/noting_store.h"

#include <algorithm>
#include <utility>

#include "data/errors.h"

namespace veyra {

void ActionNotes::Begin(const std::string& name) {
  if (!current_.IsNamed()) {
    noted_ = {.Number = last_number_ + 1, .Name = name, .Changes = {}};
    is_uncertain_ = false;
  }
  current_.Begin(name);
}

void ActionNotes::End() {
  current_.End();
  if (current_.IsNamed() || noted_.Changes.empty() || is_uncertain_) {
    return;
  }
  last_number_ = noted_.Number;
  changes_ += noted_.Changes.size();
  actions_.push_back(std::exchange(noted_, {}));
  while (changes_ > kMostChanges && actions_.size() > 1) {
    changes_ -= actions_.front().Changes.size();
    actions_.pop_front();
  }
}

void ActionNotes::Add(NotedChange change) {
  noted_.Changes.push_back(std::move(change));
}

void ActionNotes::Forget(std::int64_t number) {
  const auto action =
      std::find_if(actions_.begin(), actions_.end(),
                   [number](const NotedAction& each) { return each.Number == number; });
  if (action != actions_.end()) {
    changes_ -= action->Changes.size();
    actions_.erase(action);
  }
}

/// Of a change whose outcome is not known neither is that of the whole action.
template <typename Work>
auto NotingStore::Noting(const Work& work) {
  try {
    return work();
  } catch (const OutcomeUnknownError&) {
    notes_.MarkUncertain();
    throw;
  }
}

const std::vector<std::string>* NotingStore::ColumnsToNote(const std::string& table) {
  if (!notes_.AreTaken() || !IsJournalled(table)) {
    return nullptr;
  }
  const auto known = columns_.find(table);
  return known != columns_.end() ? &known->second
                                 : &columns_.emplace(table, ColumnNames(table)).first->second;
}

/// Another program may have added a column meanwhile: then the row is not known as a whole.
void NotingStore::Note(const std::string& table, const std::vector<std::string>* columns,
                       const Row* before, const Row* after) {
  if (columns == nullptr) {
    return;
  }
  const auto is_whole = [&](const Row* row) {
    return row == nullptr || row->Values.size() == columns->size();
  };
  if (!is_whole(before) || !is_whole(after)) {
    notes_.MarkUncertain();
    return;
  }
  const auto text = [&](const Row* row) {
    return row == nullptr ? std::nullopt : std::optional(JournalText(*columns, row->Values));
  };
  notes_.Add({table, text(before), text(after)});
}

Row NotingStore::Insert(const std::string& table, const FieldValues& fields) {
  const auto* columns = ColumnsToNote(table);
  Row row = Noting([&] { return ForwardingStore::Insert(table, fields); });
  Note(table, columns, nullptr, &row);
  return row;
}

Row NotingStore::Update(const std::string& table, const Row& before, const FieldValues& fields) {
  const auto* columns = ColumnsToNote(table);
  Row row = Noting([&] { return ForwardingStore::Update(table, before, fields); });
  Note(table, columns, &before, &row);
  return row;
}

void NotingStore::Delete(const std::string& table, const Row& before) {
  const auto* columns = ColumnsToNote(table);
  Noting([&] { ForwardingStore::Delete(table, before); });
  Note(table, columns, &before, nullptr);
}

/// Where rows are added one by one a failure leaves the first of them, which count.
std::vector<Row> NotingStore::InsertAll(const std::string& table,
                                        const std::vector<FieldValues>& rows) {
  if (RowsAtOnce() == 1) {
    return Store::InsertAll(table, rows);
  }
  const auto* columns = ColumnsToNote(table);
  std::vector<Row> added = Noting([&] { return ForwardingStore::InsertAll(table, rows); });
  for (const Row& row : added) {
    Note(table, columns, nullptr, &row);
  }
  return added;
}

void NotingStore::DeleteAll(const std::string& table, const std::vector<Row>& rows) {
  if (RowsAtOnce() == 1) {
    Store::DeleteAll(table, rows);
    return;
  }
  const auto* columns = ColumnsToNote(table);
  Noting([&] { ForwardingStore::DeleteAll(table, rows); });
  for (const Row& row : rows) {
    Note(table, columns, &row, nullptr);
  }
}

std::vector<Row> NotingStore::UpdateAll(const std::string& table, const std::vector<Row>& rows,
                                        const FieldValues& fields) {
  if (RowsAtOnce() == 1) {
    return Store::UpdateAll(table, rows, fields);
  }
  const auto* columns = ColumnsToNote(table);
  std::vector<Row> changed =
      Noting([&] { return ForwardingStore::UpdateAll(table, rows, fields); });
  for (std::size_t i = 0; i < rows.size(); ++i) {
    Note(table, columns, &rows[i], &changed[i]);
  }
  return changed;
}

void NotingStore::BeginAction(const std::string& name) {
  ForwardingStore::BeginAction(name);
  notes_.Begin(name);
}

void NotingStore::EndAction() {
  notes_.End();
  columns_.clear();
  ForwardingStore::EndAction();
}

}  // namespace veyra
