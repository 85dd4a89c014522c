#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "data/schema.h"
#include "tests/store_kind.h"
#include "tests/temp_folder.h"

namespace veyra {

/// A data folder whose calendar is made, opened and brought up to date as at a start.
class SchemaTest : public testing::Test {
 protected:
  SchemaTest() {
    databases_.AppFolder = folder_.path().string();
    databases_.DataFolder = folder_.path().string();
    databases_.Waiting = std::chrono::milliseconds(50);
  }

  std::string File(const std::string& name) const { return folder_.File(name).string(); }

  std::unique_ptr<Store> Make(const std::string& name, const std::vector<TableDefinition>& tables) {
    auto store = CreateStoreOfKind(TestedStoreKind(), File(name));
    for (const TableDefinition& table : tables) {
      store->CreateTable(table);
    }
    return store;
  }

  /// Reserv as older calendars have it.
  static TableDefinition OldReservTable() {
    TableDefinition table = ReservTable();
    table.Columns.pop_back();
    table.Indexes.pop_back();
    table.Indexes.front().Held.pop_back();
    return table;
  }

  /// A calendar as the program finds it when it is first started.
  void MakeCalendar() { Make("Calendar.mdb", {RoomsTable(), ReservTable()}); }

  /// The schema routines of a start, in their order.
  void Start() {
    CreateResCon(databases_);
    EnsureSettingsRow(databases_);
    EnsureMultKeyColumn(databases_);
    EnsureTodayBColorColumn(databases_);
  }

  /// The whole of a table: its columns, then a line for each row.
  std::string Table(const std::string& name) {
    std::string text;
    const auto columns = databases_.ResCon->ColumnNames(name);
    for (const std::string& column : columns) {
      text += column + " ";
    }
    const auto rows =
        databases_.ResCon->Open("SELECT * FROM " + name, CursorType::ForwardOnlyReadOnly);
    for (; !rows->AtEnd(); rows->MoveNext()) {
      text += "\n";
      for (const std::string& column : columns) {
        const Value value = rows->Field(column);
        text += (IsNull(value) ? "NULL" : ToText(value)) + " ";
      }
    }
    return text;
  }

  TempFolder folder_;
  Databases databases_;
};

}  // namespace veyra
