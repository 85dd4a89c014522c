#pragma once

#include <set>
#include <string>
#include <vector>

#include "data/access/pages/page_source.h"
#include "data/access/read/table_layout.h"
#include "data/salvage.h"

namespace veyra::access {

/// What a page of a table gave.
struct PageYield {
  std::vector<SalvagedRow> Rows;
  int LostRows = 0;                 ///< Slots that hold no row of the table.
  std::set<std::string> LostTexts;  ///< Columns whose long texts are missing in some row.
};

/// Whether the columns of a definition can be those of a table: known kinds, none over another.
bool IsSoundLayout(const TableLayout& layout);

/// Reads the rows of one table, page by page.
class RowSalvager {
 public:
  /// How closely a row must follow the definition.
  enum class Fit {
    Loose,  ///< As a row may stand in the file: columns may have been deleted or added.
    Exact,  ///< Its columns and no others; for a definition that was not the file's own.
  };

  RowSalvager(PageSource& file, const TableLayout& layout, Fit fit)
      : file_(file), layout_(layout), fit_(fit) {}

  /// The rows whose home is on that page. A long text that cannot be read is null. Throws
  /// DamagedFile when the page is not a data page.
  PageYield Read(PageNumber page);

 private:
  bool ReadRow(const Bytes& home, RowPointer place, PageYield& yield);
  RowPointer Target(RowPointer home);
  void CheckRow(ByteView bytes) const;
  std::vector<Value> Values(const Bytes& page, ByteView bytes, PageYield& yield) const;

  PageSource& file_;
  const TableLayout& layout_;
  Fit fit_;
  std::set<RowKey> targets_;  ///< Of moved rows: each is one row's only.
};

}  // namespace veyra::access
