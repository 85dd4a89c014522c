#pragma once

#include "data/access/pages/page_changes.h"
#include "data/access/read/table_layout.h"
#include "data/store.h"

namespace veyra::access {

/// Hands out the usage maps of a table, side by side on a page of their own.
class MapMaker {
 public:
  explicit MapMaker(PageChanges& pages);

  /// An empty map. Throws FileProblem when the page is full.
  RowPointer Make();

 private:
  PageChanges& pages_;
  PageNumber page_;
};

/// A column of the kind that this program makes: a long, a double, a date-time, a text, or a memo
/// for a text without limit. Its number and places are not given yet.
ColumnLayout LayoutOf(const ColumnDefinition& column);

/// Writes a table without rows on a page of its own, its maps and its indexes on others. The table
/// says its columns, its index columns and flags, and where its definition stands; the rest is
/// filled in. It is in no catalogue yet.
void WriteTable(PageChanges& pages, TableLayout& table);

}  // namespace veyra::access
