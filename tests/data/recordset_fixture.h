#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "data/connection.h"
#include "data/forwarding_store.h"
#include "data/open_store.h"
#include "data/recordset.h"
#include "data/schema.h"
#include "tests/store_kind.h"
#include "tests/temp_folder.h"

namespace veyra {

inline constexpr const char* kAll = "SELECT * FROM Rooms";

/// A real store that counts what is asked of it.
class CountingStore : public ForwardingStore {
 public:
  struct Counts {
    int Selects = 0;
    int Inserts = 0;
    int Updates = 0;
  };

  CountingStore(std::unique_ptr<Store> store, Counts& counts)
      : ForwardingStore(std::move(store)), counts_(counts) {}

  std::unique_ptr<RowSource> Select(const Query& query) override {
    ++counts_.Selects;
    return ForwardingStore::Select(query);
  }
  std::vector<std::unique_ptr<RowSource>> SelectAll(const std::vector<Query>& queries) override {
    return Store::SelectAll(queries);
  }
  Row Insert(const std::string& table, const FieldValues& fields) override {
    ++counts_.Inserts;
    return ForwardingStore::Insert(table, fields);
  }
  Row Update(const std::string& table, const Row& before, const FieldValues& fields) override {
    ++counts_.Updates;
    last_update_ = fields;
    return ForwardingStore::Update(table, before, fields);
  }

  const FieldValues& LastUpdate() const { return last_update_; }

 private:
  Counts& counts_;
  FieldValues last_update_;
};

/// Record sets over a real file with facilities.
class RecordsetTest : public testing::Test {
 protected:
  RecordsetTest() : connection_(MakeStore()) {}

  std::string File() const { return folder_.File("Calendar.mdb").string(); }

  std::unique_ptr<Store> MakeStore() {
    auto store = CreateStoreOfKind(TestedStoreKind(), File());
    store->CreateTable(RoomsTable());
    store->CreateTable(ReservTable());
    auto counting = std::make_unique<CountingStore>(std::move(store), counts_);
    store_ = counting.get();
    return counting;
  }

  /// Adds facilities by another way than the record set under test.
  void AddRooms(const std::vector<std::string>& names) {
    const auto other = Other();
    for (const std::string& name : names) {
      other->Insert("Rooms", {{"Name", name}, {"Active", std::int64_t{0}}});
    }
  }

  std::unique_ptr<Store> Other() const { return OpenStore(File(), StoreAccess::ReadWrite); }

  std::unique_ptr<Recordset> OpenStatic(const std::string& sql = kAll) {
    return connection_.Open(sql, CursorType::StaticOptimistic);
  }

  std::unique_ptr<Recordset> OpenForward(const std::string& sql = kAll) {
    return connection_.Open(sql, CursorType::ForwardOnlyReadOnly);
  }

  static void Add(Recordset& rows, const std::string& name) {
    rows.AddNew();
    rows.SetField("Name", name);
    rows.Update();
  }

  static std::string Name(Recordset& row) { return ToText(row.Field("Name")); }

  /// The names from the cursor to the end, each followed by a semicolon.
  static std::string NamesFrom(Recordset& rows) {
    std::string names;
    for (; !rows.AtEnd(); rows.MoveNext()) {
      names += Name(rows) + ";";
    }
    return names;
  }

  /// The names that the file holds.
  std::string Names() { return NamesFrom(*OpenForward()); }

  TempFolder folder_;
  CountingStore::Counts counts_;
  CountingStore* store_ = nullptr;
  Connection connection_;
};

}  // namespace veyra
