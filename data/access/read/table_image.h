#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "data/access/pages/page_source.h"
#include "data/access/read/cell.h"
#include "data/access/read/number_order.h"
#include "data/access/read/table_layout.h"
#include "data/store.h"

namespace veyra::access {

/// The key of a row in its store: its home slot, which it keeps when it is moved.
RowKey KeyOf(RowPointer home);
RowPointer HomeOf(RowKey key);

/// The row that a home slot stands for, wherever it has been moved to, or nothing when the slot is
/// deleted. Throws DamagedFile when the slot is not there or the moves run in a circle.
std::optional<RowPointer> ResolveRow(PageSource& file, RowPointer home);

/// All rows of a table as they were when it was read, in the order of their slots. Holds the
/// table's pages; long texts are read from the file when they are asked for.
///
/// A change of some pages need not cost the reading of all: Mend takes over what they hold.
class TableImage {
 public:
  /// Reads the definition and every row's place. Throws DamagedFile, also when the number of rows
  /// found is not what the definition says.
  TableImage(PageSource& file, PageNumber definition);

  const TableLayout& Layout() const { return layout_; }
  std::size_t RowCount() const { return slots_.size(); }

  /// The index is below RowCount().
  RowKey Key(std::size_t index) const { return slots_[index].Key; }
  RowView View(std::size_t index) const;

  /// Which rows hold a number, or a date as days since 1899-12-30, in a fixed column, rising. The
  /// first call for a column reads it in every row, later ones look it up.
  /// REQUIRES: IsNumeric(column).
  std::vector<std::size_t> RowsEqual(std::size_t column, double key);

  /// Whether a column is one that RowsEqual looks into.
  bool IsNumeric(std::size_t column) const;

  /// Makes this the image of the table as it is after these pages, and no others, of the file have
  /// been changed. Returns false when that is not worth while, or the columns are others now: the
  /// image is then to be thrown away, as it is when this throws DamagedFile.
  bool Mend(PageSource& file, const PageImages& changed);

 private:
  struct Slot {
    RowKey Key;
    std::uint32_t Page;  ///< Place in pages_.
    std::uint16_t Row;
  };

  void ReadSlots(PageSource& file, PageNumber number);
  std::uint32_t PlaceOfPage(PageSource& file, PageNumber number);
  RowView ViewOf(const Slot& slot) const;
  void CheckRowCount() const;
  std::vector<NumberOrder::Entry> NumbersOf(std::size_t column,
                                            const std::vector<Slot>& slots) const;
  std::set<PageNumber> PagesToRead(const PageImages& changed,
                                   const std::vector<PageNumber>& owned) const;
  std::vector<Slot> TakeSlots(const std::set<PageNumber>& pages);
  std::vector<Slot> FindSlots(PageSource& file, const std::set<PageNumber>& pages);

  TableLayout layout_;
  Format version_;
  std::vector<PageNumber> owned_;  ///< By the table's map, rising.
  std::vector<PagePtr> pages_;
  std::map<PageNumber, std::uint32_t> places_;
  std::vector<Slot> slots_;                                ///< Rising by their keys.
  std::map<PageNumber, std::set<PageNumber>> moved_from_;  ///< By where rows were moved to.
  std::map<std::size_t, NumberOrder> orders_;
};

/// The number by which RowsEqual finds a value: the value of a number, the days of a date. Nothing
/// for what is neither.
std::optional<double> OrderKey(const Value& value);

}  // namespace veyra::access
