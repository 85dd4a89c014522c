#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <vector>

#include "data/salvage.h"
#include "data/sqlite/salvage/salvage_pages.h"

namespace veyra::sqlite {

/// A row as it lies in a leaf.
struct LeafRow {
  std::uint32_t Page = 0;
  std::int64_t Number = 0;
  std::vector<Value> Record;
};

/// What a leaf gave.
struct LeafYield {
  std::vector<LeafRow> Rows;
  int LostRows = 0;
  std::set<std::uint32_t> Overflow;  ///< The pages on which its long records go on.
};

/// Reads the rows of a table's leaf that are whole: a record has just the length that it promises,
/// and the rows' numbers rise. Throws NotWhole when the page is not such a leaf.
LeafYield ReadLeaf(const SalvagePages& pages, std::uint32_t number);

/// A part of a tree.
struct TreePart {
  std::uint32_t Page = 0;                  ///< Its uppermost page.
  std::optional<std::int64_t> After = {};  ///< The numbers of its rows are higher than this,
  std::optional<std::int64_t> UpTo = {};   ///< and at most this.
};

/// What a tree gave.
struct TreeYield {
  std::vector<TreePart> Leaves;
  std::set<std::uint32_t> Reached;  ///< All its pages.
  std::vector<TreePart> Lost;
};

/// Goes through a tree from its root, past what is damaged. Pages of `taken` belong to others and
/// count as damaged here, as does a page that is met twice.
TreeYield WalkTree(const SalvagePages& pages, std::uint32_t root, bool is_table,
                   const std::set<std::uint32_t>& taken);

/// Where a page's own head begins.
constexpr std::size_t HeadOf(std::uint32_t page) {
  return page == 1 ? 100 : 0;
}

}  // namespace veyra::sqlite
