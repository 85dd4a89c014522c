#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "data/value.h"

namespace veyra::sqlite {

using PageBytes = std::vector<unsigned char>;
using ByteSpan = std::span<const unsigned char>;

// A page of a tree:
//
//   0   kind: 2 and 5 inner page of an index and of a table, 10 and 13 leaf of one
//   3   number of cells, 2 bytes, big-endian as all numbers
//   8   inner pages: the last child, 4 bytes
//   8 or 12   where each cell begins, 2 bytes each
//
// In the file's first page it begins after the file's header, at 100. A cell of an inner page
// begins with its child, 4 bytes; in a table the highest row number below it follows. A cell of a
// table's leaf: bytes of the record, number of the row, record, and where that does not fit its
// first overflow page. Sizes and numbers are written in 1 to 9 bytes of 7 bits.

enum class TreeKind : unsigned char {
  InnerIndex = 2,
  InnerTable = 5,
  IndexLeaf = 10,
  TableLeaf = 13,
};

/// Thrown where bytes are not what the format promises.
struct NotWhole {};

std::uint32_t BigEndian16(ByteSpan bytes, std::size_t at);
std::uint32_t BigEndian32(ByteSpan bytes, std::size_t at);

/// Reads a number of 1 to 9 bytes at `at`, and moves `at` behind it.
std::int64_t TakeVarint(ByteSpan bytes, std::size_t& at);

/// A page of a tree. Does not own the bytes. Every read is checked and throws NotWhole.
class TreePage {
 public:
  /// `start` is where the page's own head lies: 100 in the file's first page.
  TreePage(ByteSpan page, std::size_t start);

  TreeKind Kind() const { return kind_; }
  bool IsInner() const { return kind_ == TreeKind::InnerIndex || kind_ == TreeKind::InnerTable; }
  std::size_t CellCount() const { return cells_; }

  /// Where a cell begins.
  std::size_t Cell(std::size_t index) const;

  /// The children of an inner page, in their order.
  std::vector<std::uint32_t> Children() const;

 private:
  ByteSpan page_;
  std::size_t start_;
  TreeKind kind_ = TreeKind::TableLeaf;
  std::size_t cells_ = 0;
};

/// Whether a page may be one of a tree, by its head and the places of its cells.
bool LooksLikeTree(ByteSpan page, std::size_t start);

/// How texts are written in a file.
enum class TextEncoding { Utf8 = 1, Utf16Little = 2, Utf16Big = 3 };

/// The values of a record. Throws NotWhole when it does not have just the length that it promises.
std::vector<Value> ReadRecord(ByteSpan record, TextEncoding encoding);

}  // namespace veyra::sqlite
