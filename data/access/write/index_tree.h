#pragma once

#include <vector>

#include "data/access/format/index_page.h"
#include "data/access/pages/page_changes.h"
#include "data/access/read/table_layout.h"

namespace veyra::access {

/// An index of a table, changed entry by entry or built anew. The root keeps its page number; the
/// leaf pages are linked to their neighbours. Throws DamagedFile when the pages are not a B-tree:
/// an index that cannot be followed can still be rebuilt.
class IndexTree {
 public:
  /// `table` is the page of the table's definition.
  IndexTree(PageChanges& pages, PageNumber table, const IndexLayout& index)
      : pages_(pages), table_(table), index_(index) {}

  /// All keys, rising.
  std::vector<Bytes> Keys();

  /// Whether there is an entry of that key for another row than `row`.
  bool HasKey(const Bytes& key, RowPointer row);

  /// Adds the entry of a row. It must not be there yet.
  void Insert(const Bytes& key, RowPointer row);

  /// Removes the entry of a row; returns false when it is not there.
  bool Remove(const Bytes& key, RowPointer row);

  /// Builds the index anew. REQUIRES: `entries` holds EntryKey keys, rising, no two the same.
  void Rebuild(std::vector<Bytes> entries);

 private:
  /// A page on the way from the root to a leaf, and which of its entries the way went through;
  /// the number of its entries for the tail.
  struct Step {
    PageNumber Number = 0;
    IndexPage Page;
    std::size_t Place = 0;
  };
  using Path = std::vector<Step>;

  Path Descend(const Bytes& entry_key);
  PageNumber TakeIndexPage();
  void Write(PageNumber number, const IndexPage& page);
  void Store(Path& path, std::size_t level);
  void Split(Path& path, std::size_t level);
  void SplitRoot(Path& path);
  void MendSeparators(Path& path, std::size_t level);
  void RemoveEmptyLeaf(Path& path);
  std::vector<IndexEntry> WriteLevel(std::vector<IndexEntry> entries, bool is_leaf,
                                     std::vector<PageNumber>& spare);

  PageChanges& pages_;
  PageNumber table_;
  const IndexLayout& index_;
};

}  // namespace veyra::access
