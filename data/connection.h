#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "data/recordset.h"
#include "data/store.h"

namespace veyra {

/// An open database, addressed by SQL text. Kept for the whole run; used from one thread.
class Connection {
 public:
  /// Takes over an open store.
  explicit Connection(std::unique_ptr<Store> store);

  /// The rows of a query, written as ParseQuery reads it. Throws DatabaseError when the text is
  /// not understood or names a table or column that is not there.
  std::unique_ptr<Recordset> Open(std::string_view sql, CursorType cursor);

  /// The full name of the database file.
  const std::string& FileName() const { return store_->FileName(); }

  /// The catalogue: tables, and columns of a table, by name.
  std::vector<std::string> TableNames() { return store_->TableNames(); }
  std::vector<std::string> ColumnNames(const std::string& table) {
    return store_->ColumnNames(table);
  }

  /// The schema engine: see Store.
  void CreateTable(const TableDefinition& definition) { store_->CreateTable(definition); }
  void AddColumn(const std::string& table, const ColumnDefinition& column) {
    store_->AddColumn(table, column);
  }

 private:
  std::unique_ptr<Store> store_;
};

}  // namespace veyra
