#include "data/explaining_store.h"

#include <algorithm>
#include <utility>

#include "data/names.h"

namespace veyra {

ExplainingStore::ExplainingStore(std::unique_ptr<Store> store, std::vector<NamedItem> items,
                                 Report failure)
    : ForwardingStore(std::move(store)), items_(std::move(items)), failure_(std::move(failure)) {}

bool ExplainingStore::Concerns(const MissingItemError& missing) const {
  return std::any_of(items_.begin(), items_.end(), [&](const NamedItem& item) {
    return SameName(item.Table, missing.Table()) &&
           (item.Column.empty() || SameName(item.Column, missing.Column()));
  });
}

MissingItemError ExplainingStore::Explained(const MissingItemError& missing) const {
  if (!Concerns(missing)) {
    return missing;
  }
  return MissingItemError(
      {missing.report().File,
       missing.report().Cause + " " +
           Phrase::Tr("The program adds it when it starts, but could not do so.") + " " +
           failure_.Cause,
       failure_.Advice + " " + Phrase::Tr("It is added at the next start.")},
      missing.Table(), missing.Column());
}

template <typename Work>
auto ExplainingStore::Explaining(const Work& work) const {
  try {
    return work();
  } catch (const MissingItemError& missing) {
    throw Explained(missing);
  }
}

std::vector<std::string> ExplainingStore::ColumnNames(const std::string& table) {
  return Explaining([&] { return ForwardingStore::ColumnNames(table); });
}

std::unique_ptr<RowSource> ExplainingStore::Select(const Query& query) {
  return Explaining([&] { return ForwardingStore::Select(query); });
}

std::vector<std::unique_ptr<RowSource>> ExplainingStore::SelectAll(
    const std::vector<Query>& queries) {
  return Explaining([&] { return ForwardingStore::SelectAll(queries); });
}

std::size_t ExplainingStore::FittingCharacters(const std::string& table, const std::string& column,
                                               std::string_view text) {
  return Explaining([&] { return ForwardingStore::FittingCharacters(table, column, text); });
}

Row ExplainingStore::Insert(const std::string& table, const FieldValues& fields) {
  return Explaining([&] { return ForwardingStore::Insert(table, fields); });
}

Row ExplainingStore::Update(const std::string& table, const Row& before,
                            const FieldValues& fields) {
  return Explaining([&] { return ForwardingStore::Update(table, before, fields); });
}

void ExplainingStore::Delete(const std::string& table, const Row& before) {
  Explaining([&] { ForwardingStore::Delete(table, before); });
}

void ExplainingStore::ChangeAll(const std::vector<RowChange>& changes,
                                const std::vector<QueryResult>& seen) {
  Explaining([&] { ForwardingStore::ChangeAll(changes, seen); });
}

void ExplainingStore::AddColumn(const std::string& table, const ColumnDefinition& column) {
  Explaining([&] { ForwardingStore::AddColumn(table, column); });
}

std::vector<Row> ExplainingStore::InsertAll(const std::string& table,
                                            const std::vector<FieldValues>& rows) {
  return Explaining([&] { return ForwardingStore::InsertAll(table, rows); });
}

void ExplainingStore::DeleteAll(const std::string& table, const std::vector<Row>& rows) {
  Explaining([&] { ForwardingStore::DeleteAll(table, rows); });
}

std::vector<Row> ExplainingStore::UpdateAll(const std::string& table, const std::vector<Row>& rows,
                                            const FieldValues& fields) {
  return Explaining([&] { return ForwardingStore::UpdateAll(table, rows, fields); });
}

MissingItemError ExplainingStore::NoSuchColumn(const std::string& table,
                                               const std::string& column) const {
  return Explained(ForwardingStore::NoSuchColumn(table, column));
}

}  // namespace veyra
