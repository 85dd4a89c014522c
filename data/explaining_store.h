#pragma once

#include <memory>
#include <string>
#include <vector>

#include "data/errors.h"
#include "data/forwarding_store.h"

namespace veyra {

/// A table with all its columns, or where a column is named that one.
struct NamedItem {
  std::string Table;
  std::string Column = {};
};

/// A store whose file could not be brought up to date. What fails in it because one of these items
/// is missing is reported with the reason why that could not be made, and what to do about it.
class ExplainingStore : public ForwardingStore {
 public:
  /// `failure` is the report of the attempt to make what is missing.
  ExplainingStore(std::unique_ptr<Store> store, std::vector<NamedItem> items, Report failure);

  std::vector<std::string> ColumnNames(const std::string& table) override;
  std::size_t FittingCharacters(const std::string& table, const std::string& column,
                                std::string_view text) override;
  std::unique_ptr<RowSource> Select(const Query& query) override;
  std::vector<std::unique_ptr<RowSource>> SelectAll(const std::vector<Query>& queries) override;
  Row Insert(const std::string& table, const FieldValues& fields) override;
  Row Update(const std::string& table, const Row& before, const FieldValues& fields) override;
  void Delete(const std::string& table, const Row& before) override;
  void ChangeAll(const std::vector<RowChange>& changes,
                 const std::vector<QueryResult>& seen) override;
  void AddColumn(const std::string& table, const ColumnDefinition& column) override;
  std::vector<Row> InsertAll(const std::string& table,
                             const std::vector<FieldValues>& rows) override;
  void DeleteAll(const std::string& table, const std::vector<Row>& rows) override;
  std::vector<Row> UpdateAll(const std::string& table, const std::vector<Row>& rows,
                             const FieldValues& fields) override;
  MissingItemError NoSuchColumn(const std::string& table, const std::string& column) const override;

 private:
  template <typename Work>
  auto Explaining(const Work& work) const;
  bool Concerns(const MissingItemError& missing) const;
  MissingItemError Explained(const MissingItemError& missing) const;

  std::vector<NamedItem> items_;
  Report failure_;
};

}  // namespace veyra
