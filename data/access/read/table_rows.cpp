#include "data/access/read/table_rows.h"

#include <algorithm>
#include <numeric>

namespace veyra::access {

namespace {

bool IsDateColumn(const TableImage& image, std::size_t column) {
  return image.Layout().Columns[column].Kind == ColumnKind::DateTime;
}

/// Whether looking up `value` in the numbers of `column` finds every row that equals it.
bool MayLookUp(const TableImage& image, std::size_t column, const Value& value) {
  if (!image.IsNumeric(column)) {
    return false;
  }
  return IsDateColumn(image, column)
             ? std::holds_alternative<Date>(value)
             : std::holds_alternative<std::int64_t>(value) || std::holds_alternative<double>(value);
}

}  // namespace

TableRows::TableRows(PageSource& file, std::shared_ptr<TableImage> image, const Query& query)
    : image_(std::move(image)), cells_(file, query.WithTimes) {
  if (query.Where) {
    condition_.emplace(*query.Where, image_->Layout());
    Narrow();
  }
  if (!query.OrderBy.empty()) {
    Sort(query.OrderBy);
  }
}

/// Of the columns that must equal a value, a date leaves the fewest rows to look at.
void TableRows::Narrow() {
  const auto equals = condition_->NeededEquals();
  auto best = equals.end();
  for (auto equal = equals.begin(); equal != equals.end(); ++equal) {
    if (MayLookUp(*image_, equal->first, equal->second) &&
        (best == equals.end() || IsDateColumn(*image_, equal->first))) {
      best = equal;
    }
  }
  if (best != equals.end()) {
    chosen_ = image_->RowsEqual(best->first, *OrderKey(best->second));
  }
}

void TableRows::Sort(const std::vector<OrderTerm>& terms) {
  std::vector<std::size_t> columns;
  for (const OrderTerm& term : terms) {
    columns.push_back(PlaceOfColumn(image_->Layout(), term.Column));
  }
  std::vector<std::pair<std::vector<Value>, std::size_t>> rows;
  for (std::size_t i = 0; i < Candidates(); ++i) {
    if (!Holds(RowAt(i))) {
      continue;
    }
    std::vector<Value> keys;
    for (const std::size_t column : columns) {
      keys.push_back(ValueAt(RowAt(i), column));
    }
    rows.emplace_back(std::move(keys), RowAt(i));
  }
  std::stable_sort(rows.begin(), rows.end(), [&](const auto& one, const auto& other) {
    for (std::size_t i = 0; i < terms.size(); ++i) {
      const bool before = SortsBefore(one.first[i], other.first[i]);
      if (before != SortsBefore(other.first[i], one.first[i])) {
        return before != terms[i].Descending;
      }
    }
    return false;
  });
  chosen_.emplace();
  for (const auto& row : rows) {
    chosen_->push_back(row.second);
  }
  condition_.reset();
}

bool TableRows::Holds(std::size_t index) const {
  return !condition_ ||
         condition_->Holds([&](std::size_t column) { return ValueAt(index, column); });
}

Value TableRows::ValueAt(std::size_t index, std::size_t column) const {
  return cells_.ReadValue(image_->View(index), image_->Layout().Columns[column]);
}

bool TableRows::Next(Row& row) {
  while (next_ < Candidates()) {
    const std::size_t index = RowAt(next_++);
    if (Holds(index)) {
      row.Key = image_->Key(index);
      row.Values = ReadValues(cells_, image_->View(index), image_->Layout());
      return true;
    }
  }
  return false;
}

std::vector<Value> ReadValues(const CellReader& cells, const RowView& row,
                              const TableLayout& layout) {
  std::vector<Value> values;
  values.reserve(layout.Columns.size());
  for (const ColumnLayout& column : layout.Columns) {
    values.push_back(cells.ReadValue(row, column));
  }
  return values;
}

}  // namespace veyra::access
