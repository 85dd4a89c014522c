#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "data/forwarding_store.h"

namespace veyra::faults {

/// A store that tells of each change when it has returned, which is when it counts as saved.
class WatchedStore : public ForwardingStore {
 public:
  WatchedStore(std::unique_ptr<Store> store, std::function<void()> saved)
      : ForwardingStore(std::move(store)), saved_(std::move(saved)) {}

  Row Insert(const std::string& table, const FieldValues& fields) override {
    Row row = ForwardingStore::Insert(table, fields);
    saved_();
    return row;
  }
  std::vector<Row> InsertAll(const std::string& table,
                             const std::vector<FieldValues>& rows) override {
    std::vector<Row> added = ForwardingStore::InsertAll(table, rows);
    for (std::size_t i = 0; i < added.size(); ++i) {
      saved_();
    }
    return added;
  }
  Row Update(const std::string& table, const Row& before, const FieldValues& fields) override {
    Row row = ForwardingStore::Update(table, before, fields);
    saved_();
    return row;
  }
  void Delete(const std::string& table, const Row& before) override {
    ForwardingStore::Delete(table, before);
    saved_();
  }
  void CreateTable(const TableDefinition& definition) override {
    ForwardingStore::CreateTable(definition);
    saved_();
  }
  void AddColumn(const std::string& table, const ColumnDefinition& column) override {
    ForwardingStore::AddColumn(table, column);
    saved_();
  }

 private:
  std::function<void()> saved_;
};

}  // namespace veyra::faults
