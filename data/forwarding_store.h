#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "data/store.h"

namespace veyra {

/// A store that hands everything on to another. What stands between a store and who uses it is
/// derived from it and has members of its own for what it does otherwise.
class ForwardingStore : public Store {
 public:
  explicit ForwardingStore(std::unique_ptr<Store> store) : store_(std::move(store)) {}

  const std::string& FileName() const override { return store_->FileName(); }
  std::optional<Report> TakeNotice() override { return store_->TakeNotice(); }
  std::vector<std::string> TableNames() override { return store_->TableNames(); }
  std::vector<std::string> ColumnNames(const std::string& table) override {
    return store_->ColumnNames(table);
  }
  std::size_t FittingCharacters(const std::string& table, const std::string& column,
                                std::string_view text) override {
    return store_->FittingCharacters(table, column, text);
  }
  StoreDescription Describe() override { return store_->Describe(); }
  std::unique_ptr<RowSource> Select(const Query& query) override { return store_->Select(query); }
  std::vector<std::unique_ptr<RowSource>> SelectAll(const std::vector<Query>& queries) override {
    return store_->SelectAll(queries);
  }
  Row Insert(const std::string& table, const FieldValues& fields) override {
    return store_->Insert(table, fields);
  }
  std::size_t RowsAtOnce() const override { return store_->RowsAtOnce(); }
  std::vector<Row> InsertAll(const std::string& table,
                             const std::vector<FieldValues>& rows) override {
    return store_->InsertAll(table, rows);
  }
  void DeleteAll(const std::string& table, const std::vector<Row>& rows) override {
    store_->DeleteAll(table, rows);
  }
  std::vector<Row> UpdateAll(const std::string& table, const std::vector<Row>& rows,
                             const FieldValues& fields) override {
    return store_->UpdateAll(table, rows, fields);
  }
  void DelayFlushes() override { store_->DelayFlushes(); }
  void Flush() override { store_->Flush(); }
  Row Update(const std::string& table, const Row& before, const FieldValues& fields) override {
    return store_->Update(table, before, fields);
  }
  void Delete(const std::string& table, const Row& before) override {
    store_->Delete(table, before);
  }
  void ChangeAll(const std::vector<RowChange>& changes,
                 const std::vector<QueryResult>& seen) override {
    store_->ChangeAll(changes, seen);
  }
  bool KeepsJournal() override { return store_->KeepsJournal(); }
  void CreateTable(const TableDefinition& definition) override { store_->CreateTable(definition); }
  void AddColumn(const std::string& table, const ColumnDefinition& column) override {
    store_->AddColumn(table, column);
  }
  void BeginAction(const std::string& name) override { store_->BeginAction(name); }
  void EndAction() override { store_->EndAction(); }
  ChangeFeed* Feed() override { return store_->Feed(); }
  std::shared_ptr<const void> MarkOf(const std::string& table) override {
    return store_->MarkOf(table);
  }
  MissingItemError NoSuchColumn(const std::string& table,
                                const std::string& column) const override {
    return store_->NoSuchColumn(table, column);
  }

 protected:
  /// The store that it hands everything on to.
  std::unique_ptr<Store> TakeInner() { return std::move(store_); }
  void SetInner(std::unique_ptr<Store> store) { store_ = std::move(store); }

 private:
  std::unique_ptr<Store> store_;
};

}  // namespace veyra
