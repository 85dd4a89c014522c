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
/// Left out on purpose: moving backwards, filters, several open edits.
class Recordset {
 public:
  /// The store must outlive the record set.
  Recordset(Store& store, Query query, CursorType cursor);

  /// Forward only, with the rows that the store has given for the query.
  Recordset(Store& store, Query query, std::unique_ptr<RowSource> rows);
  ~Recordset() = default;
  Recordset(const Recordset&) = delete;
  Recordset& operator=(const Recordset&) = delete;

  /// True iff there is no row: none found and none added, or all deleted again.
  bool IsEmpty();

  /// True iff the cursor stands after the last row.
  bool AtEnd();

  /// How many rows there are. REQUIRES: StaticOptimistic.
  std::size_t RecordCount();

  /// Stands on the first row, or at the end when there is none.
  /// REQUIRES: StaticOptimistic, no pending fields.
  void MoveFirst();

  /// Stands on the row after the current one, or at the end; after Delete on the row that followed
  /// the deleted one. REQUIRES: !AtEnd(), no pending fields.
  void MoveNext();

  /// Stands on the last row, or at the end when there is none.
  /// REQUIRES: StaticOptimistic, no pending fields.
  void MoveLast();

  /// Tells the current row from every other of this record set, for as long as it stands.
  /// REQUIRES: StaticOptimistic, on a row that is not deleted, not after AddNew.
  RowKey Bookmark();

  /// Stands on the row of that bookmark and returns true; stays where it is and returns false when
  /// that row was deleted here. Reads nothing.
  /// REQUIRES: StaticOptimistic, no pending fields.
  bool MoveTo(RowKey bookmark);

  /// The value of a column, found without regard to ASCII letter case; after SetField the new one.
  /// REQUIRES: on a row that is not deleted, or after AddNew (null for a field not set).
  Value Field(std::string_view name);

  /// Begins a new row; what SetField sets from now on belongs to it. REQUIRES: StaticOptimistic, no
  /// pending fields.
  void AddNew();

  /// How many rows AddAll, DeleteAll and SetFieldInAll are best given: that many they do in one
  /// change of the file, all or none; 1 where each is done by itself. REQUIRES: not closed.
  std::size_t RowsAtOnce() const;

  /// Adds these rows, which become the last ones, and returns their bookmarks; the cursor stands on
  /// the last of them. With more rows than RowsAtOnce, a failure may have added the first of them,
  /// which this record set then lacks. REQUIRES: StaticOptimistic, no pending fields.
  std::vector<RowKey> AddAll(const std::vector<FieldValues>& rows);

  /// Removes the rows of these bookmarks, as many in one change as RowsAtOnce says. The cursor
  /// stands where the last of them was, as after Delete. REQUIRES: StaticOptimistic, no pending
  /// fields; each is a row's that is not deleted.
  void DeleteAll(const std::vector<RowKey>& bookmarks);

  /// Sets a field in the rows of these bookmarks, those that hold the value already left alone. The
  /// cursor stands on the last of them. REQUIRES: as for DeleteAll.
  void SetFieldInAll(const std::vector<RowKey>& bookmarks, std::string_view name,
                     const Value& value);

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
  enum class Editing { Nothing, NewRow, CurrentRow };

  struct HeldRow {
    Row Content;
    bool Deleted = false;
  };

  void RequireOpen() const;
  void RequireStatic() const;
  void RequireNothingPending() const;
  const HeldRow& RequireRow();

  void CheckNames();
  std::size_t ColumnIndex(std::string_view name) const;
  void LearnColumns(const Row& row);

  void ReadFirst();
  void ReadNext();
  void ReadAll();
  void LookForRow();
  void SkipDeleted();
  std::size_t LiveRows() const { return rows_.size() - deleted_; }

  void WriteNewRow(const FieldValues& fields);
  void HoldNewRow(Row row);
  static bool IsHeldAlready(const Value& held, const Value& value);
  void WriteCurrentRow(const FieldValues& fields);
  std::vector<std::size_t> PlacesOf(const std::vector<RowKey>& bookmarks);

  Store* store_;  ///< Null once closed.
  Query query_;
  CursorType cursor_;
  std::vector<std::string> columns_;

  std::unique_ptr<RowSource> source_;  ///< ForwardOnlyReadOnly: the rows still to come.
  std::vector<HeldRow> rows_;  ///< ForwardOnlyReadOnly: the current row, if there was one ever.
                               ///< StaticOptimistic: the rows read, then the rows added.
  std::size_t position_ = 0;   ///< The current row in rows_; its size at the end.
  std::size_t deleted_ = 0;    ///< How many of rows_ are deleted.
  bool read_ = false;          ///< Whether the query's rows have been read.

  Editing editing_ = Editing::Nothing;
  FieldValues pending_;
};

}  // namespace veyra
