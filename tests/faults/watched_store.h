#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "data/store.h"

namespace veyra::faults {

/// A store that tells of each change when it has returned, which is when it counts as saved.
class WatchedStore : public Store {
 public:
  WatchedStore(std::unique_ptr<Store> store, std::function<void()> saved)
      : store_(std::move(store)), saved_(std::move(saved)) {}

  const std::string& FileName() const override { return store_->FileName(); }
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

  Row Insert(const std::string& table, const FieldValues& fields) override {
    Row row = store_->Insert(table, fields);
    saved_();
    return row;
  }
  Row Update(const std::string& table, const Row& before, const FieldValues& fields) override {
    Row row = store_->Update(table, before, fields);
    saved_();
    return row;
  }
  void Delete(const std::string& table, const Row& before) override {
    store_->Delete(table, before);
    saved_();
  }
  void CreateTable(const TableDefinition& definition) override {
    store_->CreateTable(definition);
    saved_();
  }
  void AddColumn(const std::string& table, const ColumnDefinition& column) override {
    store_->AddColumn(table, column);
    saved_();
  }

 private:
  std::unique_ptr<Store> store_;
  std::function<void()> saved_;
};

}  // namespace veyra::faults
