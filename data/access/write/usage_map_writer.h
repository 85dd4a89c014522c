#pragma once

#include "data/access/pages/page_changes.h"
#include "data/access/read/usage_map.h"

namespace veyra::access {

/// The map of all pages that nothing uses.
inline constexpr RowPointer kFreePages{1, 0};

/// The bytes of a map's row in files of this program: enough for 512 pages in place, or for the
/// numbers of as many map pages as the largest file needs.
inline constexpr std::size_t kUsageMapBytes = 69;

/// Adds a page to a map. A map that cannot reach it in place moves to map pages of its own.
void AddToMap(PageChanges& pages, RowPointer map, PageNumber page);

/// Takes a page out of a map; without effect when it is not there.
void RemoveFromMap(PageChanges& pages, RowPointer map, PageNumber page);

/// A page of zeros for a new use, its number above `above`: one that FreePage gave back, or a new
/// one at the file's end.
PageNumber TakePage(PageChanges& pages, PageNumber above = 0);

/// Gives back a page that nothing uses any more.
void FreePage(PageChanges& pages, PageNumber page);

}  // namespace veyra::access
