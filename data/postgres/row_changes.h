#pragma once

#include <string>
#include <vector>

#include "data/postgres/cell.h"
#include "data/postgres/change_runner.h"
#include "data/postgres/schema_maker.h"
#include "data/postgres/seen_rows.h"
#include "data/store.h"

namespace veyra::postgres {

/// Adds, sets and removes rows within a transaction that is open. Throws Failure, and as Store
/// does.
class RowChanges {
 public:
  /// All of them must outlive it.
  RowChanges(Session& session, Catalogue& catalogue, SchemaMaker& schema, SeenRows& seen,
             const Place& place)
      : session_(session), catalogue_(catalogue), schema_(schema), seen_(seen), place_(place) {}

  /// Rows as the server stored them, in their order.
  std::vector<Row> Add(const std::string& table, const std::vector<FieldValues>& rows);

  /// The row as it is now. Throws RowChangedError when it was no longer equal to `before`.
  Row SetFields(const std::string& table, const Row& before, const FieldValues& fields);

  /// Throws RowChangedError as SetFields does.
  void Remove(const std::string& table, const Row& before);

  /// Makes one of several changes, and returns what looks whether it is made. REQUIRES: `change`
  /// and this outlive what it returns.
  Look Make(const RowChange& change);

  /// Whether the row stands there as it is here.
  bool IsStored(const std::string& table, const Row& row);

 private:
  std::vector<Row> Noted(const std::string& table, RowReader rows);
  void RequireRowOf(const Table& table, const Row& before);
  [[noreturn]] void FailAsChanged(const Table& table, RowKey row);

  Session& session_;
  Catalogue& catalogue_;
  SchemaMaker& schema_;
  SeenRows& seen_;
  const Place& place_;
};

}  // namespace veyra::postgres
