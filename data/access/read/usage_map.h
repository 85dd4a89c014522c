#pragma once

#include <vector>

#include "data/access/pages/page_source.h"

namespace veyra::access {

// A usage map is a set of pages, kept in a row of a data page:
//
//   0  kind
//   kind 0:  1  the first page that the bits stand for, 4 bytes
//            5  bits, lowest first, up to the row's end
//   kind 1:  1  numbers of map pages, 4 bytes each, 0 for none, up to the row's end
//
// A map page holds its bits from byte 4 on; the n-th stands for the n-th run of that many pages.

/// The map pages that a map is kept on; none where it is kept in place.
std::vector<PageNumber> MapPages(PageSource& file, RowPointer map);

/// The pages of a map, rising. Those past the file's end are left out.
std::vector<PageNumber> ReadUsageMap(PageSource& file, RowPointer map);

}  // namespace veyra::access
