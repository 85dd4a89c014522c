#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "data/access/format/code_page.h"
#include "data/access/pages/page_source.h"
#include "data/access/read/usage_map.h"

namespace veyra::access {

// A table definition is a text of bytes that may go on over several pages; each further page
// contributes all but its first 8 bytes. Numbers in brackets are those of Jet 3, where they differ.
//
//   0   kind 2, then 1
//   2   free bytes of the page
//   4   next page of the definition, 0 for none
//   8   length of the whole text
//   16 [12]  rows                        20 [16]  last auto number
//   40 [20]  'N' user table, 'S' system  41 [21]  columns there ever were
//   43 [23]  variable columns            45 [25]  columns
//   47 [27]  index names                 51 [31]  indexes
//   55 [35]  map of the pages owned      59 [39]  map of those with room
//   63 [43]  an index each, 12 [8] bytes: 4 [4] number of its keys
//   a column each, 25 [18] bytes:
//        0 kind  5 [1] number  7 [3] place among the variable columns  9 [5] place shown at
//        11 precision  12 scale (of a decimal number)
//        15 [13] flags  16 compressed text  21 [14] offset among the fixed columns  23 [16] length
//   a column's name each: length in 2 [1] bytes, then UTF-16 [code page]
//   an index each, 52 [39] bytes:
//        4 [0] ten columns of 3 bytes: number, or FFFF, then 1 rising, 2 falling
//        34 [30] map of its pages  38 [34] root page  46 [38] flags
//   an index name each, 28 [20] bytes: 4 [0] number  8 [4] which index  23 [19] 1 primary key
//   these names, as those of the columns
//   a long text column each, 10 bytes: number, map of its pages, map of those with room; then FFFF

enum class ColumnKind : Byte {
  YesNo = 1,
  OneByte = 2,
  Short = 3,
  Long = 4,
  Money = 5,
  Single = 6,
  Double = 7,
  DateTime = 8,
  Binary = 9,
  Text = 10,
  LongBinary = 11,
  Memo = 12,
  Guid = 15,
  Decimal = 16,
};

inline constexpr std::uint8_t kColumnFixed = 0x01;
inline constexpr std::uint8_t kColumnNullable = 0x02;
inline constexpr std::uint8_t kColumnAutoNumber = 0x04;
inline constexpr std::uint8_t kIndexUnique = 0x01;
inline constexpr std::uint8_t kIndexSkipsNulls = 0x02;

/// The name that an index bears as its table's primary key.
inline constexpr std::string_view kPrimaryKey = "PrimaryKey";

struct ColumnLayout {
  std::string Name;
  ColumnKind Kind = ColumnKind::Long;
  std::uint16_t Number = 0;         ///< Its bit among the null bits.
  std::uint16_t VariablePlace = 0;  ///< Variable columns only.
  std::uint16_t FixedOffset = 0;    ///< Fixed columns only: from the first of them.
  std::uint16_t Length = 0;         ///< In bytes.
  std::uint8_t Scale = 0;           ///< Decimal only.
  std::uint8_t Flags = 0;
  bool MayCompress = false;

  bool operator==(const ColumnLayout&) const = default;

  bool IsFixed() const { return (Flags & kColumnFixed) != 0; }
  bool IsAutoNumber() const { return (Flags & kColumnAutoNumber) != 0; }
  bool IsLong() const { return Kind == ColumnKind::Memo || Kind == ColumnKind::LongBinary; }
};

struct IndexColumn {
  std::uint16_t Number = 0;  ///< Of the column.
  bool Descending = false;
};

struct IndexLayout {
  std::string Name;
  std::vector<IndexColumn> Columns;
  RowPointer Pages;
  PageNumber Root = 0;
  std::uint8_t Flags = 0;

  bool IsUnique() const { return (Flags & kIndexUnique) != 0; }
  bool SkipsNulls() const { return (Flags & kIndexSkipsNulls) != 0; }
};

/// The pages of the long texts of one column.
struct LongColumnMaps {
  std::uint16_t Number = 0;
  RowPointer Owned;
  RowPointer Free;
};

/// What a table's definition says.
struct TableLayout {
  PageNumber Page = 0;  ///< The first page of the definition.
  std::uint32_t RowCount = 0;
  std::uint32_t LastAutoNumber = 0;
  std::uint16_t ColumnsEver = 0;
  std::uint16_t VariableColumns = 0;
  std::vector<ColumnLayout> Columns;  ///< In their order.
  std::vector<IndexLayout> Indexes;
  std::vector<LongColumnMaps> LongColumns;
  RowPointer Owned;
  RowPointer Free;
  bool IsSystem = false;

  /// The place of a column in Columns, found without regard to ASCII letter case; Columns.size()
  /// when there is none.
  std::size_t FindColumn(std::string_view name) const;

  /// The column of that number, or nullptr.
  const ColumnLayout* ColumnByNumber(std::uint16_t number) const;
};

/// The bytes of a definition, its pages joined. Throws DamagedFile when the pages run in a circle
/// or hold less than the definition's length.
Bytes ReadDefinition(PageSource& file, PageNumber first_page);

/// The pages that a definition takes, in order.
std::vector<PageNumber> DefinitionPages(PageSource& file, PageNumber first_page);

/// Reads the definition on that page. Throws DamagedFile when it is none.
TableLayout ReadTableLayout(PageSource& file, PageNumber first_page);

}  // namespace veyra::access
