#include "data/recordset.h"

#include <algorithm>
#include <stdexcept>
#include <unordered_set>
#include <utility>

#include "data/names.h"

namespace veyra {

namespace {

/// Whether every column that a condition names is one of these.
class ColumnCheck {
 public:
  ColumnCheck(const Store& store, const std::string& table, const std::vector<std::string>& columns)
      : store_(store), table_(table), columns_(columns) {}

  void Require(const std::string& name) const {
    if (!FindName(columns_, name)) {
      throw store_.NoSuchColumn(table_, name);
    }
  }

  void operator()(const Comparison& comparison) const {
    for (const Operand* operand : {&comparison.Left, &comparison.Right}) {
      if (const auto* column = std::get_if<ColumnName>(operand)) {
        Require(column->Name);
      }
    }
  }

  void operator()(const Junction& junction) const {
    for (const Condition& part : junction.Parts) {
      std::visit(*this, part);
    }
  }

 private:
  const Store& store_;
  const std::string& table_;
  const std::vector<std::string>& columns_;
};

}  // namespace

Recordset::Recordset(Store& store, Query query, CursorType cursor)
    : store_(&store), query_(std::move(query)), cursor_(cursor) {
  if (cursor_ == CursorType::ForwardOnlyReadOnly) {
    source_ = store.Select(query_);
    read_ = true;
    ReadFirst();
  } else {
    columns_ = store.ColumnNames(query_.Table);
    CheckNames();
  }
}

Recordset::Recordset(Store& store, Query query, std::unique_ptr<RowSource> rows)
    : store_(&store),
      query_(std::move(query)),
      cursor_(CursorType::ForwardOnlyReadOnly),
      source_(std::move(rows)),
      read_(true) {
  ReadFirst();
}

void Recordset::RequireOpen() const {
  if (store_ == nullptr) {
    throw std::logic_error("the record set is closed");
  }
}

void Recordset::RequireStatic() const {
  RequireOpen();
  if (cursor_ != CursorType::StaticOptimistic) {
    throw std::logic_error("the record set is forward-only and read-only");
  }
}

void Recordset::RequireNothingPending() const {
  if (editing_ != Editing::Nothing) {
    throw std::logic_error("fields are pending: call Update first");
  }
}

const Recordset::HeldRow& Recordset::RequireRow() {
  LookForRow();
  if (position_ >= rows_.size()) {
    throw std::logic_error("the record set is at its end");
  }
  if (rows_[position_].Deleted) {
    throw std::logic_error("the row is deleted: move on first");
  }
  return rows_[position_];
}

void Recordset::CheckNames() {
  const ColumnCheck check(*store_, query_.Table, columns_);
  if (query_.Where) {
    std::visit(check, *query_.Where);
  }
  for (const OrderTerm& term : query_.OrderBy) {
    check.Require(term.Column);
  }
}

std::size_t Recordset::ColumnIndex(std::string_view name) const {
  const auto column = FindName(columns_, name);
  if (!column) {
    throw store_->NoSuchColumn(query_.Table, std::string(name));
  }
  return *column;
}

/// Another program may have added a column since the record set was opened.
void Recordset::LearnColumns(const Row& row) {
  if (row.Values.size() != columns_.size()) {
    columns_ = store_->ColumnNames(query_.Table);
  }
}

void Recordset::ReadFirst() {
  HeldRow first;
  if (!source_->Next(first.Content)) {
    return;
  }
  LearnColumns(first.Content);
  rows_.push_back(std::move(first));
}

void Recordset::ReadNext() {
  if (!source_->Next(rows_.front().Content)) {
    ++position_;
  }
}

void Recordset::ReadAll() {
  if (read_) {
    return;
  }
  std::unordered_set<RowKey> added;
  for (const HeldRow& row : rows_) {
    if (!row.Deleted) {
      added.insert(row.Content.Key);
    }
  }
  std::vector<HeldRow> all;
  const auto source = store_->Select(query_);
  for (Row row; source->Next(row); row = Row()) {
    if (!added.contains(row.Key)) {
      all.push_back({std::move(row)});
    }
  }
  if (!all.empty()) {
    LearnColumns(all.front().Content);
  }
  if (!rows_.empty()) {
    position_ += all.size();
  }
  all.insert(all.end(), std::make_move_iterator(rows_.begin()),
             std::make_move_iterator(rows_.end()));
  rows_ = std::move(all);
  read_ = true;
}

/// Finds out where the cursor stands. After an Update of a new row that is known without reading.
void Recordset::LookForRow() {
  RequireOpen();
  if (rows_.empty()) {
    ReadAll();
  }
}

void Recordset::SkipDeleted() {
  while (position_ < rows_.size() && rows_[position_].Deleted) {
    ++position_;
  }
}

bool Recordset::IsEmpty() {
  RequireOpen();
  if (LiveRows() == 0) {
    ReadAll();
  }
  return LiveRows() == 0;
}

bool Recordset::AtEnd() {
  LookForRow();
  return position_ >= rows_.size();
}

std::size_t Recordset::RecordCount() {
  RequireStatic();
  ReadAll();
  return LiveRows();
}

void Recordset::MoveFirst() {
  RequireStatic();
  RequireNothingPending();
  ReadAll();
  position_ = 0;
  SkipDeleted();
}

void Recordset::MoveNext() {
  RequireNothingPending();
  if (AtEnd()) {
    throw std::logic_error("the record set is at its end");
  }
  if (cursor_ == CursorType::ForwardOnlyReadOnly) {
    ReadNext();
    return;
  }
  ++position_;
  SkipDeleted();
}

void Recordset::MoveLast() {
  RequireStatic();
  RequireNothingPending();
  if (LiveRows() == 0) {
    ReadAll();
  }
  const auto last =
      std::find_if(rows_.rbegin(), rows_.rend(), [](const HeldRow& row) { return !row.Deleted; });
  position_ =
      last == rows_.rend() ? rows_.size() : static_cast<std::size_t>(rows_.rend() - last) - 1;
}

RowKey Recordset::Bookmark() {
  RequireStatic();
  if (editing_ == Editing::NewRow) {
    throw std::logic_error("the new row is not saved yet");
  }
  return RequireRow().Content.Key;
}

bool Recordset::MoveTo(RowKey bookmark) {
  RequireStatic();
  RequireNothingPending();
  const auto is_it = [bookmark](const HeldRow& row) {
    return !row.Deleted && row.Content.Key == bookmark;
  };
  // Who walks from bookmark to bookmark finds the next one just here.
  const auto here = rows_.begin() + static_cast<std::ptrdiff_t>(std::min(position_, rows_.size()));
  auto row = std::find_if(here, rows_.end(), is_it);
  if (row == rows_.end()) {
    row = std::find_if(rows_.begin(), here, is_it);
    if (row == here) {
      return false;
    }
  }
  position_ = static_cast<std::size_t>(row - rows_.begin());
  return true;
}

Value Recordset::Field(std::string_view name) {
  RequireOpen();
  if (editing_ != Editing::NewRow) {
    RequireRow();
  }
  const std::size_t column = ColumnIndex(name);
  for (const auto& [pending_name, value] : pending_) {
    if (pending_name == columns_[column]) {
      return value;
    }
  }
  return editing_ == Editing::NewRow ? Value() : rows_[position_].Content.Values[column];
}

void Recordset::AddNew() {
  RequireStatic();
  RequireNothingPending();
  editing_ = Editing::NewRow;
}

void Recordset::SetField(std::string_view name, Value value) {
  RequireStatic();
  if (editing_ != Editing::NewRow) {
    RequireRow();
  }
  const std::string& column = columns_[ColumnIndex(name)];
  if (editing_ == Editing::Nothing) {
    editing_ = Editing::CurrentRow;
  }
  for (auto& [pending_name, pending_value] : pending_) {
    if (pending_name == column) {
      pending_value = std::move(value);
      return;
    }
  }
  pending_.emplace_back(column, std::move(value));
}

void Recordset::Update() {
  RequireStatic();
  // Whatever happens below, nothing is pending any more.
  const FieldValues fields = std::exchange(pending_, {});
  switch (std::exchange(editing_, Editing::Nothing)) {
    case Editing::Nothing:
      throw std::logic_error("no fields are pending");
    case Editing::NewRow:
      WriteNewRow(fields);
      break;
    case Editing::CurrentRow:
      WriteCurrentRow(fields);
      break;
  }
}

void Recordset::WriteNewRow(const FieldValues& fields) {
  HoldNewRow(store_->Insert(query_.Table, fields));
}

void Recordset::HoldNewRow(Row row) {
  LearnColumns(row);
  rows_.push_back({std::move(row)});
  position_ = rows_.size() - 1;
}

void Recordset::WriteCurrentRow(const FieldValues& fields) {
  Row& row = rows_[position_].Content;
  FieldValues changed;
  for (const auto& [name, value] : fields) {
    if (!IsHeldAlready(row.Values[ColumnIndex(name)], value)) {
      changed.emplace_back(name, value);
    }
  }
  if (changed.empty()) {
    return;
  }
  row = store_->Update(query_.Table, row, changed);
  LearnColumns(row);
}

void Recordset::Delete() {
  RequireStatic();
  RequireNothingPending();
  RequireRow();
  store_->Delete(query_.Table, rows_[position_].Content);
  rows_[position_].Deleted = true;
  ++deleted_;
}

void Recordset::Close() {
  source_.reset();
  rows_.clear();
  store_ = nullptr;
}

}  // namespace veyra
