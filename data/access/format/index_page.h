#pragma once

#include <vector>

#include "data/access/format/page.h"

namespace veyra::access {

// An index page (Jet 4):
//
//   0   kind: 3 a node, 4 a leaf; then 1
//   2   free bytes, 2 bytes
//   4   page of the table's definition
//   12  page before this one on its level, 0 for none
//   16  page after it
//   20  in a node: the page for keys after all of its entries, 0 for none
//   24  prefix length, 2 bytes: how many bytes the first entry has in common with all, which the
//       others leave out
//   27  bits, lowest first, one for each byte of the entries: set where an entry ends; the bit of
//       the end of the last one is there too
//   480 entries, rising:  key, page (3 bytes, big-endian), row
//       in a node also:   page of the entries up to this one (4 bytes, big-endian)

/// A key with the row that has it, and in a node the page of all entries up to it.
struct IndexEntry {
  Bytes Key;  ///< With the page and the row at its end, so that no two entries are the same.
  PageNumber Child = 0;

  bool operator==(const IndexEntry&) const = default;
};

struct IndexPage {
  bool IsLeaf = true;
  std::uint32_t Owner = 0;
  PageNumber Previous = 0;
  PageNumber Next = 0;
  PageNumber Tail = 0;
  std::vector<IndexEntry> Entries;
};

/// The bytes of all entries of a page together, at most.
inline constexpr std::size_t kIndexRoom = 4096 - 480;

/// An index page of a Jet 4 file. Throws DamagedFile when the page is of another kind.
IndexPage DecodeIndexPage(ByteView page);

/// The bytes that a page's entries take, written in full.
std::size_t BytesOfEntries(const IndexPage& page);

/// Whether the entries have room on one page, in full or without their common prefix.
bool FitsOnPage(const IndexPage& page);

/// The page as the file has it. Throws DamagedFile unless FitsOnPage(page).
Bytes EncodeIndexPage(const IndexPage& page);

/// The key of an entry of a row.
Bytes EntryKey(Bytes key, RowPointer row);

}  // namespace veyra::access
