#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "data/forwarding_store.h"

namespace veyra::faults {

/// What is to be told of each change.
struct Witness {
  std::function<void()> Made = [] {};   ///< Its member has returned: no kill can undo it.
  std::function<void()> Saved = [] {};  ///< It is flushed, too: no loss of power can.
};

/// A store that tells of each change.
class WatchedStore : public ForwardingStore {
 public:
  WatchedStore(std::unique_ptr<Store> store, Witness witness)
      : ForwardingStore(std::move(store)), witness_(std::move(witness)) {}

  Row Insert(const std::string& table, const FieldValues& fields) override {
    Row row = ForwardingStore::Insert(table, fields);
    Tell(1);
    return row;
  }
  std::vector<Row> InsertAll(const std::string& table,
                             const std::vector<FieldValues>& rows) override {
    std::vector<Row> added = ForwardingStore::InsertAll(table, rows);
    Tell(added.size());
    return added;
  }
  void DeleteAll(const std::string& table, const std::vector<Row>& rows) override {
    ForwardingStore::DeleteAll(table, rows);
    Tell(rows.size());
  }
  std::vector<Row> UpdateAll(const std::string& table, const std::vector<Row>& rows,
                             const FieldValues& fields) override {
    std::vector<Row> changed = ForwardingStore::UpdateAll(table, rows, fields);
    Tell(changed.size());
    return changed;
  }
  Row Update(const std::string& table, const Row& before, const FieldValues& fields) override {
    Row row = ForwardingStore::Update(table, before, fields);
    Tell(1);
    return row;
  }
  void Delete(const std::string& table, const Row& before) override {
    ForwardingStore::Delete(table, before);
    Tell(1);
  }
  void CreateTable(const TableDefinition& definition) override {
    ForwardingStore::CreateTable(definition);
    Tell(1);
  }
  void AddColumn(const std::string& table, const ColumnDefinition& column) override {
    ForwardingStore::AddColumn(table, column);
    Tell(1);
  }
  void DelayFlushes() override {
    ForwardingStore::DelayFlushes();
    delays_ = true;
  }
  void Flush() override {
    ForwardingStore::Flush();
    delays_ = false;
    TellOfSaved();
  }

 private:
  void Tell(std::size_t changes) {
    for (std::size_t i = 0; i < changes; ++i) {
      witness_.Made();
    }
    unflushed_ += changes;
    if (!delays_) {
      TellOfSaved();
    }
  }

  void TellOfSaved() {
    for (; unflushed_ > 0; --unflushed_) {
      witness_.Saved();
    }
  }

  Witness witness_;
  bool delays_ = false;
  std::size_t unflushed_ = 0;
};

}  // namespace veyra::faults
