#include <stdexcept>
#include <utility>

#include "data/recordset.h"

namespace veyra {

/// Whether storing `value` where `held` was read would change nothing.
bool Recordset::IsHeldAlready(const Value& held, const Value& value) {
  if (held == value) {
    return true;
  }
  if (const auto* date = std::get_if<Date>(&value)) {
    const auto* text = std::get_if<std::string>(&held);
    return text != nullptr && *text == IsoText(*date);
  }
  const bool both_numbers = !IsNull(held) && !IsNull(value) &&
                            !std::holds_alternative<std::string>(held) &&
                            !std::holds_alternative<std::string>(value);
  return both_numbers && ToDouble(held) == ToDouble(value);
}

std::size_t Recordset::RowsAtOnce() const {
  RequireOpen();
  return store_->RowsAtOnce();
}

std::vector<RowKey> Recordset::AddAll(const std::vector<FieldValues>& rows) {
  RequireStatic();
  RequireNothingPending();
  std::vector<RowKey> bookmarks;
  for (Row& row : store_->InsertAll(query_.Table, rows)) {
    bookmarks.push_back(row.Key);
    HoldNewRow(std::move(row));
  }
  return bookmarks;
}

std::vector<std::size_t> Recordset::PlacesOf(const std::vector<RowKey>& bookmarks) {
  RequireStatic();
  RequireNothingPending();
  std::vector<std::size_t> places;
  for (const RowKey bookmark : bookmarks) {
    if (!MoveTo(bookmark)) {
      throw std::logic_error("the row is deleted");
    }
    places.push_back(position_);
  }
  return places;
}

void Recordset::DeleteAll(const std::vector<RowKey>& bookmarks) {
  const std::vector<std::size_t> places = PlacesOf(bookmarks);
  std::vector<Row> rows;
  for (const std::size_t place : places) {
    rows.push_back(rows_[place].Content);
  }
  store_->DeleteAll(query_.Table, rows);
  for (const std::size_t place : places) {
    rows_[place].Deleted = true;
    ++deleted_;
  }
}

void Recordset::SetFieldInAll(const std::vector<RowKey>& bookmarks, std::string_view name,
                              const Value& value) {
  const std::size_t column = ColumnIndex(name);
  std::vector<std::size_t> places = PlacesOf(bookmarks);
  std::erase_if(places, [&](std::size_t place) {
    return IsHeldAlready(rows_[place].Content.Values[column], value);
  });
  if (places.empty()) {
    return;
  }
  std::vector<Row> rows;
  for (const std::size_t place : places) {
    rows.push_back(rows_[place].Content);
  }
  std::vector<Row> changed = store_->UpdateAll(query_.Table, rows, {{columns_[column], value}});
  for (std::size_t i = 0; i < places.size(); ++i) {
    rows_[places[i]].Content = std::move(changed[i]);
  }
  LearnColumns(rows_[places.front()].Content);
}

}  // namespace veyra
