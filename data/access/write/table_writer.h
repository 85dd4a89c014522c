#pragma once

#include "data/access/pages/page_changes.h"
#include "data/access/read/table_layout.h"
#include "data/access/write/row_writer.h"

namespace veyra::access {

/// Throws FileProblem, naming what to do instead, when a file is of a kind that is only read: Jet 3
/// or encoded.
void CheckMayWrite(const FileHeader& header);

/// Throws FileProblem, naming what to do instead, when the table has an index whose keys this
/// program does not know, so that it could not be kept right.
void CheckMayWrite(const TableLayout& table);

/// Entries that the indexes of a table lack yet, of each index in the table's order of them.
using PendingEntries = std::vector<std::vector<Bytes>>;

/// Changes the rows of one table of a Jet 4 file, with its row count, auto number, indexes and maps
/// of pages. In a table with an auto number added rows come after all others; in one without they
/// take the first room that there is. Throws FileProblem; the changes are then to be thrown away.
class TableWriter {
 public:
  TableWriter(PageChanges& pages, PageNumber definition);

  const TableLayout& Layout() const { return table_; }

  /// The row of that home slot. Throws StoreProblem when there is none.
  RawRow Read(RowPointer home);

  /// Adds a row, an auto number that is null in it given first. Returns its home slot.
  RowPointer Insert(RawRow& row);

  /// Adds rows in their order, as Insert does. Returns their home slots.
  std::vector<RowPointer> InsertAll(std::vector<RawRow>& rows);

  /// Adds rows in their order, but enters them only in indexes that allow each value once. Returns
  /// the entries that the others lack.
  PendingEntries InsertWithoutEntries(std::vector<RawRow>& rows);

  /// Enters in the indexes what they lack.
  void AddEntries(PendingEntries pending);

  /// Replaces the row of that home slot, which it keeps. Throws StoreProblem when there is none.
  void Update(RowPointer home, const RawRow& row);

  /// Removes the row of that home slot. Throws StoreProblem when there is none.
  void Delete(RowPointer home);

  /// Builds every index anew from the rows.
  void RebuildIndexes();

 private:
  RowPointer Resolve(RowPointer home);
  void GiveAutoNumber(RawRow& row);
  void CheckUnique(const RawRow& row, RowPointer home, const RawRow* before);
  bool KeepsOrder() const;
  RowPointer PlaceNew(const Bytes& row);
  RowPointer Place(const Bytes& row, std::uint16_t flags);
  RowPointer PlaceLast(const Bytes& row);
  std::vector<RowPointer> PlaceAll(std::vector<RawRow>& rows);
  std::vector<Bytes> EntriesOf(const IndexLayout& index, const std::vector<RawRow>& rows,
                               const std::vector<RowPointer>& homes) const;
  void AddToIndex(const IndexLayout& index, std::vector<Bytes> keys);
  PageNumber AddPage(PageNumber above);
  void Move(RowPointer home, RowPointer place, const Bytes& row);
  void Empty(RowPointer place);
  void SetRowCount(std::uint32_t count);
  void ChangeIndexes(RowPointer home, const RawRow* before, const RawRow* after);
  bool ChangeIndex(const IndexLayout& index, RowPointer home, const RawRow* before,
                   const RawRow* after);
  bool HasSameKey(const IndexLayout& index, const RawRow* one, const RawRow* other) const;
  bool HasEntry(const IndexLayout& index, const RawRow* row) const;
  void RebuildIndex(const IndexLayout& index);

  PageChanges& pages_;
  TableLayout table_;
  PageNumber filling_ = 0;  ///< The page that took the last added row, 0 for none yet.
};

}  // namespace veyra::access
