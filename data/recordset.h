#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "data/store.h"

namespace veyra {

enum class CursorType {
  ForwardOnlyReadOnly,  ///< Rows are read one at a time as the cursor moves on; nothing is written.
  StaticOptimistic,     ///< All rows are read at the first move or look, and none before; changes
                        ///< are checked against what was read.
};

/// The rows that a query found, with a cursor that stands on one of them, before the first of none,
/// or after the last. A new record set stands on its first row, or at the end when there is none.
/// Used from one thread; must be closed, or dropped, before its Connection is.
///
/// Reading:
///
///   auto rows = connection.Open("SELECT * FROM Rooms", CursorType::ForwardOnlyReadOnly);
///   for (; !rows->AtEnd(); rows->MoveNext()) {
///     Use(rows->Field("Name"));
///   }
///
/// Adding, and changing the row under the cursor:
///
///   auto rows = connection.Open("SELECT * FROM Rooms", CursorType::StaticOptimistic);
///   rows->AddNew();                       rows->SetField("Active", std::int64_t{1});
///   rows->SetField("Name", "Pool");       rows->Update();
///   rows->Update();
///
/// Adding a row to a static record set that nobody has looked into reads none of the table.
///
/// Throws DatabaseError when the store fails or a column is missing, RowChangedError when Update or
/// Delete meets a row that another program changed or removed since it was read; the file is then
/// unchanged, the cursor stands where it stood, and the pending fields are dropped.
/// Calling a member whose REQUIRES does not hold throws std::logic_error.
///
/// Left out on purpose: moving backwards, bookmarks, filters, batches, several open edits.
class Recordset {
 public:
  Recordset(Store& store, Query query, CursorType cursor);
  ~Recordset();
  Recordset(const Recordset&) = delete;
  Recordset& operator=(const Recordset&) = delete;

  /// True iff there is no row and none has been added.
  bool IsEmpty();

  /// True iff the cursor stands after the last row.
  bool AtEnd();

  /// How many rows there are. REQUIRES: StaticOptimistic.
  std::size_t RecordCount();

  /// Stands on the first row, or at the end when there is none. REQUIRES: StaticOptimistic.
  void MoveFirst();

  /// Stands on the row after the current one, or at the end. REQUIRES: !AtEnd(). After Delete the
  /// cursor goes to the row that followed the deleted one.
  void MoveNext();

  /// Stands on the last row, or at the end when there is none. REQUIRES: StaticOptimistic.
  void MoveLast();

  /// The value of a column, found without regard to ASCII letter case; after SetField the new one.
  /// REQUIRES: on a row that is not deleted, or after AddNew (null for a field not set).
  Value Field(std::string_view name);

  /// Begins a new row; what SetField sets from now on belongs to it. REQUIRES: StaticOptimistic, no
  /// pending fields.
  void AddNew();

  /// Sets a field of the new row, or of the current one; nothing is written before Update.
  /// REQUIRES: StaticOptimistic, and AddNew was called or the cursor is on a row.
  void SetField(std::string_view name, Value value);

  /// Writes the pending fields. A new row becomes the last one and the cursor stands on it, its
  /// auto-increment key filled in; a changed row stays under the cursor. Fields set to what they
  /// hold already are not written, and when none differs nothing is.
  /// REQUIRES: AddNew or SetField since the last Update.
  void Update();

  /// Removes the current row. The cursor stays at its place, on no row, until MoveNext.
  /// REQUIRES: StaticOptimistic, on a row that is not deleted, no pending fields.
  void Delete();

  /// Releases the rows. Any further call but Close throws std::logic_error.
  void Close();

 private:
  class Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace veyra
