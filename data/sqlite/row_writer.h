#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "data/sqlite/reader.h"
#include "data/store.h"

namespace veyra::sqlite {

/// The place of a column, found without regard to ASCII letter case. Throws MissingItemError when
/// the table of that file has none of that name.
std::size_t RequireColumn(const std::string& file, const Table& table, const std::string& name);

/// Adds, changes and removes single rows. Each member throws DatabaseError; what it has written
/// counts once the transaction around it is committed.
class RowWriter {
 public:
  /// `reader` must outlive it.
  explicit RowWriter(Reader& reader) : reader_(reader) {}

  /// The table, as Catalogue::Find gives it. Throws DatabaseError also when its rows cannot be
  /// changed.
  const Table& Find(const std::string& name);

  void Insert(const Table& table, const FieldValues& fields);
  void InsertAll(const Table& table, const std::vector<FieldValues>& rows);

  /// The row that was added last.
  Row ReadNew(const Table& table);

  /// Returns the row as it is now; without fields it is left alone. Throws RowChangedError when the
  /// row in the file is no longer equal to `before`.
  Row Change(const Table& table, const Row& before, const FieldValues& fields);

  /// Throws RowChangedError as Change does.
  void Remove(const Table& table, const Row& before);

  /// Whether the row is in the file just as it is here.
  bool IsStored(const std::string& table, const Row& row);

  /// Runs a statement that gives no rows.
  void Run(std::string sql, const std::vector<Value>& parameters);

 private:
  bool ReadRow(const Table& table, RowKey key, Row& row);
  std::vector<Value> StoredValues(const Table& table, const FieldValues& fields) const;
  void CheckUnchanged(const Table& table, const Row& before);

  Reader& reader_;
};

}  // namespace veyra::sqlite
