#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/errors.h"
#include "data/explaining_store.h"
#include "data/noting_store.h"
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

  /// The rows of each of several queries, forward only. A server is asked for all of them in one
  /// go. Throws as Open does.
  std::vector<std::unique_ptr<Recordset>> OpenAll(const std::vector<std::string>& sql);

  /// The database by rows instead of by SQL text. REQUIRES: no record set is open.
  Store& Rows() { return *store_; }

  /// What this program has changed through the connection.
  ActionNotes& Notes() { return store_->Notes(); }

  /// The full name of the database file.
  const std::string& FileName() const { return store_->FileName(); }

  /// See Store.
  std::optional<Report> TakeNotice() { return store_->TakeNotice(); }

  /// The catalogue: tables, and columns of a table, by name.
  std::vector<std::string> TableNames() { return store_->TableNames(); }
  std::vector<std::string> ColumnNames(const std::string& table) {
    return store_->ColumnNames(table);
  }

  /// Says from now on, of one of these items that is found missing, why it could not be made. The
  /// first failure that it is told of counts. REQUIRES: no record set is open.
  void ExplainMissingItems(const std::vector<NamedItem>& items, const Report& failure);

  /// What kind of file it is and what is in it. Counts the rows, so it may take a while.
  StoreDescription Describe() { return store_->Describe(); }

  /// How much of a text a column can hold: see Store.
  std::size_t FittingCharacters(const std::string& table, const std::string& column,
                                std::string_view text) {
    return store_->FittingCharacters(table, column, text);
  }

  /// See Store.
  std::shared_ptr<const void> MarkOf(const std::string& table) { return store_->MarkOf(table); }

  /// See Store; to be called by JournalledAction.
  void BeginAction(const std::string& name) { store_->BeginAction(name); }
  void EndAction() { store_->EndAction(); }

  /// See Store.
  ChangeFeed* Feed() { return store_->Feed(); }
  void DelayFlushes() { store_->DelayFlushes(); }
  void Flush() { store_->Flush(); }

  /// The schema engine: see Store.
  void CreateTable(const TableDefinition& definition) { store_->CreateTable(definition); }
  void AddColumn(const std::string& table, const ColumnDefinition& column) {
    store_->AddColumn(table, column);
  }

 private:
  std::unique_ptr<NotingStore> store_;
  bool explains_ = false;
};

}  // namespace veyra
